#pragma once

#include <string>
#include <vector>

#include "QZCRegex.h"

class QZCAccountFile;

// Checks the name of a financial statements file and derives its XBRL type
// (the statement kind) from it.
class QZCValidateFile {
public:
    static constexpr const char* kFileNamePattern = "^HOT010_3\\.0(_(.+?)(_.+)?)?\\.[cC][sS][vV]$";

    QZCValidateFile();
    virtual ~QZCValidateFile() = default;
    QZCValidateFile(const QZCValidateFile&) = delete;
    QZCValidateFile& operator=(const QZCValidateFile&) = delete;

    // Name pattern, characters and length of a single file.
    virtual bool DoCheck(QZCAccountFile& file);

    bool isValidateCSVFileNameFormat(const std::string& name) const;
    static bool isValidateFileNameUsableChar(const std::string& name);
    static bool isValidateFileNameLen(const std::string& name);
    // On a pattern match sets type to the kind code, or "-".
    bool getFileXBRLType(const std::string& name, std::string& type) const;
    std::string GetXbrlType(const std::string& candidate) const;

protected:
    // Adds the error of a failed name check and logs it.
    static bool rejectName(const char* code);

private:
    std::vector<std::string> m_vXbrlTypes;
    const QZCRegex* m_pFileNamePattern;
};
