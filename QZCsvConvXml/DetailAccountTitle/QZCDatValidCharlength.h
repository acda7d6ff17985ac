#pragma once

#include "QZCDatValidItem.h"

// At most max characters, counted in UTF-16 code units ("charlength").
class QZCDatValidCharlength : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

    void SetParam(const std::string& max);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;
    int64_t _strcount(const std::string& value) const;

private:
    std::string m_strMax;
};
