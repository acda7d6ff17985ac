#pragma once

#include "QZCDatValidItem.h"

// A file name whose extension, in lower case, is one of a list such as ".csv .txt" ("extension").
class QZCDatValidExtension : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

    void SetParam(const std::string& list);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;

private:
    std::vector<std::string> m_vecExtensions;
};
