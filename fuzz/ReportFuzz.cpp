// Report XML generation for every form of the bundle (the first byte picks
// it): the rest, a CSV file, checked and, when it passes, written as the
// form's report.
#include "FuzzSupport.h"
#include "QZICsvConvXML.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ScratchBundle();  // the operations find the bundle through its variable
    const std::string input = Bytes(data, size);
    const FuzzForm& form = FormFor(input);
    const std::string path = (ScratchDir() / (form.reportId + "_" + form.version + ".csv")).string();
    WriteFile(path, input.substr(input.empty() ? 0 : 1));
    std::string report;
    QZICsvConvXML().CsvReportToXml(path.c_str(), form.version.c_str(), report);
    std::filesystem::remove(path);
    return 0;
}
