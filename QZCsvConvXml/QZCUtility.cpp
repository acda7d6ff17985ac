#include "QZCUtility.h"

#include <algorithm>
#include <array>
#include <cctype>

#include <unicode/utf8.h>

#include "QZCErrorInfo.h"
#include "QZCLog.h"

thread_local std::vector<std::string> g_mlErrors;
thread_local int64_t g_nRecordCount = 0;

const QZCDatMsgRow DatMsgTable[MSG_COUNT] = {
    {0, "", "", 0},
    {1, "HQZ9210E", "ファイル名が空欄です。", 1},
    {2, "HQZ9220E", "指定されたファイルの拡張子に誤りがあります。\n「.txt」「.csv」形式のファイルを選択してください。", 1},
    {3, "HQZ9230E", "指定されたファイルが存在しないか、読み込むことができません。", 1},
    {4, "HQZ9240E", "指定されたフォルダが存在しません。", 1},
    {5, "HQZ9250E", "この変換モジュールのバージョンでは、指定されたバージョンの様式は作成できません。", 1},
    {6, "HQZ9990E", "作成者名は30文字以内で設定してください。", 1},
    {7, "HQZ9270E", "作成者名が設定されていません。", 1},
    {8, "HQZ9920E", "詳細エラー情報のファイルサイズが2MBを超えています。", 0},
    {9, "HQZ9930E", "指定されたファイル名が正しくありません。", 1},
    {10, "HQZ9940E", "指定されたファイルに書き込みできません。", 1},
    {11, "HQZ9950E", "プロパティファイルのフォルダパスが空欄です。", 1},
    {12, "HQZ9300E", "読み込んだCSVファイルの1行のカラム数が正しくありません。", 0},
    {13, "HQZ9310E", "読み込んだCSVファイルにFylaで使用できない文字が含まれています。", 1},
    {14, "HQZ9560E", "想定しないエラーが発生しました。", 1},
    {15, "HQZ9570E", "読み込んだCSVファイルのフォーマット区分が存在しません。", 0},
    {16, "HQZ9580E", "読み込んだCSVファイルのフォーマット区分が正しくありません。", 0},
    {17, "HQZ9590E", "読み込んだCSVファイルの行区分が存在しません。", 0},
    {18, "HQZ9600E", "読み込んだCSVファイルの行区分が正しくありません。", 0},
    {19, "HQZ9610E", "読み込んだCSVファイルの合計行に明細は設定できません。", 0},
    {20, "HQZ9620E", "読み込んだCSVファイルの設定値が正しくありません。", 0},
    {21, "HQZ9630E", "変換後のファイルサイズが1MBを超えています。", 1},
    {22, "HQZ9350E", "指定されたファイル名が正しくありません。\n命名規則通りのファイル名であるか、確認してください。\n（例：HOI010_1.0.csv）", 1},
    {23, "HQZ9660E", "指定されたファイル名が125文字を超えています。", 1},
    {24, "HQZ9670E", "指定されたページ数が正しくありません。", 1},
    {25, "HQZ9370E", "指定されたファイルの拡張子に誤りがあります。\n「.csv」形式のファイルを選択してください。", 1},
    {26, "HQZ8230E", "読み込んだCSVファイルにFylaで利用できない文字が含まれています。", 1},
};

namespace {

constexpr size_t kMaxJoinedBytes = 2097152;
constexpr size_t kMaxJoinedEntries = 100000;
constexpr const char* kTooManyErrors = "0000-00000-HQZ9920E";
constexpr const char* kUnexpectedError = "0000-00000-HQZ9560E";

}  // namespace

void QZCUtility::AddCsvErrorInfo(const char* line, const char* column, const char* code)
{
    try {
        QZCErrorInfo info;
        info.SetInfo(line, column, code);
        g_mlErrors.push_back(info.GetErrorInfo());
    } catch (...) {
        AddOtherExceptionErrorInfo();
        QZC_LOG("QZCUtility::AddCsvErrorInfo", "予期せぬ例外がが発生しました。");
    }
}

void QZCUtility::AddCsvErrorInfo(int line, const char* column, const char* code)
{
    AddCsvErrorInfo(std::to_string(line).c_str(), column, code);
}

void QZCUtility::AddCsvErrorInfo(int line, int column, const char* code)
{
    AddCsvErrorInfo(std::to_string(line).c_str(), std::to_string(column).c_str(), code);
}

void QZCUtility::AddParamErrorInfoDefinition(int column, const char* code)
{
    AddCsvErrorInfo("9999", std::to_string(column).c_str(), code);
}

void QZCUtility::AddParamErrorInfoDefinition(const char* code)
{
    AddCsvErrorInfo("0000", "00000", code);
}

void QZCUtility::AddOtherExceptionErrorInfo()
{
    g_mlErrors.clear();
    g_mlErrors.push_back(kUnexpectedError);
}

void QZCUtility::ClearErrorInfo()
{
    g_mlErrors.clear();
}

std::string QZCUtility::GetError()
{
    std::sort(g_mlErrors.begin(), g_mlErrors.end());
    g_mlErrors.erase(std::unique(g_mlErrors.begin(), g_mlErrors.end()), g_mlErrors.end());

    std::string joined;
    size_t appended = 0;
    for (const std::string& entry : g_mlErrors) {
        if (joined.size() + entry.size() > kMaxJoinedBytes || appended >= kMaxJoinedEntries)
            return joined + kTooManyErrors;
        joined += entry;
        joined += ',';
        ++appended;
    }
    if (!joined.empty())
        joined.pop_back();
    return joined;
}

namespace {

// Blocks of the service's repertoire, as inclusive UTF-16 unit ranges.
struct UnitRange {
    char16_t first;
    char16_t last;
};

constexpr UnitRange kFylaRanges[] = {
    {0x0020, 0x007E}, {0x00A0, 0x00FF}, {0x0370, 0x03FF}, {0x0400, 0x04FF},
    {0x2000, 0x206F}, {0x2150, 0x218F}, {0x2190, 0x21FF}, {0x2200, 0x22FF},
    {0x2460, 0x24FF}, {0x2500, 0x257F}, {0x25A0, 0x25FF}, {0x3000, 0x303F},
    {0x3040, 0x309F}, {0x30A0, 0x30FF}, {0x3200, 0x32FF}, {0x3300, 0x33FF},
    {0x4E00, 0x9FFF}, {0xF900, 0xFAFF}, {0xFF00, 0xFF65}, {0xFFA0, 0xFFEF},
};

// One bit per UTF-16 unit: every field of every checked file is judged here.
// A byte per unit rather than a bit: the lookup is one load.
using UnitTable = std::array<bool, 0x10000>;

const UnitTable& fylaUnits()
{
    static const UnitTable units = [] {
        UnitTable table{};
        for (char16_t unit : {u'\t', u'\n', u'\r'})
            table[unit] = true;
        for (const UnitRange& range : kFylaRanges)
            for (uint32_t unit = range.first; unit <= range.last; ++unit)
                table[unit] = true;
        return table;
    }();
    return units;
}

}  // namespace

std::string QZCUtility::AsciiLower(std::string text)
{
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

int64_t QZCUtility::LeadingDigits(std::string_view text)
{
    int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            break;
        const int digit = c - '0';
        if (value > (INT64_MAX - digit) / 10)
            return INT64_MAX;
        value = value * 10 + digit;
    }
    return value;
}

int64_t QZCUtility::LeadingInteger(std::string_view text)
{
    size_t start = 0;
    while (start < text.size() && std::isspace(static_cast<unsigned char>(text[start])))
        ++start;
    const bool negative = start < text.size() && text[start] == '-';
    if (start < text.size() && (text[start] == '-' || text[start] == '+'))
        ++start;
    const int64_t magnitude = std::min<int64_t>(LeadingDigits(text.substr(start)), int64_t{INT32_MAX} + 1);
    return negative ? -magnitude : std::min<int64_t>(magnitude, INT32_MAX);
}

bool QZCUtility::IsFylaAvailableString(const char* text)
{
    if (!text)
        return true;
    const UnitTable& allowed = fylaUnits();
    // Decoded on the fly, without copying the text.
    const auto* bytes = reinterpret_cast<const uint8_t*>(text);
    for (int32_t i = 0;;) {
        UChar32 c = bytes[i];
        if (c < 0x80) {
            if (c == 0)
                return true;
            ++i;
        } else {
            U8_NEXT(bytes, i, -1, c);
        }
        // Ill-formed UTF-8 and characters beyond the BMP (surrogate pairs) fail.
        if (c < 0 || c > 0xFFFF || !allowed[static_cast<size_t>(c)])
            return false;
    }
}

bool QZCUtility::IsZenkakuChar(char16_t unit) { return unit > 0x7F; }
bool QZCUtility::IsAlphabetChar(char16_t unit) { return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z'); }
bool QZCUtility::IsNumber(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
bool QZCUtility::IsNumber(char c, bool zeroAllowed) { return (c >= '1' && c <= '9') || (zeroAllowed && c == '0'); }
bool QZCUtility::IsHyphen(char16_t unit) { return unit == u'-'; }
bool QZCUtility::IsUnderScore(char16_t unit) { return unit == u'_'; }
