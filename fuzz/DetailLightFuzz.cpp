// The light mode: a detail CSV text split without a definition.
#include "FuzzSupport.h"
#include "QZCDatCsvFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text = Bytes(data, size);
    ResetErrors();
    QZCDatCsvFile csv;
    try {
        if (csv.ParseSimply(text.c_str()) == 0 && QZCUtility::GetError() != "")
            std::abort();  // a clean split records no entry
    } catch (int) {
    }
    for (int64_t record = 0; record < csv.GetRecordCount(); ++record)
        csv.IsValidRecord(record);
    return 0;
}
