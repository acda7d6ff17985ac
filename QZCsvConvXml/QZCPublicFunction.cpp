#include "QZCPublicFunction.h"

#include <vector>

#include "QZCMacOSNative.h"
#include "QZCUtility.h"

namespace {

bool equalsIgnoringAsciiCase(const std::string& a, const std::string& b)
{
    return QZCUtility::AsciiLower(a) == QZCUtility::AsciiLower(b);
}

// Splits at every CR and every LF, trims each line and drops empty ones.
std::vector<std::string> settingsLines(const std::string& text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find_first_of("\r\n", start);
        if (end == std::string::npos)
            end = text.size();
        std::string line = QZCMacOSNative::stringByTrimming(text.substr(start, end - start));
        if (!line.empty())
            lines.push_back(std::move(line));
        start = end + 1;
    }
    return lines;
}

}  // namespace

std::string QZCPublicFunction::SpecialEncodingWork(const char* bytes, size_t length)
{
    std::string escaped;
    if (!bytes)
        return escaped;
    escaped.reserve(length);
    for (size_t i = 0; i < length; ++i) {
        switch (bytes[i]) {
        case '"': escaped += "&quot;"; break;
        case '&': escaped += "&amp;"; break;
        case '\'': escaped += "&apos;"; break;
        case '<': escaped += "&lt;"; break;
        case '>': escaped += "&gt;"; break;
        default: escaped += bytes[i]; break;
        }
    }
    return escaped;
}

std::string QZCPublicFunction::SpecialEncoding(const std::string& text)
{
    return SpecialEncodingWork(text.data(), text.size());
}

std::string QZCPublicFunction::Now(const char* datePattern, const char* timePattern)
{
    return QZCMacOSNative::dateTimeNow(datePattern, timePattern);
}

std::string QZCPublicFunction::StringTrim(const std::string& text)
{
    return QZCMacOSNative::stringByTrimming(text);
}

std::string QZCPublicFunction::CharacterTrim(const char* text, bool utf8)
{
    return text ? QZCMacOSNative::characterByTrimming(text, utf8) : std::string();
}

std::string QZCPublicFunction::GetInifileString(const std::string& folder, const char* fileName,
                                                const char* section, const char* key)
{
    if (!fileName || !section || !key || !*section || !*key)
        return "";
    std::string path = QZCMacOSNative::appendFilePath(folder.c_str(), fileName);
    if (!QZCMacOSNative::pathFileIsRead(path.c_str()))
        return "";
    std::string text = StringTrim(QZCMacOSNative::readSJISFile(path.c_str()));
    if (text.empty())
        return "";

    std::vector<std::string> lines = settingsLines(text);
    std::string header = std::string("[") + section + "]";
    std::string wanted = key;
    size_t i = 0;
    while (i < lines.size() && !equalsIgnoringAsciiCase(lines[i], header))
        ++i;
    for (++i; i < lines.size(); ++i) {
        const std::string& line = lines[i];
        if (line[0] == ';' || line[0] == '=')
            continue;
        if (line[0] == '[')
            return "";
        size_t equals = line.find('=', wanted.size());
        if (equals == std::string::npos)
            continue;
        if (equalsIgnoringAsciiCase(StringTrim(line.substr(0, equals)), wanted))
            return StringTrim(line.substr(equals + 1));
    }
    return "";
}

std::string QZCPublicFunction::LoadResoucePath(uint16_t resourceNumber)
{
    if (resourceNumber != QZC_RESOURCE_XBRL_V30)
        return "";
    return QZCMacOSNative::appendFilePath(GetBundlePath("V3.0").c_str(), "QZCAccountBookCheckDefinition2.xml");
}

std::string QZCPublicFunction::GetBundlePath(const char* subFolder)
{
    std::string bundle = QZCMacOSNative::getBundlePath();
    if (bundle.empty())
        return "";  // the caller's folder check reports the missing resources
    std::string xbrl = QZCMacOSNative::appendFilePath(bundle.c_str(), "Xbrl");
    if (subFolder && *subFolder)
        return QZCMacOSNative::appendFilePath(xbrl.c_str(), subFolder);
    return xbrl;
}

std::string QZCPublicFunction::GetBundlePath(uint16_t resourceNumber)
{
    return GetBundlePath(resourceNumber == QZC_RESOURCE_XBRL_V30 ? "V3.0" : nullptr);
}
