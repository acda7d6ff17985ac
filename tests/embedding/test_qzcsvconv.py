"""The Python module against the command-line tool: both must give the same
answer for every operation. QZC_TOOL names the tool, QZC_EXAMPLES the
examples folder."""

import json
import os
import subprocess
import tempfile
import unittest

import qzcsvconv

TOOL = os.environ["QZC_TOOL"]
EXAMPLES = os.environ["QZC_EXAMPLES"]


def tool_answer(*arguments):
    run = subprocess.run([TOOL, "--json", *arguments], capture_output=True, check=False)
    return json.loads(run.stdout)


class SameAnswerAsTheTool(unittest.TestCase):
    def test_checks(self):
        cases = [
            (qzcsvconv.check_detail, "detail", "detail/earlier-versions/HOI020_1.1_受取手形.csv", "1.1"),
            (qzcsvconv.check_detail, "detail", "detail/with-errors/HOI010_4.0_預貯金等.csv", "4.0"),
            (qzcsvconv.check_detail2, "detail2", "detail/with-errors/HOI010_4.0_預貯金等.csv", "4.0"),
            (qzcsvconv.check_detail2, "detail2", "detail/HOI010_4.0_預貯金等.csv", "3.0"),
            (qzcsvconv.check_appended, "appended", "detail/HOB016_6.0_控除所得税額.csv", "6.0"),
            (qzcsvconv.report, "report", "detail/HOI110_3.0_借入金.csv", "3.0"),
            (qzcsvconv.check_statements, "xbrl", "financial-statements-with-errors", "3.0"),
            (qzcsvconv.check_statements, "xbrl", "financial-statements", "3.0"),
            (qzcsvconv.check_statements, "xbrl", "no-such-folder", "3.0"),
        ]
        for operation, command, path, version in cases:
            with self.subTest(command=command, path=path):
                path = os.path.join(EXAMPLES, path)
                result = operation(path, version)
                answer = tool_answer(command, path, version)
                self.assertEqual(result.code, answer["Result"])
                self.assertEqual(result.error_info, answer["DetailErrorInfo"])
                self.assertEqual(result.conformity, answer.get("Conformity", 0))
                self.assertEqual(result.report, answer.get("Report", ""))
                files = [(f.name, str(f.check_result), f.xbrl_type, f.style_version, f.corporate_name,
                          f.fiscal_year_from, f.fiscal_year_to, f.generic_csv, f.error_info) for f in result.files]
                arrays = ["CsvFileNameArray", "CheckResultArray", "XbrlTypeArray", "StyleVersionArray",
                          "CorporateNameArray", "FiscalYearFromArray", "FiscalYearToArray", "GenericCSVArray",
                          "DetailErrorInfoArray"]
                self.assertEqual(files, list(zip(*(answer.get(a, []) for a in arrays))))

    def test_write(self):
        text = "HOI010,0,みなと銀行,1200000\r\n"
        with tempfile.TemporaryDirectory() as folder:
            data = os.path.join(folder, "data.txt")
            with open(data, "w", encoding="utf-8", newline="") as out:
                out.write(text)
            by_tool = os.path.join(folder, "tool", "HOI010_4.0.csv")
            os.mkdir(os.path.dirname(by_tool))
            self.assertEqual(tool_answer("write", by_tool, data)["Result"], "S_OK")
            by_module = os.path.join(folder, "HOI010_4.0.csv")
            self.assertTrue(qzcsvconv.write(by_module, text).ok)
            with open(by_tool, "rb") as a, open(by_module, "rb") as b:
                self.assertEqual(a.read(), b.read())


class Entries(unittest.TestCase):
    def test_entries_are_parsed(self):
        result = qzcsvconv.check_detail2(os.path.join(EXAMPLES, "detail/with-errors/HOI010_4.0_預貯金等.csv"), "4.0")
        self.assertEqual(result.errors[0], qzcsvconv.ErrorEntry(1, 4, "HQZ9620E"))
        self.assertEqual(len(result.errors), len(result.error_info.split(",")))
        statements = qzcsvconv.check_statements(os.path.join(EXAMPLES, "financial-statements-with-errors"), "3.0")
        self.assertEqual(statements.files[1].errors,
                         (qzcsvconv.ErrorEntry(24, 5, "HQZ9700E"), qzcsvconv.ErrorEntry(40, 2, "HQZ9450E")))

    def test_unusable_arguments_are_refused_not_raised(self):
        for arguments in [(None, "4.0"), (b"\xff.csv", "4.0"), ("\ud800.csv", "4.0"), ("HOI010_4.0.csv", None)]:
            with self.subTest(arguments=arguments):
                result = qzcsvconv.check_detail2(*arguments)
                self.assertFalse(result.ok)
                self.assertTrue(result.errors)


if __name__ == "__main__":
    unittest.main()
