#!/usr/bin/env python3
"""Builds validation definitions and clean example files from the form sources.

Each file in forms/ describes one form: its columns, its total row and the
rows of a clean example. This script writes

  resources/QZCsvConvXml.bundle/AccountTitle/<id>_<version>_vld.xml   (detail statements)
  resources/QZCsvConvXml.bundle/AppendedTable/<id>_<version>_vld.xml  (appended tables)
  examples/detail/<id>_<version>.csv                                  (Shift_JIS, CRLF)

With --check it writes nothing and exits 1 when a committed file differs
from what the sources give.

Source format, one statement a line ('#' starts a comment line):

  form ID VERSION detail|appended
  title TEXT
  report page=LINES list=ELEMENT row=ELEMENT
  col ELEMENT LABEL KIND ARGS...
  total ELEMENT...            amount columns that the total row carries
  row VALUE,VALUE,...         a detail record of the example, without the
                              format kubun and the row kind

Kinds (each takes one CSV column unless said otherwise):
  name N [required] [if=ELEMENT]   text of at most N characters
  amount [required] [signed]       whole yen, at most 15 digits
  count [unit]                     a quantity, 12 digits; with unit the next
                                   column holds its unit (4 characters)
  rate                             percent, three decimals, 0 to 100
  digits N [required]              digits with at most one hyphen, N long at most
  code WORD... [required]          one of the words
  date ERA...                      four columns: era code, year, month, day
  month ERA...                     three columns: era code, year, month
"""

import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FORMS = os.path.join(ROOT, "definitions", "forms")
BUNDLE = os.path.join(ROOT, "resources", "QZCsvConvXml.bundle")
EXAMPLES = os.path.join(ROOT, "examples", "detail")

ERA_NAMES = {"1": "明治", "2": "大正", "3": "昭和", "4": "平成", "5": "令和"}
AMOUNT_MAX = "999999999999999"
AMOUNT_MIN_SIGNED = "-99999999999999"
COUNT_MAX = "999999999999"


class Form:
    def __init__(self, path):
        self.path = path
        self.columns = []  # (element, label, kind, args)
        self.total = []
        self.rows = []
        self.title = ""
        self.page = 0
        self.list = "rows"
        self.row = "row"
        for number, line in enumerate(open(path, encoding="utf-8"), 1):
            line = line.rstrip("\n")
            if not line.strip() or line.lstrip().startswith("#"):
                continue
            word, _, rest = line.partition(" ")
            if word == "form":
                self.id, self.version, self.kind = rest.split()
            elif word == "title":
                self.title = rest.strip()
            elif word == "report":
                options = dict(part.split("=", 1) for part in rest.split())
                self.page = int(options["page"])
                self.list = options["list"]
                self.row = options["row"]
            elif word == "col":
                parts = rest.split()
                self.columns.append((parts[0], parts[1], parts[2], parts[3:]))
            elif word == "total":
                self.total = rest.split()
            elif word == "row":
                self.rows.append(rest.split(","))
            else:
                raise SystemExit("%s:%d: unknown statement %s" % (path, number, word))
        self.detail = self.kind == "detail"
        # CSV column of each element (1-based) and the number of columns.
        self.first = 3 if self.detail else 2
        self.position = {}
        column = self.first
        for element, label, kind, args in self.columns:
            self.position[element] = column
            column += {"date": 4, "month": 3}.get(kind, 1) + (1 if kind == "count" and "unit" in args else 0)
        self.column_count = column - 1
        for element in self.total:
            if element not in self.position:
                raise SystemExit("%s: total names unknown column %s" % (path, element))

    # ---- validation definition -------------------------------------------------

    def xml(self):
        out = []
        w = out.append
        w('<?xml version="1.0" encoding="UTF-8"?>')
        w("<!--")
        w("  %s, style version %s." % (self.title, self.version))
        w("  Generated from definitions/forms/%s by definitions/generate.py; edit the source." % os.path.basename(self.path))
        w("")
        w("  CSV columns:")
        w("    %2d format kubun: %s, or %s(page) for a numbered page" % (1, self.id, self.id))
        if self.detail:
            w("    %2d row kind: 0 detail row%s" % (2, ", 1 total row" if self.total else ""))
        for element, label, kind, args in self.columns:
            c = self.position[element]
            if kind == "date":
                w("    %2d-%d %s (era code, year, month, day)" % (c, c + 3, label))
            elif kind == "month":
                w("    %2d-%d %s (era code, year, month)" % (c, c + 2, label))
            elif kind == "count" and "unit" in args:
                w("    %2d %s, %d its unit" % (c, label, c + 1))
            else:
                w("    %2d %s" % (c, label))
        if self.total:
            w("")
            w("  The total row carries only the totals of %s." %
              ", ".join(self.label(e) for e in self.total))
        w("-->")
        w("<definition>")
        w('  <report id="%s" reportId="%s" reportVR="%s" columnNum="%d" maxOccurs="%d" bracketed="1" sibling="1">'
          % (self.id, self.id, self.version, self.column_count, self.page))
        w("")
        kind_attr = ' meisaiGoukei="0"' if self.detail else ""
        w("    <!-- Detail rows. -->")
        w('    <item id="%s" parent="%s"%s/>' % (self.list, self.id, kind_attr))
        w('    <item id="%s" parent="%s"%s/>' % (self.row, self.list, kind_attr))
        for element, label, kind, args in self.columns:
            w("")
            self.items(w, element, label, kind, args, self.row, kind_attr)
        if self.total:
            w("")
            w("    <!-- Total row. -->")
            w('    <item id="total" parent="%s" meisaiGoukei="1">' % self.id)
            w("      <!-- a total row names nothing and carries no other value -->")
            for column in range(self.first, self.column_count + 1):
                if column not in [self.position[e] for e in self.total]:
                    w('      <valid id="empty" column="%d"/>' % column)
            w("    </item>")
            for element in self.total:
                label = self.label(element)
                w('    <item id="%s" parent="total" column="%d" meisaiGoukei="1" zeroSuppress="true">'
                  % ("total" + element[0].upper() + element[1:], self.position[element]))
                w("      <!-- the total of %s is required and bounded like its amounts -->" % label)
                w('      <valid id="exist" message="HQZ9620E"/>')
                w('      <valid id="number"/>')
                w('      <valid id="range" min="%s" max="%s"/>' % (self.amount_min(element), AMOUNT_MAX))
                w("    </item>")
        w("  </report>")
        w("</definition>")
        return "\n".join(out) + "\n"

    def label(self, element):
        for e, label, kind, args in self.columns:
            if e == element:
                return label
        raise KeyError(element)

    def amount_min(self, element):
        for e, label, kind, args in self.columns:
            if e == element:
                return AMOUNT_MIN_SIGNED if "signed" in args else "0"
        raise KeyError(element)

    def items(self, w, element, label, kind, args, parent, kind_attr):
        c = self.position[element]
        required = "required" in args
        condition = [a[3:] for a in args if a.startswith("if=")]

        def exist():
            if required:
                w("      <!-- %s must be given -->" % label)
                w('      <valid id="exist" message="HQZ9620E"/>')
            for other in condition:
                w("      <!-- %s must be given when %s is -->" % (label, self.label(other)))
                w('      <valid id="exist" message="HQZ9620E">')
                w('        <outer column="%d" id="exist" nomsg="1"/>' % self.position[other])
                w("      </valid>")

        if kind == "name":
            w('    <item id="%s" parent="%s" column="%d"%s>' % (element, parent, c, kind_attr))
            exist()
            w("      <!-- %s: at most %s characters, the width of its field -->" % (label, args[0]))
            w('      <valid id="charlength" max="%s"/>' % args[0])
            w("      <!-- only characters the service accepts -->")
            w('      <valid id="fylstring"/>')
            w("    </item>")
        elif kind == "amount":
            w('    <item id="%s" parent="%s" column="%d"%s zeroSuppress="true">' % (element, parent, c, kind_attr))
            exist()
            w("      <!-- %s: whole yen, digits only -->" % label)
            w('      <valid id="number"/>')
            if "signed" in args:
                w("      <!-- may be negative; at most 15 places with the sign -->")
            else:
                w("      <!-- not negative, at most 15 digits -->")
            w('      <valid id="range" min="%s" max="%s"/>' % (self.amount_min(element), AMOUNT_MAX))
            w("    </item>")
        elif kind == "count":
            unit = "unit" in args
            w('    <item id="%s" parent="%s" column="%d"%s%s zeroSuppress="true">'
              % (element, parent, c, kind_attr, ' unit="1"' if unit else ""))
            exist()
            w("      <!-- %s: a whole quantity of at most 12 digits -->" % label)
            w('      <valid id="number"/>')
            w('      <valid id="range" min="0" max="%s"/>' % COUNT_MAX)
            if unit:
                w("      <!-- a quantity needs its unit (column %d, written as the unit attribute) -->" % (c + 1))
                w('      <valid id="exist" column="%d" message="HQZ9620E">' % (c + 1))
                w('        <outer column="%d" id="exist" nomsg="1"/>' % c)
                w("      </valid>")
                w('      <valid id="charlength" column="%d" max="4"/>' % (c + 1))
                w('      <valid id="fylstring" column="%d"/>' % (c + 1))
            w("    </item>")
        elif kind == "rate":
            w('    <item id="%s" parent="%s" column="%d"%s>' % (element, parent, c, kind_attr))
            exist()
            w("      <!-- %s: a percentage such as 1.875 -->" % label)
            w('      <valid id="decimal"/>')
            w('      <valid id="length" max="4.3"/>')
            w('      <valid id="range" min="0" max="100"/>')
            w("    </item>")
        elif kind == "digits":
            w('    <item id="%s" parent="%s" column="%d"%s>' % (element, parent, c, kind_attr))
            exist()
            w("      <!-- %s: digits with at most one hyphen, %s long at most -->" % (label, args[0]))
            w('      <valid id="alnum3"/>')
            w('      <valid id="length" max="%s"/>' % args[0])
            w("    </item>")
        elif kind == "code":
            words = [a for a in args if a != "required" and not a.startswith("if=")]
            w('    <item id="%s" parent="%s" column="%d"%s type="Kubun">' % (element, parent, c, kind_attr))
            exist()
            w("      <!-- %s: one of the codes %s -->" % (label, ", ".join(words)))
            w('      <valid id="contain" value="%s"/>' % " ".join(words))
            w("    </item>")
        elif kind in ("date", "month"):
            eras = [a for a in args if a in ERA_NAMES]
            check = "existdate" if kind == "date" else "existmonth"
            parts = ["Era", "Year", "Month", "Day"] if kind == "date" else ["Era", "Year", "Month"]
            w('    <item id="%s" parent="%s"%s type="Date">' % (element, parent, kind_attr))
            w("      <!-- %s must exist within its era -->" % label)
            w('      <valid id="%s" column="%d"/>' % (check, c))
            w("    </item>")
            for offset, part in enumerate(parts):
                sub = element + part
                if part == "Era":
                    w('    <item id="%s" parent="%s" column="%d"%s type="Kubun">' % (sub, element, c, kind_attr))
                    w("      <!-- era of %s: %s -->" % (label, ", ".join(ERA_NAMES[e] for e in eras)))
                    w('      <valid id="contain" value="%s"/>' % " ".join(eras))
                else:
                    limit = {"Year": "99", "Month": "12", "Day": "31"}[part]
                    w('    <item id="%s" parent="%s" column="%d"%s>' % (sub, element, c + offset, kind_attr))
                    w('      <valid id="number"/>')
                    w('      <valid id="range" min="1" max="%s"/>' % limit)
                w("    </item>")
        else:
            raise SystemExit("%s: unknown kind %s" % (self.path, kind))

    # ---- clean example ---------------------------------------------------------

    def csv(self):
        lines = []
        width = self.column_count - self.first + 1
        for row in self.rows:
            if len(row) != width:
                raise SystemExit("%s: example row has %d values, the form %d: %s"
                                 % (self.path, len(row), width, ",".join(row)))
            lines.append(",".join([self.id] + (["0"] if self.detail else []) + row))
        if self.total:
            values = [""] * width
            for element in self.total:
                index = self.position[element] - self.first
                values[index] = str(sum(int(r[index] or "0") for r in self.rows))
            lines.append(",".join([self.id, "1"] + values))
        return ("\r\n".join(lines) + "\r\n").encode("cp932")

    def outputs(self):
        folder = "AccountTitle" if self.detail else "AppendedTable"
        name = "%s_%s" % (self.id, self.version)
        return [(os.path.join(BUNDLE, folder, name + "_vld.xml"), self.xml().encode("utf-8")),
                (os.path.join(EXAMPLES, name + ".csv"), self.csv())]


def main():
    check = "--check" in sys.argv[1:]
    differ = []
    for source in sorted(os.listdir(FORMS)):
        if not source.endswith(".form"):
            continue
        for path, data in Form(os.path.join(FORMS, source)).outputs():
            if check:
                try:
                    current = open(path, "rb").read()
                except OSError:
                    current = None
                if current != data:
                    differ.append(os.path.relpath(path, ROOT))
            else:
                with open(path, "wb") as f:
                    f.write(data)
    if check:
        # A generated definition whose source is gone.
        produced = set()
        for source in sorted(os.listdir(FORMS)):
            if source.endswith(".form"):
                produced.update(path for path, data in Form(os.path.join(FORMS, source)).outputs())
        for folder in ("AccountTitle", "AppendedTable"):
            for name in sorted(os.listdir(os.path.join(BUNDLE, folder))):
                path = os.path.join(BUNDLE, folder, name)
                if path not in produced and "Generated from definitions/forms/" in open(path, encoding="utf-8").read():
                    differ.append(os.path.relpath(path, ROOT) + " (no source)")
    if differ:
        print("generated files differ from definitions/forms (run definitions/generate.py):")
        for path in differ:
            print("  " + path)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
