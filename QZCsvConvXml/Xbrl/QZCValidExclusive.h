#pragma once

#include <map>
#include <string>

#include "QZCValidItem.h"

// Values that exclude one another: only the first line holding any of them
// passes, for the life of the validator.
class QZCValidExclusive : public QZCValidItem {
public:
    bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) override;
    bool DoCheck(const std::string& value) override;

private:
    std::map<std::string, bool> m_mapSeen;
};
