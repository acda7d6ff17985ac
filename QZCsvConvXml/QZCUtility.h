#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The error list and the record count that sets the width of line numbers
// in its entries. One of each per thread: an operation runs on one thread
// from start to end, so operations on different threads never mix entries.
extern thread_local std::vector<std::string> g_mlErrors;
extern thread_local int64_t g_nRecordCount;

// Messages of the detail-statement side: index into DatMsgTable.
enum QZCDatMessage_t : int64_t {
    MSG_NONE = 0,
    MSG_HQZ9210E = 1,
    MSG_HQZ9220E = 2,
    MSG_HQZ9230E = 3,
    MSG_HQZ9240E = 4,
    MSG_HQZ9250E = 5,
    MSG_HQZ9990E = 6,
    MSG_HQZ9270E = 7,
    MSG_HQZ9920E = 8,
    MSG_HQZ9930E = 9,
    MSG_HQZ9940E = 10,
    MSG_HQZ9950E = 11,
    MSG_HQZ9300E = 12,
    MSG_HQZ9310E = 13,
    MSG_HQZ9560E = 14,
    MSG_HQZ9570E = 15,
    MSG_HQZ9580E = 16,
    MSG_HQZ9590E = 17,
    MSG_HQZ9600E = 18,
    MSG_HQZ9610E = 19,
    MSG_HQZ9620E = 20,
    MSG_HQZ9630E = 21,
    MSG_HQZ9350E = 22,
    MSG_HQZ9660E = 23,
    MSG_HQZ9670E = 24,
    MSG_HQZ9370E = 25,
    MSG_HQZ8230E = 26,
    MSG_COUNT = 27
};

struct QZCDatMsgRow {
    int64_t index;
    const char* code;
    const char* message;
    int64_t blocksConversion;
};

extern const QZCDatMsgRow DatMsgTable[MSG_COUNT];

// Error list operations and the character rules of the service.
class QZCUtility {
public:
    virtual ~QZCUtility() = default;

    // Error list.
    static void AddCsvErrorInfo(const char* line, const char* column, const char* code);
    static void AddCsvErrorInfo(int line, const char* column, const char* code);
    static void AddCsvErrorInfo(int line, int column, const char* code);
    static void AddParamErrorInfoDefinition(int column, const char* code);
    static void AddParamErrorInfoDefinition(const char* code);
    static void AddOtherExceptionErrorInfo();
    static void ClearErrorInfo();
    static std::string GetError();

    // The text, or "" for a null pointer.
    static std::string OrEmpty(const char* text) { return text ? std::string(text) : std::string(); }

    // The text with ASCII capitals made small; other bytes as they are.
    static std::string AsciiLower(std::string text);

    // The number its leading decimal digits write, 0 when the text does not
    // start with a digit (so "+5" and " 5" are 0); INT64_MAX when it is larger.
    static int64_t LeadingDigits(std::string_view text);
    // The number a text starts with as atol reads it (blanks, an optional
    // sign, digits; 0 without digits), held within INT32_MIN..INT32_MAX. No
    // count, column or length of a file the library reads goes beyond, and a
    // column number plus a few still fits the int of an error entry.
    static int64_t LeadingInteger(std::string_view text);

    // Characters the e-filing service accepts (UTF-8 text; null or empty passes).
    static bool IsFylaAvailableString(const char* text);
    static bool IsZenkakuChar(char16_t unit);
    static bool IsAlphabetChar(char16_t unit);
    static bool IsNumber(char16_t unit);
    static bool IsNumber(char c, bool zeroAllowed);
    static bool IsHyphen(char16_t unit);
    static bool IsUnderScore(char16_t unit);
};
