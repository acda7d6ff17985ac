#pragma once

#include <string>

// One error entry under construction: line, column and message code,
// normalised to the "LLLL-CCCCC-HQZnnnnE" form.
class QZCErrorInfo {
public:
    virtual ~QZCErrorInfo() = default;

    void SetInfo(const char* line, const char* column, const char* code);
    std::string GetErrorInfo() const;

private:
    std::string m_strLine;
    std::string m_strColumn;
    std::string m_strCode;
};
