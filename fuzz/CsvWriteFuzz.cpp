// CsvWrite's data, taken as UTF-8 text, written through the interface class
// over an existing file and into a new one. Either the result is "S_OK" and
// the file holds the Shift_JIS form of the text, or it is "E_FAIL", the
// existing file is unchanged, no new file appears and no temporary file is
// left behind.
#include "FuzzSupport.h"
#include "QZCDOMParser.h"
#include "QZCMacOSNative.h"
#include "QZICsvConvXML.h"

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

const char kPrevious[] = "HOI010,0,previous\r\n";

void CheckWrite(const std::filesystem::path& target, const std::string& text, bool existed)
{
    const std::optional<std::string> expected = QZCMacOSNative::utf8ToSjis(text);
    const QZICsvConvResultXML result = QZICsvConvXML().CsvWrite(target.c_str(), text.c_str());
    Require(result.Conformity == 0);
    if (result.Result == "S_OK") {
        Require(expected && result.DetailErrorInfo.empty() && ReadFile(target) == *expected);
    } else {
        // Only data without a Shift_JIS form may be refused here.
        Require(result.Result == "E_FAIL" && !expected && result.DetailErrorInfo == "0000-00000-HQZ9560E");
        Require(existed ? ReadFile(target) == kPrevious : !std::filesystem::exists(target));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // A parser kept for the whole run keeps the XML platform up, so each
    // operation does not set it up and tear it down again (most of the time
    // of a write otherwise).
    static QZCDOMParser* platform = [] {
        auto* parser = new QZCDOMParser;
        if (!parser->Initialize())
            std::abort();
        return parser;
    }();
    (void)platform;
    // The interface takes a NUL-terminated text: what follows a NUL is not data.
    const std::string bytes = Bytes(data, size);
    const std::string text = bytes.substr(0, bytes.find('\0'));

    const std::filesystem::path& dir = ScratchDir();
    const std::filesystem::path existing = dir / "existing.csv";
    const std::filesystem::path fresh = dir / "fresh.csv";
    WriteFile(existing, kPrevious);
    std::filesystem::remove(fresh);

    CheckWrite(existing, text, true);
    CheckWrite(fresh, text, false);
    std::filesystem::remove(fresh);
    Require(std::distance(std::filesystem::directory_iterator(dir), std::filesystem::directory_iterator()) == 1);
    return 0;
}
