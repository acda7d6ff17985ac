#pragma once

#include <functional>
#include <string>
#include <vector>

#include "QZICsvConvXML.h"
#include "TestSupport.h"

// One operation of the library on fixed inputs; its answer is every field of
// the result in one text (with the report or the written file where there is one).
struct MixedOperation {
    std::string name;
    std::function<std::string()> run;
};

// Every kind of operation, through library, on the examples: the financial statements folders,
// every detail example through each of the three detail operations and the
// report (so files meet the wrong operation too), and writes into dir: clean
// data over an earlier file, data without a Shift_JIS form, a folder that
// does not exist. The answers do not depend on the order they run in.
std::vector<MixedOperation> MixedOperations(const TempDir& dir, QZICsvConvXML& library);
