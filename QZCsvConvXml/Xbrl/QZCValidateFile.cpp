#include "QZCValidateFile.h"

#include <cstring>
#include <memory>

#include "QZCAccountFile.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"

namespace {

// Characters that no file system of the service's clients accepts in a name.
constexpr const char kForbiddenChars[] = "\t\n\v\r\"*/:<>?\\|";
constexpr uint64_t kMaxNameLength = 125;

// The file name pattern, compiled once for the process.
const QZCRegex* fileNamePattern()
{
    static const std::unique_ptr<const QZCRegex> pattern(QZCRegex::builder(QZCValidateFile::kFileNamePattern));
    return pattern.get();
}

}  // namespace

QZCValidateFile::QZCValidateFile()
    : m_vXbrlTypes{"BS", "PL", "SC", "SS", "SE", "SR", "NT"},
      m_pFileNamePattern(fileNamePattern())
{
}

bool QZCValidateFile::rejectName(const char* code)
{
    QZCUtility::AddParamErrorInfoDefinition(code);
    QZC_LOG("QZCValidateFile::DoCheck", "財務諸表CSVファイルのチェックでエラーが検出されました。");
    return false;
}

bool QZCValidateFile::DoCheck(QZCAccountFile& file)
{
    const std::string name = QZCMacOSNative::getLastPathComponent(file.GetCSVFileName().c_str(), true);
    if (!isValidateCSVFileNameFormat(name)) {
        return rejectName("HQZ9930E");
    }
    if (!isValidateFileNameUsableChar(name)) {
        return rejectName("HQZ9060E");
    }
    if (!isValidateFileNameLen(name)) {
        return rejectName("HQZ9660E");
    }
    return true;
}

bool QZCValidateFile::isValidateCSVFileNameFormat(const std::string& name) const
{
    return QZCRegex::rgx(*m_pFileNamePattern, name);
}

bool QZCValidateFile::isValidateFileNameUsableChar(const std::string& name)
{
    // The forbidden characters are ASCII, so a byte search of the UTF-8 name
    // finds exactly the UTF-16 units.
    return name.find_first_of(kForbiddenChars, 0, std::strlen(kForbiddenChars)) == std::string::npos
           && QZCUtility::IsFylaAvailableString(name.c_str());
}

bool QZCValidateFile::isValidateFileNameLen(const std::string& name)
{
    return QZCMacOSNative::getCharacterLength(name.c_str()) <= kMaxNameLength;
}

bool QZCValidateFile::getFileXBRLType(const std::string& name, std::string& type) const
{
    std::vector<std::string> groups;
    if (!QZCRegex::rgx(*m_pFileNamePattern, name, groups)) {
        return false;
    }
    if (groups.size() < 2) {
        type = "-";
        return true;
    }
    // The first of the optional part, the type part and the rest that is
    // empty or a single word names the type.
    std::string candidate;
    for (size_t i = 1; i < groups.size() && i <= 3; ++i) {
        if (groups[i].empty() || groups[i].find('_') == std::string::npos) {
            candidate = groups[i];
            break;
        }
    }
    type = GetXbrlType(candidate);
    return true;
}

std::string QZCValidateFile::GetXbrlType(const std::string& candidate) const
{
    for (const std::string& type : m_vXbrlTypes) {
        if (candidate == type) {
            return type;
        }
    }
    return "-";
}
