// Account code lists: the input replaces the balance sheet's list of a
// scratch copy of the bundle, and the example statements are checked
// against it.
#include "FuzzSupport.h"
#include "QZICsvConvXML.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string kFolder = std::string(QZC_SOURCE_DIR) + "/examples/financial-statements";
    WriteFile(ScratchBundle() + "/Xbrl/V3.0/kamokuCodeList_BS.csv", Bytes(data, size));
    QZICsvConvXML().CsvCheckToXbrl2(kFolder.c_str(), "3.0");
    return 0;
}
