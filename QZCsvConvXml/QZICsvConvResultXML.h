#pragma once

#include "QZICsvConvExport.h"

#include <cstdint>
#include <string>

// Result of a detail-statement check or a CSV write as the host receives it.
class QZC_EXPORT QZICsvConvResultXML {
public:
    std::string Result;
    std::string DetailErrorInfo;
    // 0 cannot be converted, 1 passed every check, 2 convertible with errors.
    int64_t Conformity = 0;

    // Empty strings and a conformity of 0.
    void initialize();
};
