#pragma once

#include "QZCDatValidItem.h"

// One of a list of words, compared exactly ("contain").
class QZCDatValidContain : public QZCDatValidItem {
public:
    using QZCDatValidItem::QZCDatValidItem;

    void SetParam(const std::string& list);

protected:
    QZCDatMessage_t _validate(const std::string& value) override;

private:
    std::vector<std::string> m_vecWords;
};
