#pragma once

#include <memory>
#include <string>
#include <vector>

#include "QZCValidItem.h"

class QZCDOMParser;

// The ordered checks of one line type of the check definition.
class QZCAccountBookValidator {
public:
    using Line = std::vector<std::string>;

    QZCAccountBookValidator() = default;
    virtual ~QZCAccountBookValidator() = default;

    // Builds a validator from every "valid" child of the current "item".
    bool MakeValidItems(QZCDOMParser& parser, const std::string& itemId);
    // False when a check failed without "continue", or on an internal fault.
    bool DoCheck(const Line& line, int row);

private:
    std::vector<std::unique_ptr<QZCValidItem>> m_vItems;
};
