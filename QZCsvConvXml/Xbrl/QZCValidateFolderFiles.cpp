#include "QZCValidateFolderFiles.h"

#include <algorithm>

#include "QZCAccountFile.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"

namespace {

bool contains(const std::vector<std::string>& list, const std::string& value)
{
    return std::find(list.begin(), list.end(), value) != list.end();
}

}  // namespace

void QZCValidateFolderFiles::clear()
{
    m_nFirstFileMode = 0;
    m_bSS = m_bSR = m_bSE = false;
    m_vTypes.clear();
    m_vDuplicatedTypes.clear();
    m_bMixed = false;
}

void QZCValidateFolderFiles::PreCheck(const std::vector<std::string>& paths)
{
    clear();
    for (const std::string& path : paths) {
        const std::string name = QZCMacOSNative::getLastPathComponent(path.c_str(), true);
        std::string type;
        if (!getFileXBRLType(name, type)) {
            continue;
        }
        // A file without a type must be the folder's only matching file.
        if (m_nFirstFileMode == 1 || (m_nFirstFileMode == 2 && type == "-")) {
            m_bMixed = true;
            return;
        }
        if (m_nFirstFileMode == 0) {
            m_nFirstFileMode = type == "-" ? 1 : 2;
        }
        if (type == "-") {
            continue;
        }
        if (contains(m_vTypes, type)) {
            m_vDuplicatedTypes.push_back(type);
            continue;
        }
        m_vTypes.push_back(type);
        m_bSS = m_bSS || type == "SS";
        m_bSE = m_bSE || type == "SE";
        m_bSR = m_bSR || type == "SR";
    }
}

bool QZCValidateFolderFiles::DoCheck(QZCAccountFile& file)
{
    const std::string name = QZCMacOSNative::getLastPathComponent(file.GetCSVFileName().c_str(), true);
    std::string type;
    if (!getFileXBRLType(name, type)) {
        return rejectName("HQZ9930E");
    }
    if (m_bMixed) {
        QZCUtility::AddParamErrorInfoDefinition("HQZ9740E");
        return false;
    }
    if (type != "-" && contains(m_vDuplicatedTypes, type)) {
        QZCUtility::AddParamErrorInfoDefinition("HQZ9130E");
        return false;
    }
    // Statements of changes in equity, of members' equity and appropriation
    // of profit exclude one another.
    const bool equityKind = type == "SS" || type == "SE" || type == "SR";
    if (equityKind && int(m_bSS) + int(m_bSE) + int(m_bSR) >= 2) {
        QZCUtility::AddParamErrorInfoDefinition("HQZ8020E");
        return false;
    }
    if (!isValidateFileNameUsableChar(name)) {
        return rejectName("HQZ9060E");
    }
    if (!isValidateFileNameLen(name)) {
        return rejectName("HQZ9660E");
    }
    return true;
}
