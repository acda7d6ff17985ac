#pragma once

#include "QZCDatValidItem.h"

// The path names an existing thing ("existpath"): kind "file" a readable, non-empty file, "dir1" a folder, "dir2" the folder that would hold the file.
class QZCDatValidExistpath : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

    void SetParam(const std::string& kind);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;

private:
    std::string m_strKind;
};
