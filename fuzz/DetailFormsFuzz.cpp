// Every detail statement and appended table of the bundle in full mode
// through the interface: the first byte picks the form, the rest is the CSV
// file, named as that form's files are.
#include "FuzzSupport.h"
#include "QZICsvConvXML.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto [form, path] = WriteFormFile(data, size);
    QZICsvConvXML operations;
    if (form.appended)
        operations.CsvCheckToAppendedTable(path.c_str(), form.version.c_str());
    else
        operations.CsvCheckToDetailAccountTitle2(path.c_str(), form.version.c_str());
    std::filesystem::remove(path);
    return 0;
}
