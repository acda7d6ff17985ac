#pragma once

#include <optional>
#include <string>

// Dates of the Gregorian and the era calendar. A calendar date is judged on
// its own, in UTC: in a local zone a day whose midnight summer time skipped
// would not exist.
class QZCCalendar {
public:
    // The current local time formatted with the date and the time pattern
    // (joined by a blank when both are given); "" for no pattern.
    static std::string dateTimeNow(const char* datePattern, const char* timePattern);
    // Whether the text is a date that dateStringToDate reads.
    static bool dateTimeChange(const char* text);
    // The date against its bounds: 0/1/2 (equal, later, earlier than the
    // lower bound, 15 without one) plus 0/16/32 (equal, later, earlier than
    // the upper bound, 240 without one); -2 an unreadable date, -3 and -4 an
    // unreadable bound, -5 neither bound.
    static int rangeDate(const char* date, const char* lower, const char* upper, bool bothRequired);
};

// Milliseconds since the epoch, as the platform date formatters give them.
using QZCDate = double;

// Reads a date in the Gregorian ("2020/04/01", "2020-04-01 10:20:30") or the
// era form ("令和元年5月1日"); strict, the whole text must match.
std::optional<QZCDate> dateStringToDate(const char* text);
// Creates the cached formatter of that index (0 to 3) if it does not exist yet.
void createDateFormatter(int index);
