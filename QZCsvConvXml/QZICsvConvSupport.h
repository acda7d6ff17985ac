#pragma once

#include "QZICsvConvExport.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// Services of the library for programs built on its interface, so that they
// write files, convert Shift_JIS and read error entries exactly as the
// library's own operations do.
class QZC_EXPORT QZICsvConvSupport {
public:
    // One entry of an error text: "0012-00003-HQZ9300E" is line 12, column 3,
    // code "HQZ9300E". Line 9999 marks an argument (column = its number),
    // line 0 with column 0 the whole file or run.
    struct ErrorEntry {
        int64_t line = 0;
        int64_t column = 0;
        std::string code;
    };
    // The entries of an error text as the operations return it (entries
    // joined with ","), in its order; a piece that is not an entry is skipped.
    static std::vector<ErrorEntry> ParseErrorInfo(const std::string& errorInfo);

    // The library's own Japanese text of a detail-statement message code
    // ("HQZ9300E"), and whether that code keeps a file from being converted;
    // nullopt for a code outside the detail message table.
    struct DetailMessage {
        std::string text;
        bool blocksConversion = false;
    };
    static std::optional<DetailMessage> FindDetailMessage(const std::string& code);

    // Replaces the content of the file at path with the bytes, so that the
    // file is either complete or as it was.
    static bool WriteFile(const std::string& path, const std::string& bytes);

    // Shift_JIS (Windows code page 932) as the library reads and writes it;
    // nullopt for bytes or characters without a form in the other encoding.
    static std::optional<std::string> ShiftJISToUtf8(const std::string& bytes);
    static std::optional<std::string> Utf8ToShiftJIS(const std::string& text);
    // The text of a file that a spreadsheet saved, in UTF-8: the bytes as
    // they are (a byte order mark dropped) when they are valid UTF-8, else
    // read as Shift_JIS; nullopt when they are neither.
    static std::optional<std::string> TextToUtf8(const std::string& bytes);

    // The lines of a comma-separated UTF-8 text and their fields, split,
    // unquoted and trimmed as the library reads statement files and code
    // lists.
    static std::vector<std::vector<std::string>> ParseCsv(const std::string& text);

    // The records of a detail-statement or appended-table CSV text (UTF-8)
    // as the detail operations split them: each field's value as they read
    // it, and the bytes [begin, end) of the text it was read from: from its
    // first byte up to the separator or line end after it, so quotes and
    // the blanks trimmed off included. The text ends at a NUL byte.
    struct CsvField {
        std::string value;
        size_t begin = 0;
        size_t end = 0;
    };
    static std::vector<std::vector<CsvField>> SplitDetailCsv(const std::string& text);

    // The lines of a CSV file as the library splits them (Shift_JIS on disk,
    // fields trimmed); empty for a file that cannot be read or is not
    // Shift_JIS. The text ends at a NUL byte, as the library reads it.
    static std::vector<std::vector<std::string>> ReadCsvRecords(const std::string& path);
    // The size in bytes of the largest file the operations read; a larger
    // one is refused from its size as a file that cannot be read.
    static uint64_t MaxReadableFileSize();

    // Whether the text is a well-formed XML document for the library's parser.
    static bool IsWellFormedXml(const std::string& text);

    // Whether every character of the UTF-8 text is one the service accepts.
    static bool IsAvailableString(const std::string& text);

    // The resource bundle the operations use ("" when none is found), and the
    // environment variable that points them at another.
    static std::string BundlePath();
    static const char* BundleVariable();
};
