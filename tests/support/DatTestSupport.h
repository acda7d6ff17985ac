#pragma once

#include <string>

#include "QZCDatCsvFile.h"
#include "QZCDatValidItem.h"
#include "QZCUtility.h"

// Empties the error list and the record count, so that entries read
// "LLLL-CCCCC-CODE" with four-digit lines.
inline void ResetErrors()
{
    QZCUtility::ClearErrorInfo();
    g_nRecordCount = 0;
}

// Runs the check of a type keyword over one value as record 1, column 1.
// Returns "" when the value passes, the code of a single error entry
// ("0001-00001-CODE"), or else the whole joined error list.
inline std::string CheckValue(const char* type, const std::string& value, const char* param = "",
                              const char* min = "", const char* max = "", QZCDatMessage_t message = MSG_NONE)
{
    ResetErrors();
    auto item = QZCDatValidItem::CreateItem(0, type, param, min, max, message);
    if (!item) {
        return "not created";
    }
    item->Validate(value, 1, 1);
    const std::string errors = QZCUtility::GetError();
    const std::string prefix = "0001-00001-";
    return errors.size() == prefix.size() + 8 && errors.compare(0, prefix.size(), prefix) == 0
               ? errors.substr(prefix.size())
               : errors;
}

// Records of a CSV text, split without any definition.
inline void LoadCsv(QZCDatCsvFile& csv, const char* text)
{
    csv.Clear();
    csv.ParseSimply(text);
}
