#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

// Result of the path and file checks of a CSV argument.
enum CheckFileRS {
    CHECK_FILE_OK = 0,
    CHECK_FILE_EMPTY_PATH = 1,
    CHECK_FILE_BAD_EXTENSION = 2,
    CHECK_FILE_NOT_FOUND = 3,
    CHECK_FILE_NOT_READABLE = 4,
    CHECK_FILE_NO_DATA = 5,
    CHECK_FILE_EXCEPTION = 6
};

// Codes whose presence in an error entry stops the check of a file.
constexpr size_t QZC_GENERAL_CHECK_ERROR_COUNT = 23;
extern const std::string generalChackErrorList[QZC_GENERAL_CHECK_ERROR_COUNT];

// Checks the arguments of a financial statements check (a CSV file or a
// folder, and the style version) before any CSV file is opened. The first
// failure adds one parameter error and ends the check.
class QZCParamCheck {
public:
    QZCParamCheck();
    virtual ~QZCParamCheck() = default;

    bool ParamCheckOfCheckMethod2(const char* csvFile, const char* csvFolder, const char* styleVersion);
    bool ParamCheck2(const char* csvFile, const char* csvFolder, const char* styleVersion,
                     const std::vector<int>& paramNumbers);

    bool CheckInputCSVFile(int paramNumber, const std::string& path, const std::vector<std::string>& extensions,
                           const std::map<CheckFileRS, std::string>& codes);
    static CheckFileRS CheckPathString(const std::string& path, const std::vector<std::string>& extensions);
    static CheckFileRS CheckFile(const std::string& path);
    static bool CheckExistsFolder(int paramNumber, const std::string& folder);
    static bool isUseFileParam(const char* csvFile);
    static bool GetFileNameList(const std::string& folder, std::vector<std::string>& names);

private:
    std::map<CheckFileRS, std::string> m_mapCheckFileCodes;
};
