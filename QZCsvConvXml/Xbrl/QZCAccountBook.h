#pragma once

#include <map>
#include <string>
#include <vector>

#include "QZCAccountItem.h"

// One statement of a financial statements file, opened by its "A" line.
class QZCAccountBook {
public:
    using Line = std::vector<std::string>;

    QZCAccountBook() = default;
    virtual ~QZCAccountBook() = default;
    QZCAccountBook(const QZCAccountBook&) = default;
    QZCAccountBook(QZCAccountBook&&) noexcept = default;
    QZCAccountBook& operator=(const QZCAccountBook&) = default;
    QZCAccountBook& operator=(QZCAccountBook&&) noexcept = default;

    virtual void InitMembers();
    void SetCsvData(const Line& line, int rowNo);
    // Stores the kind code and, for a known kind, its statement name.
    void SetBookType(const std::string& code);

    int GetRowNo() const { return m_nRowNo; }
    const std::string& GetBookType() const { return m_strBookType; }
    const std::string& GetBookTypeID() const { return m_strBookTypeID; }
    const std::string& GetElementName() const { return m_strElementName; }

protected:
    // Fills the table from statement name to XBRL element name.
    void initBookType2Prefix();

    int m_nRowNo = 0;
    std::string m_strBookType;
    std::string m_strBookTypeID;
    std::string m_strBookTypeName;
    std::string m_strElementName;
    std::vector<QZCAccountItem> m_vAccountItems;
    std::map<std::string, std::string> m_mapBookType2Prefix;
};
