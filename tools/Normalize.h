#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Explain.h"
#include "QZIFormLayout.h"

// Repairs what a person cannot see as wrong in a detail-statement or
// appended-table CSV file: characters the service refuses or that have no
// Shift_JIS form are replaced by an accepted equivalent where one exists,
// and, where the form is known, each value is brought to the width its
// column asks for. A character its column accepts is never changed, and the
// bytes of the file around what changes are kept as they are.

// The form whose columns say which values are full-width text and which
// half-width numbers.
struct NormalizeForm {
    QZIFormLayout::Form form;
    QZIFormLayout layout;
};

// A value changed, before and after.
struct CellChange {
    size_t line = 0;
    size_t column = 0;
    std::optional<std::string> field;
    std::string before;
    std::string after;
};

// A character (with the marks that belong to it) left as it was.
struct Leftover {
    enum class Reason { Refused, NoShiftJis, FullWidthOnly, HalfWidthOnly };
    size_t line = 0;
    size_t column = 0;
    std::optional<std::string> field;
    std::string text;
    Reason reason = Reason::Refused;
};

struct Normalization {
    // "Shift_JIS", "UTF-8" or "UTF-8 with byte order mark"; empty for bytes
    // that are neither, which are not read.
    std::string encoding;
    // The file in Shift_JIS; nullopt when it is not read or a character
    // without a Shift_JIS form is left.
    std::optional<std::string> output;
    std::vector<CellChange> changes;
    std::vector<Leftover> left;
};

// Normalizes the bytes of a CSV file; without a form only the characters
// themselves are repaired.
Normalization NormalizeCsv(const std::string& bytes, const NormalizeForm* form, bool foldAccents, Language language);

struct NormalizeOptions {
    std::string input;
    std::string output;
    bool inPlace = false;
    // --for: the form as a file name of it, or report id and style version
    // (HOI010_4.0); empty to take it from the input's name.
    std::string form;
    bool foldAccents = false;
    Language language = Language::Japanese;
};

// `qzcsvconv normalize IN OUT`: writes the normalized file (whole or not at
// all) and checks it with the form's operation. The answer holds the
// changes, what is left and the check's result and entries; its verdict is
// clean when nothing is left and the output checks clean. Throws UsageError
// for options that do not go together or a form that does not exist.
Json runNormalize(const NormalizeOptions& options);

// The answer for people.
void printNormalizeAnswer(std::ostream& out, const Json& answer, Language language);

// Runs normalize and prints its answer (one JSON object with json); returns
// the exit status.
int Normalize(NormalizeOptions options, bool json, Language language);
