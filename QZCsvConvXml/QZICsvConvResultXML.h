#pragma once

#include "QZICsvConvExport.h"

#include <cstdint>
#include <string>

// Conformity of a detail statement or appended table: whether it can be
// converted.
enum QZIConformity : int64_t {
    QZIConformityBlocked = 0,     // a blocking error, or the check could not run
    QZIConformityClean = 1,       // passed every check
    QZIConformityWithErrors = 2,  // errors, none of them blocking
};

// Result of a detail-statement check or a CSV write as the host receives it.
class QZC_EXPORT QZICsvConvResultXML {
public:
    std::string Result;
    std::string DetailErrorInfo;
    // A QZIConformity value.
    int64_t Conformity = QZIConformityBlocked;

    // Empty strings and a conformity of 0.
    void initialize();
};
