#pragma once

#include <functional>
#include <string>
#include <vector>

class QZCDOMParser;

// One check of one column of a statements line, built from a "valid"
// element of the check definition. A failed check adds one error entry at
// the line's row and the definition's column and answers the element's
// "continue" flag.
class QZCValidItem {
public:
    using Line = std::vector<std::string>;

    QZCValidItem() = default;
    virtual ~QZCValidItem() = default;
    QZCValidItem(const QZCValidItem&) = delete;
    QZCValidItem& operator=(const QZCValidItem&) = delete;

    // Checks the value of the column; throws std::out_of_range when the
    // line is shorter.
    virtual bool DoCheckLine(const Line& line, int row);
    virtual bool DoCheck(const std::string& value);
    virtual bool SetDefinition(QZCDOMParser& parser, const std::string& itemId) = 0;

    void SetTargetRow(int row) { m_nTargetRow = row; }
    int GetTargetColumnIdx() const { return m_nColumnIdx; }
    bool SetCommonInfo(QZCDOMParser& parser, const std::string& itemId);

    // A new validator of the kind named by the current "valid" element, or
    // null for an unknown kind or an unusable definition.
    static QZCValidItem* CreateValidItem(QZCDOMParser& parser, const std::string& itemId);

    // A number written at the start of a text: its leading digits, 0 when
    // it does not start with a digit.
    static int LeadingInt(const std::string& text);

protected:
    using ContentReader = std::function<void(QZCDOMParser&)>;

    // SetCommonInfo, then the reader on the first child, which must be a
    // "content" element (or on every "content" child with allContents).
    bool defineWith(QZCDOMParser& parser, const std::string& itemId, const char* label, bool allContents,
                    const ContentReader& reader);
    // An unusable parameter of the definition: the unexpected-error entry
    // and the log line; always false.
    static bool definitionFault(const char* label);
    // Result of a check: true when passed; otherwise adds the entry, logs
    // the text and answers the continue flag.
    bool judge(bool passed, const char* label, const char* text);
    void addEntry(const char* line) const;

    std::string m_strItemId;
    std::string m_strColumn;
    std::string m_strErrorMsg;
    int m_nColumnIdx = 0;
    int m_nTargetRow = 0;
    bool m_bContinue = false;
    bool m_bOutputRow = false;
};
