// The argument strings of the operations: a file name (the rule of form
// names and versions), a style version and a folder name, separated by the
// byte 0x1E. The names stay inside the scratch folder (a "/" becomes "_"),
// and name a file there that holds a valid detail statement.
#include "FuzzSupport.h"
#include "QZICsvConvXML.h"
#include "QZIFormLayout.h"

namespace {

std::string Part(const std::string& input, size_t index)
{
    size_t begin = 0;
    for (size_t i = 0; i < index && begin <= input.size(); ++i) {
        const size_t end = input.find('\x1E', begin);
        begin = end == std::string::npos ? input.size() + 1 : end + 1;
    }
    if (begin > input.size())
        return "";
    return input.substr(begin, input.find('\x1E', begin) - begin);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string kCsv = "HOI010,0,北斗中央銀行,本店営業部,1,普通,1234567,1000000,\r\n";
    ScratchBundle();  // the operations find the bundle through its variable
    const std::string input = Bytes(data, size);
    std::string name = Part(input, 0);
    name = name.substr(0, name.find('\0'));
    std::replace(name.begin(), name.end(), '/', '_');
    const std::string version = Part(input, 1);
    std::string folderName = Part(input, 2);
    folderName = folderName.substr(0, folderName.find('\0'));
    std::replace(folderName.begin(), folderName.end(), '/', '_');

    const std::filesystem::path folder = ScratchDir() / "arguments";
    std::filesystem::create_directories(folder);
    std::error_code ignored;
    const bool named = !name.empty() && name != "." && name != ".." && name.size() < 200;
    const std::string path = (folder / name).string();
    if (named)
        WriteFile(path, kCsv);
    QZIFormLayout::Recognize(path);
    QZICsvConvXML operations;
    operations.CsvCheckToDetailAccountTitle(path.c_str(), version.c_str());
    operations.CsvCheckToDetailAccountTitle2(path.c_str(), version.c_str());
    operations.CsvCheckToAppendedTable(path.c_str(), version.c_str());
    operations.CsvCheckToXbrl2((folder / folderName).c_str(), version.c_str());
    if (named)
        std::filesystem::remove(path, ignored);
    return 0;
}
