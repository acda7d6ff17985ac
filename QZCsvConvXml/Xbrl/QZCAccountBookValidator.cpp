#include "QZCAccountBookValidator.h"

#include "QZCDOMParser.h"
#include "QZCLog.h"
#include "QZCUtility.h"

bool QZCAccountBookValidator::MakeValidItems(QZCDOMParser& parser, const std::string& itemId)
{
    try {
        if (parser.MoveFirstChild() != 0) {
            return true;
        }
        do {
            if (parser.GetNodeName() == "valid") {
                QZCValidItem* item = QZCValidItem::CreateValidItem(parser, itemId);
                if (item == nullptr) {
                    parser.MoveParent();
                    return false;
                }
                m_vItems.emplace_back(item);
            }
        } while (parser.MoveNextSibling() == 0);
        parser.MoveParent();
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountBookValidator:: MakeValidItems", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCAccountBookValidator::DoCheck(const Line& line, int row)
{
    try {
        for (const auto& item : m_vItems) {
            if (!item->DoCheckLine(line, row)) {
                return false;
            }
        }
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountBookValidator:: DoCheck", QZCLog::kUnexpected);
        return false;
    }
}
