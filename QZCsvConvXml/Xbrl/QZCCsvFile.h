#pragma once

#include <string>
#include <string_view>
#include <vector>

// A comma-separated text file read from Shift_JIS into lines of trimmed
// UTF-8 fields.
class QZCCsvFile {
public:
    using Line = std::vector<std::string>;
    using Lines = std::vector<Line>;

    QZCCsvFile() = default;
    virtual ~QZCCsvFile() = default;
    // Declared so that a vector of files moves its lines when it grows
    // instead of copying them.
    QZCCsvFile(const QZCCsvFile&) = default;
    QZCCsvFile(QZCCsvFile&&) noexcept = default;
    QZCCsvFile& operator=(const QZCCsvFile&) = default;
    QZCCsvFile& operator=(QZCCsvFile&&) noexcept = default;

    virtual bool ReadCsvFile(const char* path);
    virtual void InitMembers();

    // Splits the text into lines and fields and appends them to the lines.
    bool ParseCsvData(const char* text);
    // Adds the trimmed field to the line; at its end the line to the lines.
    bool StoreDataWithinBuffers(std::string_view field, Line& lineFields, bool endOfLine);

    size_t GetLineCount() const { return m_vLines.size(); }
    Lines::const_iterator GetCsvLineItelator() const { return m_vLines.begin(); }
    Lines::const_iterator GetCsvLineEndItelator() const { return m_vLines.end(); }
    const Lines& GetCSVData() const { return m_vLines; }

private:
    Lines m_vLines;
    std::string m_strText;
};
