#pragma once

#include <string>

#include "QZCValidItem.h"

// Every character of the value belongs to one of the enabled classes.
class QZCValidCherType : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;

private:
    bool m_bAlphabet = false;
    bool m_bNumber = false;
    bool m_bUnderScore = false;
    bool m_bHyphen = false;
    bool m_bZenkaku = false;
};
