#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// One error entry under construction: line, column and message code,
// normalised to the "LLLL-CCCCC-HQZnnnnE" form.
class QZCErrorInfo {
public:
    virtual ~QZCErrorInfo() = default;

    void SetInfo(const char* line, const char* column, const char* code);
    std::string GetErrorInfo() const;

    // Reads one entry of the "LLLL-CCCCC-HQZnnnnE" form back into its parts;
    // false when the text is not such an entry.
    static bool Parse(std::string_view entry, int64_t& line, int64_t& column, std::string& code);

private:
    std::string m_strLine;
    std::string m_strColumn;
    std::string m_strCode;
};
