#include "QZCAccountBookListBuilder2.h"

#include <stdexcept>

#include "QZCFinancialStatementsCSV.h"
#include "QZCKamokuCodeListCSV.h"
#include "QZCLog.h"
#include "QZCUtility.h"

namespace {

constexpr int kRootLayer = 1;
constexpr int kMaxCheckedLayer = 5000;
// Line on which the title of the first statement stands.
constexpr int kFirstTitleRow = 5;

}  // namespace

bool QZCAccountBookListBuilder2::AnalyzeFinancialStatement(const QZCFinancialStatementsCSV& csv,
                                                           std::string& corporateName,
                                                           std::string& fiscalYearFrom,
                                                           std::string& fiscalYearTo)
{
    try {
        m_vBooks.clear();
        QZCAccountBook2 book;
        std::vector<QZCAccountItem2> pending;
        bool ok = true;
        int lastStartRow = 0;
        int row = 0;
        for (auto line = csv.GetCsvLineItelator(); line != csv.GetCsvLineEndItelator(); ++line) {
            ++row;
            const std::string& kind = line->at(0);
            if (kind == "B") {
                corporateName = line->at(1);
            } else if (kind == "C1") {
                fiscalYearFrom = line->at(1);
            } else if (kind == "C2") {
                fiscalYearTo = line->at(1);
            } else if (kind == "A") {
                if (!pending.empty()) {
                    ok = commitAccountItemList(book, pending) && ok;
                }
                book.InitMembers();
                pending.clear();
                book.SetCsvData(*line, row);
                lastStartRow = row;
            } else if (isColumnSBJ(*line)) {
                if (row != kFirstTitleRow && row != lastStartRow + 1) {
                    QZCUtility::AddCsvErrorInfo(row, 1, "HQZ9710E");
                    return false;
                }
                if (kind != book.GetBookType()) {
                    QZCUtility::AddCsvErrorInfo(row, 1, "HQZ8030E");
                    return false;
                }
            } else {
                QZCAccountItem2 item;
                if (!item.SetCsvData(*line, row)) {
                    return false;
                }
                pending.push_back(std::move(item));
            }
        }
        return commitAccountItemList(book, pending) && ok;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountBookListBuilder2::AnalyzeFinancialStatement", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCAccountBookListBuilder2::SetPropertyAfterLayered(const QZCKamokuCodeListCSV& codeList)
{
    try {
        bool ok = true;
        for (QZCAccountBook2& book : m_vBooks) {
            ok = book.SetDataWithProperty(codeList) && ok;
        }
        return ok;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountBookListBuilder2::SetPropertyAfterLayered", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCAccountBookListBuilder2::commitAccountItemList(QZCAccountBook2& book, std::vector<QZCAccountItem2>& items)
{
    QZCAccountItem2 root;
    root.SetLayerNo(kRootLayer);
    size_t position = 0;
    const bool layered = ConstructLayeredAccountItems(items, root, position);

    std::vector<QZCAccountItem2> topItems = root.ReleaseChildren2();
    const std::string& kind = book.GetBookTypeID();
    if (kind == "BS" || kind == "PL") {
        for (QZCAccountItem2& item : topItems) {
            item.noticeBookTypeID(kind);
        }
    }
    if (!IntegrateBookData(book, std::move(topItems))) {
        throw std::runtime_error("account book not stored");
    }
    return layered;
}

bool QZCAccountBookListBuilder2::ConstructLayeredAccountItems(std::vector<QZCAccountItem2>& items,
                                                              QZCAccountItem2& parent, size_t& position)
{
    bool ok = true;
    bool added = false;
    while (position < items.size()) {
        QZCAccountItem2& item = items[position];
        const int layer = item.GetLayerNo();
        if (layer > parent.GetLayerNo()) {
            if (layer >= 2 && layer <= kMaxCheckedLayer && layer != parent.GetLayerNo() + 1) {
                QZCUtility::AddCsvErrorInfo(item.GetRowNo(), 4, "HQZ8270E");
                ok = false;
            }
            QZCAccountItem2 child = std::move(item);
            ++position;
            ok = ConstructLayeredAccountItems(items, child, position) && ok;
            child.SetParentSbjId(parent.GetSubjectId());
            parent.SetChild(std::move(child), added);
        } else if (parent.GetLayerNo() == kRootLayer && layer <= kRootLayer) {
            parent.SetChild(std::move(item), added);
            ++position;
        } else {
            break;
        }
    }
    return ok;
}

bool QZCAccountBookListBuilder2::IntegrateBookData(QZCAccountBook2& book, std::vector<QZCAccountItem2> topItems)
{
    try {
        if (!book.SetAccountItems(std::move(topItems))) {
            return false;
        }
        // The book moves into the list with its items; the builder goes on
        // with a fresh one, as it would after emptying the old one.
        m_vBooks.push_back(std::move(book));
        book = QZCAccountBook2();
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCAccountBookListBuilder2::IntegrateBookData", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCAccountBookListBuilder2::isColumnSBJ(const Line& line)
{
    if (line.at(0).empty()) {
        return false;
    }
    return line.at(1).empty() && line.at(2).empty() && line.at(3).empty() && line.at(4).empty();
}
