#include "QZCDatValidExistpath.h"

#include "QZCMacOSNative.h"

void QZCDatValidExistpath::SetParam(const std::string& kind)
{
    m_strKind = kind;
}

QZCDatMessage_t QZCDatValidExistpath::_validate(const std::string& value)
{
    const char* label = "QZCDatValidExistpath::_validate";
    const bool isFile = m_strKind == "file";
    if (!isFile && m_strKind != "dir1" && m_strKind != "dir2") {
        ThrowParamError(label);
    }
    if (value.empty()) {
        return Fail(label, MSG_HQZ9240E);
    }
    const char* path = value.c_str();
    if (isFile) {
        // An unreadable size comes back with all bits set, negative as a signed number.
        const bool usable = QZCMacOSNative::pathFileExists(path) && QZCMacOSNative::pathFileIsRead(path) &&
                            static_cast<int64_t>(QZCMacOSNative::getFileSize(path)) > 0;
        return usable ? MSG_NONE : Fail(label, MSG_HQZ9230E);
    }
    if (QZCMacOSNative::pathDirectoryExists(path, m_strKind == "dir2")) {
        return MSG_NONE;
    }
    return Fail(label, MSG_HQZ9240E);
}
