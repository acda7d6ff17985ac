#include "QZCDatValidDate.h"

#include <cstdio>
#include <cstring>

#include "QZCDatCsvFile.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"

namespace {

struct EraDate {
    const char* name;
    const char* first;
    const char* last;
};

struct EraYear {
    const char* name;
    long offset;
};

// Row 0 stands for no era. Dates before 1890 are refused even within 明治.
const EraDate stEraDate[] = {
    {"", "", ""},
    {"明治", "1890/01/01", "1912/07/29"},
    {"大正", "1912/07/30", "1926/12/24"},
    {"昭和", "1926/12/25", "1989/01/07"},
    {"平成", "1989/01/08", "2019/04/30"},
    {"令和", "2019/05/01", ""},
};

// Western year = year of the era + offset.
const EraYear stEraYear[] = {
    {"明治", 1867}, {"大正", 1911}, {"昭和", 1925}, {"平成", 1988}, {"令和", 2018},
};

constexpr long kEraCount = 5;
constexpr int kLowerBits = 0x0F;
constexpr int kBeforeLower = 2;
constexpr int kAfterUpper = 16;

// A date item holding '-' or '/' counts as 0; otherwise its leading digits.
long long DateNumber(const char* item)
{
    return std::strpbrk(item, "-/") != nullptr ? 0 : QZCUtility::LeadingDigits(item);
}

}  // namespace

QZCDatValidDate::QZCDatValidDate(long column, QZCDatMessage_t message) : QZCDatValidDate(column, message, 0)
{
}

QZCDatValidDate::QZCDatValidDate(long column, QZCDatMessage_t message, int precision)
    : QZCDatValidItem(column, message), m_nPrecision(precision)
{
}

int QZCDatValidDate::ValidateCsv(QZCDatCsvFile* csv, long row, long col)
{
    RequireCsv(csv, "QZCDatValidDate::ValidateCsv");
    // Every outer condition runs, and any failure stops the date check.
    bool outerFailed = false;
    for (const auto& outer : m_vecOuterItems) {
        outerFailed = outer->ValidateOuter(csv, row, -1) != 0 || outerFailed;
    }
    if (outerFailed) {
        return -1;
    }
    const long column = m_nColumn < 0 ? col : m_nColumn;
    const std::string eraDate = GetDateString(csv, row, column);
    if (eraDate.empty()) {
        return 0;
    }
    const QZCDatMessage_t result = Check(eraDate);
    if (result != MSG_NONE) {
        RecordError(row + 1, column + 1, result);
        return -1;
    }
    return 0;
}

int QZCDatValidDate::ValidateOuter(QZCDatCsvFile* csv, long row, long col)
{
    RequireCsv(csv, "QZCDatValidDate::ValidateOuter");
    const long column = m_nColumn < 0 ? col : m_nColumn;
    return Check(GetDateString(csv, row, column)) == MSG_NONE ? 0 : -1;
}

std::string QZCDatValidDate::GetDateString(QZCDatCsvFile* csv, long row, long col)
{
    const std::string era = GetEra(QZCUtility::LeadingDigits(csv->GetItem(row, col)));
    // Year, month and day; the coarser forms read fewer columns and take the first month or day.
    long long numbers[3] = {1, 1, 1};
    bool allEmpty = era.empty();
    for (int part = 0; part < 3 - m_nPrecision; ++part) {
        const char* item = csv->GetItem(row, col + 1 + part);
        allEmpty = allEmpty && *item == '\0';
        numbers[part] = DateNumber(item);
    }
    if (allEmpty) {
        return "";
    }
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, "%s%02lld/%02lld/%02lld", era.c_str(), numbers[0], numbers[1], numbers[2]);
    return buffer;
}

std::string QZCDatValidDate::WarekiToSeireki(const std::string& eraDate)
{
    if (eraDate.empty() || (eraDate[0] >= '0' && eraDate[0] <= '9')) {
        return eraDate;
    }
    const char* text = eraDate.c_str();
    const std::string name = QZCMacOSNative::subStringWithCharacterLength(text, 0, 2);
    long long year = QZCUtility::LeadingDigits(QZCMacOSNative::subStringWithCharacterLength(text, 2, 2));
    for (const EraYear& era : stEraYear) {
        if (name == era.name) {
            year += era.offset;
            break;
        }
    }
    return std::to_string(year) + QZCMacOSNative::subStringWithCharacterLength(text, 4, eraDate.size());
}

std::string QZCDatValidDate::GetEra(long code)
{
    return CHK_ERA(code) ? stEraDate[code].name : "";
}

bool QZCDatValidDate::CHK_ERA(long code)
{
    return code >= 1 && code <= kEraCount;
}

QZCDatMessage_t QZCDatValidDate::ExistCheck(const std::string& eraDate)
{
    const char* label = "QZCDatValidDate::ExistCheck";
    if (eraDate.empty()) {
        return MSG_NONE;
    }
    long era = 1;
    while (era <= kEraCount && eraDate.find(stEraDate[era].name) == std::string::npos) {
        ++era;
    }
    if (!CHK_ERA(era)) {
        return Fail(label, MSG_HQZ9620E);
    }
    // The coarser forms start the era on the first of its month or year.
    std::string from = stEraDate[era].first;
    if (m_nPrecision == 1) {
        from = from.substr(0, 7) + "/01";
    } else if (m_nPrecision == 2) {
        from = from.substr(0, 4) + "/01/01";
    }
    const int result = QZCMacOSNative::rangeDate(WarekiToSeireki(eraDate).c_str(), from.c_str(),
                                                 stEraDate[era].last, false);
    const bool invalid = result == -2;
    const bool outside = result > 0 && ((result & kLowerBits) == kBeforeLower || (result & ~kLowerBits) == kAfterUpper);
    if (invalid || outside) {
        return Fail(label, MSG_HQZ9620E);
    }
    return MSG_NONE;
}
