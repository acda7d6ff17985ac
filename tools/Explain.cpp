#include "Explain.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QZICsvConvSupport.h"
#include "Utf8.h"

namespace {

namespace fs = std::filesystem;

constexpr int64_t kArgumentLine = 9999;
// Characters without a Shift_JIS form named by a refused write.
constexpr size_t kWriteFindings = 5;

std::string scopeOf(int64_t line, int64_t column)
{
    if (line == kArgumentLine)
        return "argument";
    if (line == 0)
        return "file";
    return column == 0 ? "line" : "cell";
}

bool blocksConversion(const std::string& code)
{
    // Codes outside the detail message table (financial statements, the
    // tool's own) keep the file from becoming a document.
    std::optional<QZICsvConvSupport::DetailMessage> message = QZICsvConvSupport::FindDetailMessage(code);
    return !message || message->blocksConversion;
}

// A file the library refuses from its size, and the tool does not read.
bool tooLarge(const struct stat& status)
{
    return static_cast<uint64_t>(status.st_size) > QZICsvConvSupport::MaxReadableFileSize();
}

std::optional<std::string> readBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::string byteText(unsigned char byte)
{
    char text[8];
    std::snprintf(text, sizeof text, "0x%02X", byte);
    return text;
}

// The line (from 1) of a byte of Shift_JIS text, whose line ends are
// single bytes as in ASCII.
int64_t lineOf(const std::string& bytes, size_t offset)
{
    int64_t line = 1;
    for (size_t at = 0; at < offset; ++at) {
        if (bytes[at] == '\n' || (bytes[at] == '\r' && (at + 1 >= bytes.size() || bytes[at + 1] != '\n')))
            ++line;
    }
    return line;
}

bool decodes(const std::string& bytes, size_t at, size_t count)
{
    return QZICsvConvSupport::ShiftJISToUtf8(bytes.substr(at, count)).has_value();
}

// Offset of the first byte that starts no Shift_JIS character: blocks that
// decode are passed over whole (a block that ends inside a character
// decodes with one byte more), then one character of one or two bytes at a
// time.
size_t firstInvalidShiftJis(const std::string& bytes)
{
    constexpr size_t kBlock = 4096;
    size_t at = 0;
    while (at < bytes.size() && (decodes(bytes, at, kBlock) || decodes(bytes, at, kBlock + 1)))
        at += decodes(bytes, at, kBlock) ? kBlock : kBlock + 1;
    while (at < bytes.size() && (decodes(bytes, at, 1) || decodes(bytes, at, 2)))
        at += decodes(bytes, at, 1) ? 1 : 2;
    return std::min(at, bytes.size());
}

bool isUtf8Text(const std::string& bytes)
{
    const bool bom = bytes.rfind("\xEF\xBB\xBF", 0) == 0;
    const bool nonAscii =
        std::any_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    return bom || (nonAscii && validUtf8(bytes) == bytes);
}

std::string reportIdOf(const std::string& path)
{
    const std::string name = fs::path(path).filename().string();
    return name.substr(0, name.find('_'));
}

// The field named by a column of the record, for a rule's condition.
std::string labelOf(const QZIFormLayout& layout, const std::vector<std::string>& record, int column,
                    bool detailStatement, Language language)
{
    if (const QZIFormLayout::Field* field = layout.Explain(record, column).field)
        return field->label;
    const std::string frame = frameColumn(column, detailStatement, language);
    return !frame.empty() ? frame : Text{"列", "column "}(language) + std::to_string(column);
}

// The columns a date check reads from its era column on: era, year, month
// and day for a date, fewer for a month or a year.
size_t dateColumns(const std::string& keyword)
{
    return keyword == "existdate" ? 4 : keyword == "existmonth" ? 3 : keyword == "existyear" ? 2 : 1;
}

std::string failedRulesInWords(const std::vector<const QZIFormLayout::Rule*>& rules, const QZIFormLayout& layout,
                               const std::vector<std::string>& record, bool detailStatement, Language language)
{
    std::string words;
    for (const QZIFormLayout::Rule* rule : rules) {
        words += (words.empty() ? "" : Text{"、", "; "}(language)) + ruleInWords(*rule, language);
        for (const QZIFormLayout::Rule& condition : rule->conditions)
            words += Text{"（", " ("}(language) +
                     conditionInWords(condition, labelOf(layout, record, condition.column, detailStatement, language),
                                      language) +
                     Text{"）", ")"}(language);
    }
    return words;
}

}  // namespace

Json makeEntry(const std::string& file, int64_t line, int64_t column, const std::string& code, Language language)
{
    return {
        {"File", validUtf8(file)},
        {"Line", line},
        {"Column", column},
        {"Scope", scopeOf(line, column)},
        {"Field", nullptr},
        {"Value", nullptr},
        {"Rule", nullptr},
        {"Code", code},
        {"Message", messageFor(code, language)},
        {"BlocksConversion", blocksConversion(code)},
    };
}

std::vector<Json> explainDetail(const std::string& file, const std::string& csvPath, const std::string& styleVersion,
                                const std::string& errorInfo, Language language)
{
    std::vector<Json> entries;
    const std::vector<QZICsvConvSupport::ErrorEntry> parsed = QZICsvConvSupport::ParseErrorInfo(errorInfo);
    if (parsed.empty())
        return entries;
    const std::vector<std::vector<std::string>> records = QZICsvConvSupport::ReadCsvRecords(csvPath);
    const std::optional<QZIFormLayout> layout = QZIFormLayout::Load(reportIdOf(csvPath), styleVersion);
    const std::optional<QZIFormLayout::Form> form = QZIFormLayout::Recognize(csvPath);
    const bool detailStatement = form && form->operation != QZIFormLayout::Operation::AppendedTable;
    for (const QZICsvConvSupport::ErrorEntry& parsedEntry : parsed) {
        Json entry = makeEntry(file, parsedEntry.line, parsedEntry.column, parsedEntry.code, language);
        const int column = static_cast<int>(std::min<int64_t>(parsedEntry.column, INT32_MAX));
        if (parsedEntry.line == kArgumentLine) {
            entry["Field"] = argumentName(column, language);
            if (column == 1 || column == 3)
                entry["Value"] = shownValue(column == 1 ? file : styleVersion);
        } else if (parsedEntry.line > 0 && column > 0 && static_cast<size_t>(parsedEntry.line) <= records.size()) {
            const std::vector<std::string>& record = records[static_cast<size_t>(parsedEntry.line - 1)];
            QZIFormLayout::Cell cell;
            if (layout)
                cell = layout->Explain(record, column);
            // A date shows all its columns.
            const size_t span = cell.failed.empty() ? 1 : dateColumns(cell.failed.front()->keyword);
            std::string value;
            for (size_t at = static_cast<size_t>(column - 1); at < record.size() && at < column - 1 + span; ++at)
                value += (value.empty() ? "" : ",") + record[at];
            if (static_cast<size_t>(column) <= record.size())
                entry["Value"] = shownValue(value);
            const std::string frame = frameColumn(column, detailStatement, language);
            if (cell.field)
                entry["Field"] = cell.field->label;
            else if (!frame.empty())
                entry["Field"] = frame;
            if (!cell.failed.empty())
                entry["Rule"] = failedRulesInWords(cell.failed, *layout, record, detailStatement, language);
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::vector<Json> explainStatements(const std::string& file, const std::string& csvPath, const std::string& errorInfo,
                                    Language language)
{
    std::vector<Json> entries;
    const std::vector<QZICsvConvSupport::ErrorEntry> parsed = QZICsvConvSupport::ParseErrorInfo(errorInfo);
    if (parsed.empty())
        return entries;
    const std::vector<std::vector<std::string>> lines = QZICsvConvSupport::ReadCsvRecords(csvPath);
    for (const QZICsvConvSupport::ErrorEntry& parsedEntry : parsed) {
        Json entry = makeEntry(file, parsedEntry.line, parsedEntry.column, parsedEntry.code, language);
        if (parsedEntry.line > 0 && parsedEntry.line != kArgumentLine && parsedEntry.column > 0 &&
            static_cast<size_t>(parsedEntry.line) <= lines.size()) {
            const std::vector<std::string>& line = lines[static_cast<size_t>(parsedEntry.line - 1)];
            const int column = static_cast<int>(std::min<int64_t>(parsedEntry.column, INT32_MAX));
            if (static_cast<size_t>(column) <= line.size())
                entry["Value"] = shownValue(line[static_cast<size_t>(column - 1)]);
            const std::string meaning = statementsColumn(line, column, language);
            if (!meaning.empty())
                entry["Field"] = meaning;
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

void inspectCsvBytes(const std::string& file, const std::string& path, Language language, std::vector<Json>& entries,
                     std::vector<std::string>& hints)
{
    struct stat status;
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return;
    if (tooLarge(status)) {
        entries.push_back(makeEntry(file, 0, 0, kTooLargeFile, language));
        return;
    }
    const std::optional<std::string> bytes = readBytes(path);
    if (!bytes)
        return;
    if (isUtf8Text(*bytes)) {
        hints.push_back(validUtf8(file) +
                        Text{" はUTF-8のテキストです。CSVファイルはShift_JISで保存してください。変換するには: qzcsvconv write ",
                             " is UTF-8 text; the CSV files must be Shift_JIS. To convert it: qzcsvconv write "}(
                            language) +
                        shellQuoted(path) + " " + shellQuoted(path));
        return;
    }
    if (!QZICsvConvSupport::ShiftJISToUtf8(*bytes)) {
        const size_t at = firstInvalidShiftJis(*bytes);
        Json entry = makeEntry(file, lineOf(*bytes, at), 0, kNotShiftJis, language);
        if (at < bytes->size())
            entry["Value"] = byteText(static_cast<unsigned char>((*bytes)[at]));
        entries.push_back(std::move(entry));
        return;
    }
    if (const size_t nul = bytes->find('\0'); nul != std::string::npos) {
        Json entry = makeEntry(file, lineOf(*bytes, nul), 0, kNulByte, language);
        entry["Value"] = byteText(0);
        entries.push_back(std::move(entry));
    }
}

std::vector<Json> inspectFolder(const std::string& folder, Language language)
{
    std::vector<Json> entries;
    std::error_code error;
    std::vector<fs::path> paths;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        if (it->path().filename() != ".DS_Store")
            paths.push_back(it->path());
    }
    std::sort(paths.begin(), paths.end());
    for (const fs::path& path : paths) {
        struct stat status;
        const char* code = nullptr;
        if (::stat(path.c_str(), &status) != 0)
            code = kUnreadableFile;
        else if (!S_ISREG(status.st_mode))
            code = kSpecialFile;
        else if (status.st_size == 0)
            code = kEmptyFile;
        else if (tooLarge(status))
            code = kTooLargeFile;
        else if (int descriptor = ::open(path.c_str(), O_RDONLY); descriptor < 0)
            code = kUnreadableFile;
        else
            ::close(descriptor);
        if (code)
            entries.push_back(makeEntry(path.string(), 0, 0, code, language));
    }
    return entries;
}

std::vector<Json> inspectWriteData(const std::string& file, const std::string& data, Language language)
{
    std::vector<Json> entries;
    forEachCharacter(data, [&](std::string_view character, int32_t codePoint, size_t line, size_t column) {
        if (codePoint < 0) {
            Json entry = makeEntry(file, static_cast<int64_t>(line), static_cast<int64_t>(column), kNotUtf8, language);
            entry["Value"] = byteText(static_cast<unsigned char>(character[0]));
            entries.push_back(std::move(entry));
            return false;
        }
        if (codePoint < 0x80 || QZICsvConvSupport::Utf8ToShiftJIS(std::string(character)))
            return true;
        char name[16];
        std::snprintf(name, sizeof name, " (U+%04X)", static_cast<unsigned>(codePoint));
        Json entry =
            makeEntry(file, static_cast<int64_t>(line), static_cast<int64_t>(column), kNoShiftJisForm, language);
        entry["Value"] = std::string(character) + name;
        entries.push_back(std::move(entry));
        return entries.size() < kWriteFindings;
    });
    return entries;
}

std::string shellQuoted(const std::string& path)
{
    std::string quoted = "'";
    for (char c : path)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}
