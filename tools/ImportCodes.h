#pragma once

#include <string>

#include "MessageCatalog.h"

// The public account list of a statement (the 23-column sheet of the
// e-filing service, saved as CSV) turned into the bundle's account code list
// of one statement kind, so that statements written with the public codes
// can be checked.
struct ImportedCodeList {
    std::string text;     // the code list, UTF-8, one row a line
    size_t rows = 0;      // rows written
    std::string refusal;  // why the list was refused; empty when it was not
};

// The code list of statement kind `kind` (BS, PL, ...) made from the bytes
// of a public account list, saved in Shift_JIS or UTF-8.
ImportedCodeList ConvertPublicAccountList(const std::string& kind, const std::string& bytes, Language language);

// `qzcsvconv import-codes KIND PUBLIC_LIST OUT`: writes the code list to OUT
// in Shift_JIS, whole or not at all; reports on standard output (one JSON
// object with `json`). Returns the exit status: 0 written, 1 refused or not
// written, 2 an unknown kind.
int ImportCodes(const std::string& kind, const std::string& publicList, const std::string& output, bool json,
                Language language);
