#pragma once

#include <string>

#include "QZCValidItem.h"

// The character count (UTF-16 units) of the value: at most ("MAX") or
// exactly ("FIX") the given length.
class QZCValidLength : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;

private:
    int m_nLength = 0;
    std::string m_strType;
};
