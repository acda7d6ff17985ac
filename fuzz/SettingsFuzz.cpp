// The settings file reader on a written file.
#include "FuzzSupport.h"
#include "QZCPublicFunction.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string folder = ScratchDir().string();
    WriteFile(ScratchDir() / "QZFylaCSVConv.ini", Bytes(data, size));
    QZCPublicFunction::GetInifileString(folder, "QZFylaCSVConv.ini", "Report", "version");
    return 0;
}
