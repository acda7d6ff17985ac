#pragma once

#include <memory>
#include <string>
#include <vector>

#include "QZCUtility.h"

class QZCDatCsvFile;

// Base of every check that the detail conversion makes on one value, a field
// of a CSV record or an argument of a call. It knows the column it reads, the
// message it reports and the outer conditions (checks on other columns of the
// same record) that decide whether it applies.
class QZCDatValidItem {
public:
    QZCDatValidItem(long column, QZCDatMessage_t message);
    virtual ~QZCDatValidItem();
    QZCDatValidItem(const QZCDatValidItem&) = delete;
    QZCDatValidItem& operator=(const QZCDatValidItem&) = delete;

    // Builds the check of a type keyword; null (and a log line) for a null
    // parameter or an unknown keyword. The caller owns the result.
    static std::unique_ptr<QZCDatValidItem> CreateItem(long column, const char* type, const char* value,
                                                       const char* min, const char* max,
                                                       QZCDatMessage_t message);
    // Row of DatMsgTable whose code equals code; MSG_NONE for none.
    static QZCDatMessage_t GetMessageNumber(const std::string& code);

    void AddOuterItem(std::unique_ptr<QZCDatValidItem> outer);

    virtual int ValidateCsv(QZCDatCsvFile* csv, long row, long col);
    virtual int Validate(const std::string& value, long row, long col);
    virtual int ValidateOuter(QZCDatCsvFile* csv, long row, long col);
    virtual void SetNoMsg(const std::string& nomsg);
    virtual std::string GetNoMsg() const;

protected:
    // The check itself: MSG_NONE when the value passes, else its message.
    virtual QZCDatMessage_t _validate(const std::string& value);
    // Whether the check rewrote the value (into out) for the checks that follow.
    virtual bool _updated(std::string& out, const std::string& value);

    // _validate with any exception logged and thrown on.
    QZCDatMessage_t Check(const std::string& value);
    // Adds the error entry of a failed check; the definition's message wins.
    void RecordError(long line, long column, QZCDatMessage_t result) const;
    static void RequireCsv(const QZCDatCsvFile* csv, const char* label);

    // Helpers shared by the concrete checks.
    static QZCDatMessage_t Fail(const char* label, QZCDatMessage_t message);
    [[noreturn]] static void ThrowParamError(const char* label);
    static bool IsDigitOrLineEnd(char c);
    static bool StartsWithSign(const std::string& value);
    // Every byte passes accept; a leading '+' or '-' is skipped when signAllowed.
    static bool IsAllBytes(const std::string& value, bool (*accept)(char), bool signAllowed);
    static std::vector<std::string> SplitWords(const std::string& list);

    QZCDatMessage_t m_nMessage;
    long m_nColumn;
    std::vector<std::unique_ptr<QZCDatValidItem>> m_vecOuterItems;
    std::string m_strNoMsg;
};
