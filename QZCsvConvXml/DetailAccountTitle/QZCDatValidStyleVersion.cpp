#include "QZCDatValidStyleVersion.h"

#include "QZCMacOSNative.h"

void QZCDatValidStyleVersion::SetParam(const std::string& path)
{
    m_strPath = path;
}

QZCDatMessage_t QZCDatValidStyleVersion::_validate(const std::string& value)
{
    if (m_strPath.empty()) {
        ThrowParamError("QZCDatValidStyleVersion::_validate");
    }
    const char* path = m_strPath.c_str();
    if (!value.empty() && QZCMacOSNative::pathFileExists(path) && QZCMacOSNative::pathFileIsRead(path)) {
        return MSG_NONE;
    }
    return Fail("QZCDatValidStyleVersion::_validate", MSG_HQZ9250E);
}
