#include "TextReport.h"

#include <cstdio>
#include <string>
#include <vector>

#include "Commands.h"

namespace {

const Text kCheckResults[] = {
    {"変換できます（完全）", "complete: can become XBRL"},
    {"内容に誤りがあります（不完全）", "incomplete: errors in the content"},
    {"他のファイルと一致しません（不整合）", "inconsistent with the other files"},
    {"チェックできません（形式エラー）", "format error: not checked"},
};

std::string stringOf(const Json& value)
{
    return value.is_string() ? value.get<std::string>() : std::string();
}

void printEntry(std::ostream& out, const Json& entry, const char* indent, Language language)
{
    out << indent << "  " << placeOf(entry, language);
    if (entry["Field"].is_string())
        out << ", " << stringOf(entry["Field"]);
    if (entry["Value"].is_string())
        out << ": " << Text{"「", "\""}(language) << stringOf(entry["Value"]) << Text{"」", "\""}(language);
    if (entry["Rule"].is_string())
        out << Text{"（規則: ", " (rule: "}(language) << stringOf(entry["Rule"]) << Text{"）", ")"}(language);
    out << "\n" << indent << "    " << stringOf(entry["Code"]) << " " << stringOf(entry["Message"]) << "\n";
}

void printEntries(std::ostream& out, const std::vector<const Json*>& entries, const char* indent, Language language)
{
    if (entries.empty())
        return;
    out << indent << Text{"エラー", "Errors"}(language) << ":\n";
    for (const Json* entry : entries)
        printEntry(out, *entry, indent, language);
}

// The statements answer: the entries of the whole check, then each file
// with its own, then the files of the folder that could not be checked.
void printStatements(std::ostream& out, const Json& answer, Language language)
{
    const Json& entries = answer["Entries"];
    std::vector<bool> shown(entries.size(), false);
    auto entriesOf = [&](const std::string& file) {
        std::vector<const Json*> found;
        for (size_t i = 0; i < entries.size(); ++i) {
            if (!shown[i] && stringOf(entries[i]["File"]) == file) {
                shown[i] = true;
                found.push_back(&entries[i]);
            }
        }
        return found;
    };
    const std::string input = stringOf(answer["Arguments"][0]);
    std::vector<std::vector<const Json*>> perFile;
    for (size_t i = 0; i < answer["CsvFileNameArray"].size(); ++i)
        perFile.push_back(entriesOf(statementsFile(answer, i)));
    printEntries(out, entriesOf(input), "", language);

    for (size_t i = 0; i < perFile.size(); ++i) {
        const std::string name = stringOf(answer["CsvFileNameArray"][i]);
        const std::string result = stringOf(answer["CheckResultArray"][i]);
        const int code = result.size() == 1 && result[0] >= '0' && result[0] <= '3' ? result[0] - '0' : -1;
        out << "\n" << (name.empty() ? Text{"（チェック全体）", "(the whole check)"}(language) : name) << ": "
            << (code >= 0 ? kCheckResults[code](language) : result.c_str()) << "\n";
        if (!stringOf(answer["XbrlTypeArray"][i]).empty())
            out << "  " << Text{"財務諸表", "Statements"}(language) << ": " << stringOf(answer["XbrlTypeArray"][i])
                << "\n";
        if (!stringOf(answer["CorporateNameArray"][i]).empty())
            out << "  " << Text{"法人名", "Corporate name"}(language) << ": "
                << stringOf(answer["CorporateNameArray"][i]) << "\n";
        const std::string from = stringOf(answer["FiscalYearFromArray"][i]);
        const std::string to = stringOf(answer["FiscalYearToArray"][i]);
        if (!from.empty() || !to.empty())
            out << "  " << Text{"事業年度", "Fiscal year"}(language) << ": " << from << " - " << to << "\n";
        printEntries(out, perFile[i], "  ", language);
    }

    std::vector<const Json*> others;
    for (size_t i = 0; i < entries.size(); ++i) {
        if (!shown[i])
            others.push_back(&entries[i]);
    }
    if (!others.empty()) {
        out << "\n" << Text{"チェックできないファイル", "Files that cannot be checked"}(language) << ":\n";
        for (const Json* entry : others)
            out << "  " << stringOf((*entry)["File"]) << ": " << stringOf((*entry)["Message"]) << "\n";
    }
}

}  // namespace

void printCheckSummary(std::ostream& out, const Json& check, Language language)
{
    const Json& summary = check["Summary"];
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.1f", summary["Seconds"].get<double>());
    out << Text{"チェックした入力: ", "Inputs checked: "}(language) << summary["Inputs"].get<int64_t>()
        << Text{"（", " ("}(language) << seconds << Text{" 秒）", " s)"}(language) << "\n"
        << Text{"問題なし: ", "clean: "}(language) << summary["Clean"].get<int64_t>() << ", "
        << Text{"指摘あり: ", "with findings: "}(language) << summary["WithFindings"].get<int64_t>() << ", "
        << Text{"失敗: ", "failed: "}(language) << summary["Failed"].get<int64_t>() << "\n";
}

std::string titleOf(const Json& answer, Language language)
{
    const std::string command = stringOf(answer["Command"]);
    if (command == "xbrl")
        return Text{"財務諸表CSVのチェック", "Financial statements check"}(language);
    if (command == "detail" || command == "detail2")
        return Text{"勘定科目内訳明細書CSVのチェック", "Detail statement check"}(language);
    if (command == "appended")
        return Text{"別表CSVのチェック", "Appended table check"}(language);
    if (command == "report")
        return Text{"帳票XMLの作成", "Report XML"}(language);
    if (command == "write")
        return Text{"CSVファイルの書き込み", "CSV write"}(language);
    return Text{"チェック", "Check"}(language);
}

std::string verdictInWords(const Json& answer, Language language)
{
    const std::string command = stringOf(answer["Command"]);
    const std::string verdict = stringOf(answer["Verdict"]);
    const int index = verdict == "clean" ? 0 : verdict == "findings" ? 1 : 2;
    if (command == "write") {
        static const Text kWrite[] = {{"書き込みました", "written"}, {"", ""}, {"書き込めませんでした", "not written"}};
        return kWrite[index](language);
    }
    if (command == "xbrl") {
        static const Text kStatements[] = {
            {"すべてのファイルをXBRLにできます", "every file can become XBRL"},
            {"誤りのあるファイルがあります", "some files have errors"},
            {"チェックできませんでした", "the check failed"}};
        std::string words = kStatements[index](language);
        if (index == 1)
            words += " (" + std::to_string(answer["Summary"]["FilesWithFindings"].get<int64_t>()) + "/" +
                     std::to_string(answer["Summary"]["Files"].get<int64_t>()) + ")";
        return words;
    }
    static const Text kDetail[] = {{"変換できます", "can be converted"},
                                   {"変換できます（警告あり）", "can be converted with warnings"},
                                   {"変換できません", "cannot be converted"}};
    return kDetail[index](language);
}

std::string placeOf(const Json& entry, Language language)
{
    const std::string scope = stringOf(entry["Scope"]);
    const std::string line = std::to_string(entry["Line"].get<int64_t>());
    const std::string column = std::to_string(entry["Column"].get<int64_t>());
    if (scope == "file")
        return Text{"ファイル全体", "whole file"}(language);
    if (scope == "argument")
        return Text{"引数 ", "argument "}(language) + column;
    if (scope == "line")
        return Text{"行 ", "line "}(language) + line;
    return Text{"行 ", "line "}(language) + line + ", " + Text{"列 ", "column "}(language) + column;
}

void printAnswer(std::ostream& out, const Json& answer, Language language)
{
    for (const Json& hint : answer["Hints"])
        out << Text{"注意: ", "Note: "}(language) << stringOf(hint) << "\n";
    out << titleOf(answer, language) << ": " << stringOf(answer["Result"]);
    if (answer.contains("XbrlCsvFileCount"))
        out << " (" << Text{"ファイル数", "files"}(language) << " " << answer["XbrlCsvFileCount"].get<int64_t>() << ")";
    out << "\n" << verdictInWords(answer, language) << "\n";
    if (answer.contains("CsvFileNameArray")) {
        printStatements(out, answer, language);
        return;
    }
    std::vector<const Json*> entries;
    for (const Json& entry : answer["Entries"])
        entries.push_back(&entry);
    printEntries(out, entries, "", language);
}
