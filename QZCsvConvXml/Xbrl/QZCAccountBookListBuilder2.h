#pragma once

#include <string>
#include <vector>

#include "QZCAccountBook2.h"
#include "QZCAccountBookListBuilder.h"
#include "QZCAccountItem2.h"

class QZCKamokuCodeListCSV;

// Builds the account books of a file: one book per "A" line, its items
// layered into a tree by their layer numbers.
class QZCAccountBookListBuilder2 : public QZCAccountBookListBuilder {
public:
    using Line = std::vector<std::string>;

    ~QZCAccountBookListBuilder2() override = default;

    bool AnalyzeFinancialStatement(const QZCFinancialStatementsCSV& csv, std::string& corporateName,
                                   std::string& fiscalYearFrom, std::string& fiscalYearTo) override;
    const std::vector<QZCAccountBook2>& GetAccountBook2() const { return m_vBooks; }
    // Hands the books over without copying their items.
    std::vector<QZCAccountBook2> ReleaseAccountBook2() { return std::move(m_vBooks); }
    // Element names and code list attributes of every book.
    bool SetPropertyAfterLayered(const QZCKamokuCodeListCSV& codeList);

    // Layers the pending items into the book and appends the book; false
    // on a layer jump ("HQZ8270E").
    bool commitAccountItemList(QZCAccountBook2& book, std::vector<QZCAccountItem2>& items);
    // Moves the items from position on that belong below parent into it.
    bool ConstructLayeredAccountItems(std::vector<QZCAccountItem2>& items, QZCAccountItem2& parent,
                                      size_t& position);
    virtual bool IntegrateBookData(QZCAccountBook2& book, std::vector<QZCAccountItem2> topItems);
    // A statement title line: a first column and columns 2 to 5 empty.
    static bool isColumnSBJ(const Line& line);

private:
    std::vector<QZCAccountBook2> m_vBooks;
};
