#include "QZCCalendar.h"

#include <algorithm>
#include <memory>
#include <string>

#include <unicode/calendar.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include "QZCUtility.h"

namespace {

// Cached date formatters, created on first use.
std::unique_ptr<icu::SimpleDateFormat> gDateTimeFormat[4];

icu::SimpleDateFormat* dateFormatter(int index)
{
    createDateFormatter(index);
    return gDateTimeFormat[index].get();
}

std::optional<QZCDate> parseDate(int index, const std::string& text)
{
    icu::SimpleDateFormat* formatter = dateFormatter(index);
    if (!formatter)
        return std::nullopt;
    icu::UnicodeString unicodeText = icu::UnicodeString::fromUTF8(text);
    icu::ParsePosition position(0);
    UDate date = formatter->parse(unicodeText, position);
    if (position.getErrorIndex() >= 0 || position.getIndex() != unicodeText.length())
        return std::nullopt;
    return date;
}

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

// Compares a date with one bound: 0 equal, 1 date later, 2 date earlier.
int compareDates(QZCDate date, QZCDate bound)
{
    return date == bound ? 0 : (date > bound ? 1 : 2);
}

}  // namespace

void createDateFormatter(int index)
{
    // Year, month, day (and hour, minute, second) in the Gregorian and the era
    // calendar. Month, day and time fields take one or two digits ("2020/4/1")
    // while the calendar stays strict ("2020/02/30" is refused); ICU would
    // demand exactly two digits for "MM" and "dd" in strict mode.
    static const char* const patterns[4] = {"yyyy/M/d", "yyyy/M/d H:m:s", "GGy/M/d", "GGy/M/d H:m:s"};
    if (index < 0 || index > 3 || gDateTimeFormat[index])
        return;
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale locale(index < 2 ? "ja_JP" : "ja_JP@calendar=japanese");
    auto formatter = std::make_unique<icu::SimpleDateFormat>(icu::UnicodeString(patterns[index], -1, US_INV), locale, status);
    if (U_FAILURE(status))
        return;
    formatter->setLenient(false);
    // A calendar date is judged on its own: in a local zone a day whose
    // midnight was skipped by summer time would not exist.
    formatter->setTimeZone(*icu::TimeZone::getGMT());
    gDateTimeFormat[index] = std::move(formatter);
}

std::optional<QZCDate> dateStringToDate(const char* text)
{
    if (!text)
        return std::nullopt;
    std::string value = text;
    if (value.find_first_not_of("1234567890/:.- ") == std::string::npos) {
        std::replace(value.begin(), value.end(), '-', '/');
        std::replace(value.begin(), value.end(), '.', '/');
        return parseDate(value.find(':') != std::string::npos ? 1 : 0, value);
    }
    replaceAll(value, "元", "01");
    replaceAll(value, "年", "/");
    replaceAll(value, "月", "/");
    replaceAll(value, "日", "");
    return parseDate(value.find(':') != std::string::npos ? 3 : 2, value);
}

std::string QZCCalendar::dateTimeNow(const char* datePattern, const char* timePattern)
{
    std::string pattern = QZCUtility::OrEmpty(datePattern);
    std::string time = QZCUtility::OrEmpty(timePattern);
    if (!pattern.empty() && !time.empty())
        pattern += ' ';
    pattern += time;
    if (pattern.empty())
        return "";
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat formatter(icu::UnicodeString::fromUTF8(pattern), icu::Locale("ja_JP"), status);
    if (U_FAILURE(status))
        return "";
    icu::UnicodeString formatted;
    formatter.format(icu::Calendar::getNow(), formatted);
    std::string result;
    return formatted.toUTF8String(result);
}

bool QZCCalendar::dateTimeChange(const char* text)
{
    return dateStringToDate(text).has_value();
}

int QZCCalendar::rangeDate(const char* date, const char* lower, const char* upper, bool bothRequired)
{
    std::optional<QZCDate> value = dateStringToDate(date);
    if (!value)
        return -2;
    bool hasLower = lower && *lower;
    bool hasUpper = upper && *upper;
    std::optional<QZCDate> from = dateStringToDate(lower);
    if ((bothRequired || hasLower) && !from)
        return -3;
    std::optional<QZCDate> to = dateStringToDate(upper);
    if (!bothRequired && !hasLower && !hasUpper)
        return -5;
    if ((bothRequired || hasUpper) && !to)
        return -4;
    int lowerPart = hasLower || bothRequired ? compareDates(*value, *from) : 0x0F;
    int upperPart = hasUpper || bothRequired ? compareDates(*value, *to) * 16 : 0xF0;
    return lowerPart + upperPart;
}
