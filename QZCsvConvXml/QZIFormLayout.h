#pragma once

#include "QZICsvConvExport.h"

#include <optional>
#include <string>
#include <vector>

// The layout of a detail-statement or appended-table form as its validation
// definition in the resource bundle describes it, for programs that explain
// an error entry to a person: which element a column of a record is, its
// label and its checks, and which of those checks a record fails, judged by
// the library's own checks. Not reentrant, like the operations: use it
// between them.
class QZC_EXPORT QZIFormLayout {
public:
    // The operation that checks a file: the first detail operation takes the
    // oldest style version of each detail form, the second detail operation
    // the newer ones, the appended-table operation the appended tables.
    enum class Operation { Detail, Detail2, AppendedTable };
    struct Form {
        std::string reportId;
        std::string styleVersion;
        Operation operation = Operation::Detail2;
    };
    // The form, style version and operation that a file name (report id,
    // "_", style version, optionally "_" and any text, extension) names;
    // nullopt when the version tables know no such form and version.
    static std::optional<Form> Recognize(const std::string& fileName);

    // One check of a definition: its keyword ("charlength", "range", ...) and
    // parameters as written, the message code it reports ("" for the check's
    // own) and the 1-based column it reads. Its conditions are checks on
    // other columns of the same record that decide whether it applies; a
    // silent condition that fails switches the rule off without an entry.
    struct Rule {
        std::string keyword;
        std::string value;
        std::string min;
        std::string max;
        std::string message;
        int column = 0;
        std::vector<Rule> conditions;
        bool silent = false;
    };
    // One element of the form: its name, its "label" (the name when the
    // definition gives none), the 1-based column it takes its value from (0
    // for none), the row kind it belongs to ("" every kind) and its checks.
    struct Field {
        std::string id;
        std::string label;
        int column = 0;
        std::string rowKind;
        std::vector<Rule> rules;
    };
    // The elements of one format kubun, in definition order.
    struct Section {
        std::string formatKubun;
        std::vector<Field> fields;
    };

    // The layout of the form's definition for the style version, from the
    // bundle the operations use; nullopt when there is none or it cannot be read.
    static std::optional<QZIFormLayout> Load(const std::string& reportId, const std::string& styleVersion);

    const std::vector<Section>& Sections() const { return m_sections; }

    // What the cell at a 1-based column of a record (its fields in order) is:
    // the field that reads it, or that holds the first failing rule reading
    // it, and the rules reading it that the record fails. field is null
    // when no element of the record's format kubun and row kind reads it.
    struct Cell {
        const Field* field = nullptr;
        std::vector<const Rule*> failed;
    };
    Cell Explain(const std::vector<std::string>& record, int column) const;

    // The width of the characters a value may hold, as the checks reading it
    // say: full-width only ("multibyte"), half-width only (the digits of
    // "number", "decimal", "alnum", "alnum3", the ASCII of "alnum2"), or no
    // rule of width.
    enum class Width { Any, FullWidth, HalfWidth };
    // The width of each value of a record by 1-based column (index 0 unused),
    // from the checks of its format kubun and row kind that apply to it (the
    // silent conditions of a check switch it off); Any where they disagree.
    std::vector<Width> Widths(const std::vector<std::string>& record) const;

private:
    // The format kubun's section as the validation pass finds it: the first
    // whose id occurs in the record's first field; null for none.
    const Section* SectionOf(const std::vector<std::string>& record) const;
    // Whether the element takes part in a record of the row kind.
    bool TakesPart(const Field& field, const std::vector<std::string>& record) const;

    std::vector<Section> m_sections;
    // Detail statements: an element with a row kind takes part only in
    // records of that kind.
    bool m_rowKinds = false;
};
