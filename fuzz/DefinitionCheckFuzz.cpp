// A fuzzed validation definition driving a whole check: the input replaces
// the definition of HOI010 4.0 in a scratch copy of the bundle, and the
// example file of that form is checked and written as a report with it.
#include "FuzzSupport.h"
#include "QZICsvConvXML.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string kCsv = std::string(QZC_SOURCE_DIR) + "/examples/detail/HOI010_4.0_預貯金等.csv";
    WriteFile(ScratchBundle() + "/AccountTitle/HOI010_4.0_vld.xml", Bytes(data, size));
    QZICsvConvXML operations;
    operations.CsvCheckToDetailAccountTitle2(kCsv.c_str(), "4.0");
    std::string report;
    operations.CsvReportToXml(kCsv.c_str(), "4.0", report);
    return 0;
}
