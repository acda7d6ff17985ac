// A whole financial statements folder through the interface. The input holds
// up to five files separated by the byte 0x1E, which no Shift_JIS text holds.
#include "FuzzSupport.h"
#include "QZICsvConvXML.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const char* const kNames[] = {"HOT010_3.0_BS.csv", "HOT010_3.0_PL.csv", "HOT010_3.0_SS.csv",
                                         "HOT010_3.0_NT.csv", "HOT010_3.0_SC.csv"};
    const std::filesystem::path folder = ScratchDir() / "statements";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);

    const std::string input = Bytes(data, size);
    size_t begin = 0;
    for (const char* name : kNames) {
        const size_t end = std::min(input.find('\x1E', begin), input.size());
        WriteFile(folder / name, input.substr(begin, end - begin));
        if (end == input.size())
            break;
        begin = end + 1;
    }
    const QZICsvConvXbrlResultXML result = QZICsvConvXML().CsvCheckToXbrl2(folder.c_str(), "3.0");
    (void)result;
    return 0;
}
