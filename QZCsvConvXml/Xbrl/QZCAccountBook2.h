#pragma once

#include <vector>

#include "QZCAccountBook.h"
#include "QZCAccountItem2.h"

class QZCKamokuCodeListCSV;

// A statement of the check with its tree of account items.
class QZCAccountBook2 : public QZCAccountBook {
public:
    QZCAccountBook2();
    ~QZCAccountBook2() override = default;
    QZCAccountBook2(const QZCAccountBook2&) = default;
    QZCAccountBook2(QZCAccountBook2&&) noexcept = default;
    QZCAccountBook2& operator=(const QZCAccountBook2&) = default;
    QZCAccountBook2& operator=(QZCAccountBook2&&) noexcept = default;

    void InitMembers() override;
    // Looks the XBRL element name up by the statement name.
    bool SetElementName();
    // Element name of the book and code list attributes of every item.
    bool SetDataWithProperty(const QZCKamokuCodeListCSV& codeList);
    bool SetAccountItems(std::vector<QZCAccountItem2> items);
    bool SetLayerPathToAccountItems();

    std::vector<QZCAccountItem2>::const_iterator GetAccountItemIterator2() const { return m_vAccountItems2.begin(); }
    std::vector<QZCAccountItem2>::const_iterator GetAccountItemEndIterator2() const { return m_vAccountItems2.end(); }

private:
    std::vector<QZCAccountItem2> m_vAccountItems2;
};
