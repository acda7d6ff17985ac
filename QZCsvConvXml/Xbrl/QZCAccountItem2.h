#pragma once

#include <memory>
#include <string>
#include <vector>

#include "QZCAccountItem.h"
#include "QZCRegex.h"

class QZCKamokuCodeListCSV;

// An account item of the check, holding its child items as a tree.
class QZCAccountItem2 : public QZCAccountItem {
public:
    // Account code of a filer's own account: a standard code, "-", suffix.
    static constexpr const char* kOriginalCodePattern = "^([^\\-]+)?-[0-9a-zA-Z\\-]+$";
    // The pattern compiled once for the process: compiling costs far more
    // than matching a code.
    static const std::shared_ptr<const QZCRegex>& originalCodePattern();

    QZCAccountItem2() = default;
    ~QZCAccountItem2() override = default;
    QZCAccountItem2(const QZCAccountItem2&) = default;
    QZCAccountItem2(QZCAccountItem2&&) noexcept = default;
    QZCAccountItem2& operator=(const QZCAccountItem2&) = default;
    QZCAccountItem2& operator=(QZCAccountItem2&&) noexcept = default;

    void InitializeMember() override;
    using QZCAccountItem::SetChild;
    // Appends the item (moved in by the caller) and sets added.
    virtual void SetChild(QZCAccountItem2 item, bool& added);
    virtual std::vector<QZCAccountItem2> GetChildrenClones2() const { return m_vChildren2; }
    std::vector<QZCAccountItem2>::const_iterator GetChildrenIterator2() const { return m_vChildren2.begin(); }
    std::vector<QZCAccountItem2>::const_iterator GetChildrenEndIterator2() const { return m_vChildren2.end(); }
    // Hands the children over without copying their subtrees.
    std::vector<QZCAccountItem2> ReleaseChildren2() { return std::move(m_vChildren2); }

    void setRegex(std::shared_ptr<const QZCRegex> regex) { m_pRegex = std::move(regex); }
    // Takes tuple, original-account and required-member attributes from the
    // code list for this item and its descendants; "HQZ9700E" for an unknown
    // account code.
    bool SetAttrFromKamokuListProperty(const std::string& kindCode, const QZCKamokuCodeListCSV& codeList);
    // The standard code in front of the "-" of an original account code.
    bool getKamokuCode(const std::string& code, std::string& prefix) const;
    // Element names of balance sheet and income statement items carry the
    // kind code in front of the account code.
    void noticeBookTypeID(const std::string& kindCode);

private:
    std::vector<QZCAccountItem2> m_vChildren2;
    std::shared_ptr<const QZCRegex> m_pRegex;
};
