#pragma once

#include <string>
#include <vector>

// Name space URI of the account items of the e-filing taxonomy.
inline constexpr const char* QZC_XBRL_NAMESPACE_URI = "http://www.fyla.go.jp/xbrl/taxonomy/jpfr-fyla/2026-04-01";

// Item types of column 3 of an account item line.
inline constexpr const char* TYPE_MONETARY = "1";
inline constexpr const char* TYPE_STRING = "2";
inline constexpr const char* TYPE_TITLE = "T";

// One account item line of a statement: name, value, item type, layer and
// account code, with the attributes that the account code list gives it.
class QZCAccountItem {
public:
    using Line = std::vector<std::string>;

    QZCAccountItem() = default;
    virtual ~QZCAccountItem() = default;
    QZCAccountItem(const QZCAccountItem&) = default;
    QZCAccountItem(QZCAccountItem&&) noexcept = default;
    QZCAccountItem& operator=(const QZCAccountItem&) = default;
    QZCAccountItem& operator=(QZCAccountItem&&) noexcept = default;

    virtual void InitializeMember();
    // Takes columns 1 to 5 of an account item line; false (with the
    // unexpected-error entry) when the line has fewer than five columns.
    virtual bool SetCsvData(const Line& line, int rowNo);
    virtual void SetChild(const QZCAccountItem& item);

    int GetRowNo() const { return m_nRowNo; }
    int GetLayerNo() const { return m_nLayerNo; }
    void SetLayerNo(int layerNo) { m_nLayerNo = layerNo; }
    const std::string& GetSubjectId() const { return m_strSubjectId; }
    const std::string& GetSubjectName() const { return m_strSubjectName; }
    const std::string& GetParentSbjId() const { return m_strParentSbjId; }
    void SetParentSbjId(const std::string& id) { m_strParentSbjId = id; }
    // The value; an empty value of a numeric item reads "0".
    std::string GetContent() const;
    const std::string& GetRawContent() const { return m_strContent; }
    const std::string& GetElementName() const { return m_strElementName; }
    const std::string& GetItemType() const { return m_strItemType; }
    const std::string& GetNameSpace() const { return m_strNameSpace; }
    const std::string& GetLayerPath() const { return m_strLayerPath; }
    void SetLayerPath(const std::string& parentPath);
    bool IsAbstract() const { return m_bAbstract; }
    bool IsTuple() const { return m_bTuple; }
    bool IsInnerTupleItem() const { return m_bInnerTuple; }
    void SetInnerTuple(bool inner) { m_bInnerTuple = inner; }
    std::vector<QZCAccountItem> GetChildrenClones() const { return m_vChildren; }
    bool IsOriginalSubject() const { return m_bOriginalSubject; }
    const std::string& GetContextId() const { return m_strContextId; }
    void SetContextId(const std::string& id) { m_strContextId = id; }
    const std::string& GetRequiredSubject() const { return m_strRequiredSubject; }

protected:
    int m_nRowNo = 0;
    int m_nLayerNo = 0;
    std::string m_strSubjectId;
    std::string m_strSubjectName;
    std::string m_strParentSbjId;
    std::string m_strContent;
    std::string m_strElementName;
    std::string m_strItemType;
    std::string m_strNameSpace;
    std::string m_strLayerPath;
    bool m_bAbstract = false;
    bool m_bTuple = false;
    bool m_bInnerTuple = false;
    std::vector<QZCAccountItem> m_vChildren;
    bool m_bOriginalSubject = false;
    std::string m_strContextId;
    std::string m_strRequiredSubject;
};
