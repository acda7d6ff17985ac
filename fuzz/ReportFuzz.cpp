// Report XML generation for every form of the bundle (the first byte picks
// it): the rest, a CSV file, checked and, when it passes, written as the
// form's report.
#include "FuzzSupport.h"
#include "QZICsvConvXML.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto [form, path] = WriteFormFile(data, size);
    std::string report;
    QZICsvConvXML().CsvReportToXml(path.c_str(), form.version.c_str(), report);
    std::filesystem::remove(path);
    return 0;
}
