#!/usr/bin/env python3
"""Builds validation definitions and examples from the form sources.

Each file in forms/ describes one form in every style version the library
checks, and its example files. This script writes

  resources/QZCsvConvXml.bundle/AccountTitle/<id>_<version>_vld.xml    detail statements
  resources/QZCsvConvXml.bundle/AppendedTable/<id>_<version>_vld.xml   appended tables
  examples/detail/<path>.csv             the examples (Shift_JIS, CRLF)
  examples/detail/<path>.expected.json   what the tool answers for each
  tests/DetailAccountTitle/ShippedLayouts.txt
                                         for every version a file that fills
                                         each column to its limits, which the
                                         library must accept

With --check it writes nothing and exits 1 when a committed file differs
from what the sources give.

Source format, one statement a line ('#' starts a comment line):

  form ID detail|appended TITLE
  note TEXT                   provenance, copied into the definitions: after
                              'form' into all of them, after 'version' into
                              that version's
  version V                   a style version described in full by the
                              'table' statements that follow
  version V from W [without ITEM...]
                              the layout of version W, less the columns of
                              the items named
  table KUBUN rows=N          a table of the form: records whose first field
                              is KUBUN, N rows to a page
  col ITEM LABEL KIND ARGS... the next CSV column(s): ITEM is the element
                              name in the report XML, LABEL the Japanese name
  total ITEM...               what a total row of the table may carry; the
                              other columns of a total row must be empty
                              (without 'total' a total row carries nothing)

Kinds (one CSV column unless said otherwise):
  text N                full-width text of at most N characters
  name N                text of at most N characters, any width
  amount [nonnegative]  whole yen: at most 15 digits, a leading minus
                        counted in the 16 characters (or no minus at all)
  quantity [unit=W,..]  at most 11 digits and 2 decimals; with unit the
                        next column holds one of the words W (written as
                        the element's unit attribute)
  rate                  percent: at most 3 digits, a point, 3 decimals
  digits N|=N [A-B]     half-width digits, at most (exactly) N of them,
                        optionally between A and B
  code WORD...          one of the words
  date ERA...           four columns: era code, year, month, day
  yearmonth ERA...      three columns: era code, year, month
  year ERA...           two columns: era code, year
Any kind takes 'required': the column must not be empty.

Examples, after the versions:
  example PATH [COMMAND]      a file under examples/detail, checked by the
                              tool's COMMAND (default detail2, or appended)
  row FIELDS                  a record as the file holds it
  subtotal KUBUN TEXT         a total row of the amounts since the last total
                              row of the table, TEXT in its first text column
  grandtotal KUBUN TEXT       a total row of all detail rows of the table
  expect COLUMN CODE          the entry that the last record gives
"""

import csv
import io
import json
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FORMS = os.path.join(ROOT, "definitions", "forms")
BUNDLE = os.path.join(ROOT, "resources", "QZCsvConvXml.bundle")
EXAMPLES = os.path.join(ROOT, "examples", "detail")
LAYOUTS = os.path.join(ROOT, "tests", "DetailAccountTitle", "ShippedLayouts.txt")

ERA_NAMES = {"1": "明治", "2": "大正", "3": "昭和", "4": "平成", "5": "令和"}
# Columns of the era date kinds, the check of the whole date and the
# element names of its parts.
DATE_KINDS = {
    "date": ("existdate", ["era", "yy", "mm", "dd"]),
    "yearmonth": ("existmonth", ["era", "yy", "mm"]),
    "year": ("existyear", ["era", "yy"]),
}
PART_LABELS = {"era": "元号", "yy": "年", "mm": "月", "dd": "日"}
# The first and the last day of each era as the date checks bound it.
ERA_BOUNDS = {"1": (["1", "23", "01", "01"], ["1", "45", "07", "29"]),
              "2": (["2", "01", "07", "30"], ["2", "15", "12", "24"]),
              "3": (["3", "01", "12", "25"], ["3", "64", "01", "07"]),
              "4": (["4", "01", "01", "08"], ["4", "31", "04", "30"]),
              "5": (["5", "01", "05", "01"], ["5", "99", "12", "31"])}
# Full-width characters of every kind the text columns take.
FULL_WIDTH = "全角ＡＺａｚ０９－（）、。ア漢字"
# Codes that let a file still be converted.
NON_BLOCKING = {"HQZ9300E", "HQZ9570E", "HQZ9580E", "HQZ9590E", "HQZ9600E", "HQZ9610E", "HQZ9620E"}
TOTAL_GATE = '<outer column="2" id="contain" value="1" nomsg="1"/>'


class SourceError(Exception):
    pass


class Column:
    def __init__(self, item, label, kind, args):
        self.item, self.label, self.kind = item, label, kind
        self.required = "required" in args
        self.args = [a for a in args if a != "required"]
        self.unit = None
        if kind == "quantity":
            units = [a[5:] for a in self.args if a.startswith("unit=")]
            self.unit = units[0].split(",") if units else None
        if kind not in ("text", "name", "amount", "quantity", "rate", "digits", "code") and kind not in DATE_KINDS:
            raise SourceError("unknown kind " + kind)
        if kind in DATE_KINDS and not all(a in ERA_NAMES for a in self.args):
            raise SourceError("%s: era codes are 1 to 5" % item)

    def width(self):
        if self.kind in DATE_KINDS:
            return len(DATE_KINDS[self.kind][1])
        return 2 if self.unit else 1

    def is_text(self):
        return self.kind in ("text", "name")

    def checks(self):
        """The value checks of the column, as (keyword, attributes)."""
        a = self.args
        out = [("exist", [("message", "HQZ9620E")])] if self.required else []
        if self.kind == "text":
            out += [("charlength", [("max", a[0])]), ("multibyte", [])]
        elif self.kind == "name":
            out += [("charlength", [("max", a[0])])]
        elif self.kind == "amount" and "nonnegative" in a:
            out += [("number", []), ("range", [("min", "0"), ("max", "999999999999999")])]
        elif self.kind == "amount":
            out += [("number", []), ("length", [("max", "16")])]
        elif self.kind == "quantity":
            out += [("decimal", []), ("length", [("max", "12.2")])]
        elif self.kind == "rate":
            out += [("decimal", []), ("length", [("max", "4.3")]), ("range", [("min", "0"), ("max", "999.999")])]
        elif self.kind == "digits":
            exact = a[0].startswith("=")
            out += [("alnum", []), ("length", [("value", a[0][1:])] if exact else [("max", a[0])])]
            if len(a) > 1:
                low, high = a[1].split("-")
                out.append(("range", [("min", low), ("max", high)]))
        elif self.kind == "code":
            out.append(("contain", [("value", " ".join(a))]))
        return out

    def limits(self, high):
        """Values of the column at one end of what it takes."""
        a = self.args
        if self.kind == "text":
            n = int(a[0]) if high else 1
            return [(FULL_WIDTH * n)[:n]]
        if self.kind == "name":
            return [("Ab1-あ" * int(a[0]))[:int(a[0])] if high else "あ"]
        if self.kind == "amount" and "nonnegative" in a:
            return ["999999999999999" if high else "0"]
        if self.kind == "amount":
            return ["-999999999999999" if high else "999999999999999"]
        if self.kind == "quantity":
            value = "-99999999999.99" if high else "99999999999.99"
            return [value] + ([self.unit[-1 if high else 0]] if self.unit else [])
        if self.kind == "rate":
            return ["999.999" if high else "0.001"]
        if self.kind == "digits":
            n = int(a[0].lstrip("="))
            if len(a) > 1:
                return [a[1].split("-")[1 if high else 0].zfill(n)]
            return ["9" * n if high else "0" * n]
        if self.kind == "code":
            return [a[-1] if high else a[0]]
        era = max(a) if high else min(a)
        return ERA_BOUNDS[era][1 if high else 0][:self.width()]

    def describe(self):
        a = self.args
        if self.kind == "text":
            return "full-width, at most %s characters" % a[0]
        if self.kind == "name":
            return "at most %s characters" % a[0]
        if self.kind == "amount":
            return "amount, at most 15 digits" + (", not negative" if "nonnegative" in a else "")
        if self.kind == "quantity":
            return "at most 11 digits and 2 decimals" + (
                ", the next column its unit (%s)" % " ".join(self.unit) if self.unit else "")
        if self.kind == "rate":
            return "percent, at most 3 digits and 3 decimals"
        if self.kind == "digits":
            text = ("exactly %s digits" % a[0][1:]) if a[0].startswith("=") else ("at most %s digits" % a[0])
            return text + (", %s" % a[1] if len(a) > 1 else "")
        if self.kind == "code":
            return "code " + " ".join(a)
        parts = {"date": "year, month, day", "yearmonth": "year, month", "year": "year"}[self.kind]
        return "era code (%s), %s; it must exist" % (", ".join("%s %s" % (e, ERA_NAMES[e]) for e in self.args), parts)


class Table:
    def __init__(self, kubun, rows, first):
        self.kubun, self.rows, self.first = kubun, rows, first
        self.columns = []
        self.total = []

    @property
    def position(self):
        """The CSV column (1-based) of every item."""
        position = {}
        column = self.first
        for c in self.columns:
            position[c.item] = column
            column += c.width()
        return position

    @property
    def count(self):
        return self.first - 1 + sum(c.width() for c in self.columns)

    def without(self, items):
        copy = Table(self.kubun, self.rows, self.first)
        copy.columns = [c for c in self.columns if c.item not in items]
        copy.total = [i for i in self.total if i not in items]
        return copy


class Version:
    def __init__(self, name):
        self.name = name
        self.notes = []
        self.tables = []
        self.origin = None  # (version, removed items) of a derived version


class Example:
    def __init__(self, path, command):
        self.path, self.command = path, command
        self.records = []  # [fields, [(column, code)]]


class Form:
    def __init__(self, path):
        self.path = path
        self.notes = []
        self.versions = []
        self.examples = []
        target = None
        for number, line in enumerate(open(path, encoding="utf-8"), 1):
            line = line.rstrip("\n")
            if not line.strip() or line.lstrip().startswith("#"):
                continue
            word, _, rest = line.strip().partition(" ")
            try:
                target = self.statement(word, rest, target)
            except (SourceError, ValueError, IndexError, KeyError) as e:
                raise SystemExit("%s:%d: %s" % (path, number, e))

    def statement(self, word, rest, target):
        parts = rest.split()
        if word == "form":
            self.id, self.kind = parts[0], parts[1]
            self.title = " ".join(parts[2:])
            self.detail = self.kind == "detail"
            self.first = 3 if self.detail else 2
            return self.notes
        if word == "note":
            target.append(rest)
            return target
        if word == "version":
            version = Version(parts[0])
            if len(parts) > 1:
                if parts[1] != "from" or (len(parts) > 3 and parts[3] != "without"):
                    raise SourceError("version V from W [without ITEM...]")
                origin = self.version(parts[2])
                removed = parts[4:]
                known = {c.item for t in origin.tables for c in t.columns}
                for item in removed:
                    if item not in known:
                        raise SourceError("version %s has no item %s" % (origin.name, item))
                version.tables = [t.without(removed) for t in origin.tables]
                version.origin = (origin.name, removed)
            self.versions.append(version)
            return version.notes
        if word == "table":
            options = dict(p.split("=", 1) for p in parts[1:])
            self.versions[-1].tables.append(Table(parts[0], int(options["rows"]), self.first))
            return target
        if word == "col":
            self.versions[-1].tables[-1].columns.append(Column(parts[0], parts[1], parts[2], parts[3:]))
            return target
        if word == "total":
            table = self.versions[-1].tables[-1]
            for item in parts:
                if item not in table.position:
                    raise SourceError("no column " + item)
            table.total = parts
            return target
        if word == "example":
            command = parts[1] if len(parts) > 1 else ("detail2" if self.detail else "appended")
            self.examples.append(Example(parts[0], command))
            return target
        if word == "row":
            self.examples[-1].records.append([next(csv.reader([rest])), []])
            return target
        if word in ("subtotal", "grandtotal"):
            self.examples[-1].records.append([self.total_row(parts[0], " ".join(parts[1:]), word == "subtotal"), []])
            return target
        if word == "expect":
            self.examples[-1].records[-1][1].append((int(parts[0]), parts[1]))
            return target
        raise SourceError("unknown statement " + word)

    def version(self, name):
        for version in self.versions:
            if version.name == name:
                return version
        raise SourceError("no version " + name)

    # ---- validation definition -------------------------------------------------

    def xml(self, version):
        out = []
        w = out.append
        w('<?xml version="1.0" encoding="UTF-8"?>')
        w("<!--")
        w("  %s (%s), style version %s." % (self.title, self.id, version.name))
        w("  Generated from definitions/forms/%s by definitions/generate.py; edit the source."
          % os.path.basename(self.path))
        w("")
        for note in self.notes + version.notes:
            w("  " + note)
        if version.origin and version.origin[1]:
            origin, removed = version.origin
            w("  Layout of %s without %s." % (origin, ", ".join(self.label(i, origin) for i in removed)))
        for table in version.tables:
            w("")
            w("  Format kubun %s, %d %s a page:" % (table.kubun, table.rows, "row" if table.rows == 1 else "rows"))
            w("    %5d フォーマット区分: %s" % (1, table.kubun))
            if self.detail:
                w("    %5d 行区分: 0 detail row, 1 total row" % 2)
            for c in table.columns:
                p = table.position[c.item]
                span = str(p) if c.width() == 1 else "%d-%d" % (p, p + c.width() - 1)
                w("    %5s %s (%s): %s" % (span, c.label, c.item, c.describe()))
            if self.detail:
                carried = [c.label for c in table.columns if c.item in table.total]
                if carried:
                    w("  A total row closes its page and carries %s%s; its other columns stay empty."
                      % (", ".join(carried[:-1]) + " and " if len(carried) > 1 else "", carried[-1]))
                else:
                    w("  A total row closes its page and carries nothing: its columns stay empty.")
        w("-->")
        w("<definition>")
        for table in version.tables:
            self.report(w, version, table)
        w("</definition>")
        text = "\n".join(out) + "\n"
        comment = text[text.index("<!--") + 4:text.index("-->")]
        if "--" in comment:
            raise SystemExit("%s: '--' cannot stand in an XML comment" % self.path)
        return text

    def label(self, item, origin):
        for table in self.version(origin).tables:
            for c in table.columns:
                if c.item == item:
                    return c.label
        raise KeyError(item)

    def report(self, w, version, table):
        container = "table" + table.kubun
        kind = ' meisaiGoukei="0"' if self.detail else ""
        w('  <report id="%s" reportId="%s" reportVR="%s" columnNum="%d" maxOccurs="%d" sibling="1">'
          % (table.kubun, self.id, version.name, table.count, table.rows))
        w('    <item id="%s" parent="%s"%s/>' % (container, self.id, kind))
        w('    <item id="row" parent="%s"%s/>' % (container, kind))
        for c in table.columns:
            self.items(w, table, c, kind)
        if self.detail:
            self.total_items(w, table, container)
        w("  </report>")

    def items(self, w, table, c, kind):
        p = table.position[c.item]
        if c.kind in DATE_KINDS:
            check, parts = DATE_KINDS[c.kind]
            w('    <item id="%s" parent="row"%s type="Date" label="%s">' % (c.item, kind, c.label))
            w('      <valid id="%s" column="%d"/>' % (check, p))
            w("    </item>")
            for offset, part in enumerate(parts):
                name = PART_LABELS[part]
                label = c.label + (name if c.label.endswith("）") else "（%s）" % name)
                if part == "era":
                    w('    <item id="era" parent="%s" column="%d"%s type="Kubun" label="%s">' % (c.item, p, kind, label))
                    w('      <valid id="contain" value="%s"/>' % " ".join(c.args))
                else:
                    w('    <item id="%s" parent="%s" column="%d"%s label="%s">' % (part, c.item, p + offset, kind, label))
                    w('      <valid id="alnum"/>')
                    w('      <valid id="length" max="2"/>')
                w("    </item>")
            return
        extra = (' type="Kubun"' if c.kind == "code" else "") + (' unit="1"' if c.unit else "")
        w('    <item id="%s" parent="row" column="%d"%s%s label="%s">' % (c.item, p, kind, extra, c.label))
        for keyword, attributes in c.checks():
            w("      " + valid(keyword, attributes) + "/>")
        if c.unit:
            w("      " + valid("contain", [("value", " ".join(c.unit))], p + 1) + "/>")
        w("    </item>")

    def total_items(self, w, table, container):
        # The total row writes the items it carries under its own element.
        # Its checks run with those of the detail rows (items for every row
        # kind, one a column with its label, switched on by row kind 1), so
        # that one reading of a file reports every mistake; a failing check
        # of an item kept for total rows would stop the check at once.
        w('    <item id="%s-total" parent="%s" meisaiGoukei="1"/>' % (container, self.id))
        for c in table.columns:
            if c.item in table.total:
                w('    <item id="%s" parent="%s-total" column="%d" meisaiGoukei="1" label="%s"/>'
                  % (c.item, container, table.position[c.item], c.label))
        for c in table.columns:
            p = table.position[c.item]
            if c.item in table.total:
                checks = c.checks()
            else:
                checks = [("empty", [])] * c.width()
            w('    <item id="totalRow" parent="%s" label="%s">' % (self.id, c.label))
            for offset, (keyword, attributes) in enumerate(checks):
                column = p + (offset if keyword == "empty" else 0)
                w("      " + valid(keyword, attributes, column) + ">" + TOTAL_GATE + "</valid>")
            w("    </item>")

    # ---- examples --------------------------------------------------------------

    def table_of(self, version, kubun):
        for table in version.tables:
            if table.kubun == kubun:
                return table
        raise SourceError("no table " + kubun)

    def total_row(self, kubun, text, since_last):
        version = self.version(os.path.basename(self.examples[-1].path).split("_")[1])
        table = self.table_of(version, kubun)
        values = [kubun, "1"] + [""] * (table.count - 2)
        rows = []
        for fields, _ in self.examples[-1].records:
            if fields[0] != kubun:
                continue
            if fields[1] == "1" and since_last:
                rows = []
            elif fields[1] == "0":
                rows.append(fields)
        text_placed = False
        for c in table.columns:
            if c.item not in table.total:
                continue
            index = table.position[c.item] - 1
            if c.is_text():
                if not text_placed:
                    values[index] = text
                    text_placed = True
            else:
                values[index] = str(sum(int(r[index] or "0") for r in rows))
        return values

    def example_files(self, example):
        version = os.path.basename(example.path).split("_")[1]
        lines = []
        entries = []
        # An entry's line number is as wide as the file's record count.
        width = len(str(len(example.records)))
        tables = {t.kubun: t for t in self.version(version).tables}
        for number, (fields, expects) in enumerate(example.records, 1):
            table = tables.get(fields[0])
            if table and len(fields) != table.count:
                raise SystemExit("%s: %s record %d: %d fields, the table %d"
                                 % (self.path, example.path, number, len(fields), table.count))
            out = io.StringIO()
            csv.writer(out, lineterminator="").writerow(fields)
            lines.append(out.getvalue())
            for column, code in expects:
                entries.append("%0*d-%05d-%s" % (width, number, column, code))
        data = ("\r\n".join(lines) + "\r\n").encode("cp932")
        if entries:
            # The first detail operation fails on any entry; the others let a
            # file be converted unless an entry blocks it.
            blocked = example.command == "detail" or any(e.split("-")[2] not in NON_BLOCKING for e in entries)
            answer = {"Result": "E_FAIL" if blocked else "S_OK",
                      "DetailErrorInfo": ",".join(sorted(set(entries))),
                      "Conformity": 0 if blocked else 2}
        else:
            answer = {"Result": "S_OK", "DetailErrorInfo": "",
                      "Conformity": 0 if example.command == "detail" else 1}
        expected = {"command": [example.command, os.path.basename(example.path), version], "answer": answer}
        base = os.path.join(EXAMPLES, example.path)
        return [(base, data),
                (base[:-len(".csv")] + ".expected.json",
                 (json.dumps(expected, ensure_ascii=False, indent=2) + "\n").encode("utf-8"))]

    def layouts(self):
        """Per version a file that fills every column to its limits."""
        blocks = []
        for version in self.versions:
            lines = ["%s %s_%s_layout.csv" % (self.kind, self.id, version.name)]
            for table in version.tables:
                start = [table.kubun] + (["0"] if self.detail else [])
                for high in (True, False):
                    lines.append(",".join(start + [v for c in table.columns for v in c.limits(high)]))
                if not any(c.required for c in table.columns):
                    lines.append(",".join(start + [""] * (table.count - len(start))))
                if self.detail:
                    values = [v if c.item in table.total else "" for c in table.columns for v in c.limits(True)]
                    lines.append(",".join([table.kubun, "1"] + values))
            blocks.append("\n".join(lines) + "\n")
        return blocks

    def outputs(self):
        folder = "AccountTitle" if self.detail else "AppendedTable"
        files = [(os.path.join(BUNDLE, folder, "%s_%s_vld.xml" % (self.id, v.name)), self.xml(v).encode("utf-8"))
                 for v in self.versions]
        for example in self.examples:
            files += self.example_files(example)
        return files


def valid(keyword, attributes, column=None):
    text = '<valid id="%s"' % keyword
    if column is not None:
        text += ' column="%d"' % column
    for name, value in attributes:
        text += ' %s="%s"' % (name, value)
    return text


def generated(folder):
    """Files under folder that an earlier run of this script wrote."""
    found = []
    for base, _, names in os.walk(folder):
        for name in names:
            path = os.path.join(base, name)
            if name.endswith("_vld.xml"):
                if "Generated from definitions/forms/" in open(path, encoding="utf-8").read():
                    found.append(path)
            elif name.endswith(".csv") or name.endswith(".expected.json"):
                found.append(path)
    return found


def main():
    check = "--check" in sys.argv[1:]
    outputs = []
    layouts = []
    for source in sorted(os.listdir(FORMS)):
        if source.endswith(".form"):
            form = Form(os.path.join(FORMS, source))
            outputs += form.outputs()
            layouts += form.layouts()
    outputs.append((LAYOUTS, "\n".join(layouts).encode("utf-8")))
    produced = {path for path, _ in outputs}
    stale = [p for folder in (os.path.join(BUNDLE, "AccountTitle"), os.path.join(BUNDLE, "AppendedTable"), EXAMPLES)
             for p in generated(folder) if p not in produced]
    if not check:
        for path, data in outputs:
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "wb") as f:
                f.write(data)
        for path in stale:
            os.remove(path)
        return 0
    differ = []
    for path, data in outputs:
        try:
            current = open(path, "rb").read()
        except OSError:
            current = None
        if current != data:
            differ.append(os.path.relpath(path, ROOT))
    differ += [os.path.relpath(p, ROOT) + " (no source)" for p in stale]
    if differ:
        print("generated files differ from definitions/forms (run definitions/generate.py):")
        for path in differ:
            print("  " + path)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
