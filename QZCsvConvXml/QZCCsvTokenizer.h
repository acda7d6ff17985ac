#pragma once

#include <string>
#include <string_view>

#include "QZCMacOSNative.h"

// The CSV rule that both readers share. Fields are separated by ",";
// records end at CR, LF or CR LF (one line end), so a blank line is a record
// of one empty field. A field whose first character is a double quote is
// quoted: the quote is dropped, commas and line ends inside belong to the
// field, and it ends at a double quote followed by ",", CR, LF or the end of
// the text, or whose next-but-one character is LF; any other quote (a
// doubled one too) is part of the value, as is a quote inside an unquoted
// field. Every field is handed over trimmed of white space.
//
// The readers differ at the end of the text: a record that has no field yet
// and an empty field end the text without a record, but the statements
// reader keeps such a record when the text ends inside a quoted field.
//
// A field is handed over as a view of the text; only a quoted field that goes
// on after its closing quote (a blank before the line end) is copied.
class QZCCsvTokenizer {
public:
    enum class QuotedEnd { DropsEmptyRecord, KeepsRecord };

    // Where a field was read from: its bytes [begin, end) of the text, from
    // its first byte up to the separator or line end after it, so quotes and
    // the blanks trimmed off included.
    struct Span {
        size_t begin;
        size_t end;
    };

    // Calls onField(std::string_view field, bool endOfRecord, Span span) for
    // every field in order; a false answer stops the split, which then
    // answers false.
    template <class OnField>
    static bool Split(std::string_view text, QuotedEnd quotedEnd, OnField&& onField);

private:
    static bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }
    // Whether the quote at position i closes a quoted field.
    static bool Closes(std::string_view text, size_t i)
    {
        const size_t length = text.size();
        return i + 1 == length || text[i + 1] == ',' || IsLineEnd(text[i + 1]) ||
               (i + 2 < length && text[i + 2] == '\n');
    }
};

template <class OnField>
bool QZCCsvTokenizer::Split(std::string_view text, QuotedEnd quotedEnd, OnField&& onField)
{
    std::string joined;
    std::string_view closedPart;
    bool closed = false;
    bool quoted = false;
    bool fieldStart = true;
    bool recordStarted = false;
    size_t start = 0;
    size_t rawStart = 0;
    const auto field = [&](size_t end) {
        const std::string_view tail = text.substr(start, end - start);
        if (!closed)
            return tail;
        if (tail.empty())
            return closedPart;
        joined.assign(closedPart).append(tail);
        return std::string_view(joined);
    };
    const auto emit = [&](size_t end, bool endOfRecord, size_t next) {
        const bool kept = onField(QZCMacOSNative::viewByTrimming(field(end)), endOfRecord, Span{rawStart, end});
        closed = false;
        fieldStart = true;
        recordStarted = !endOfRecord;
        start = next;
        rawStart = next;
        return kept;
    };
    const size_t length = text.size();
    for (size_t i = 0; i < length; ++i) {
        const char c = text[i];
        if (quoted) {
            if (c == '"' && Closes(text, i)) {
                quoted = false;
                closed = true;
                closedPart = text.substr(start, i - start);
                start = i + 1;
            }
            continue;
        }
        if (fieldStart && c == '"') {
            quoted = true;
            fieldStart = false;
            start = i + 1;
            continue;
        }
        fieldStart = false;
        if (c == ',') {
            emit(i, false, i + 1);
        } else if (IsLineEnd(c)) {
            const size_t end = i;
            if (c == '\r' && i + 1 < length && text[i + 1] == '\n')
                ++i;
            if (!emit(end, true, i + 1))
                return false;
        }
    }
    const bool keep = quoted && quotedEnd == QuotedEnd::KeepsRecord;
    if (!keep && !recordStarted && field(length).empty())
        return true;
    return emit(length, true, length);
}
