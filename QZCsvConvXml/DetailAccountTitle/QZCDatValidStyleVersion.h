#pragma once

#include "QZCDatValidItem.h"

// A style version is given and the definition file of that version is readable ("styleversion").
class QZCDatValidStyleVersion : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

    void SetParam(const std::string& path);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;

private:
    std::string m_strPath;
};
