#include "TestSupport.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "QZCLoadResource.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"

TempDir::TempDir()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "qzc-test-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("cannot create a temporary folder");
    m_path = pattern;
}

TempDir::~TempDir()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TempDir::file(const std::string& name) const
{
    return m_path + "/" + name;
}

void writeBytes(const std::string& path, const std::string& bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(out.good()) << path;
}

void writeShiftJis(const std::string& path, const std::string& utf8Text)
{
    std::optional<std::string> bytes = QZCMacOSNative::utf8ToSjis(utf8Text);
    ASSERT_TRUE(bytes.has_value()) << "no Shift_JIS form: " << utf8Text;
    writeBytes(path, *bytes);
}

std::string readBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

ScopedBundle::ScopedBundle(const std::string& bundle)
{
    const char* previous = std::getenv(QZCLoadResource::kBundleVariable);
    m_hadPrevious = previous != nullptr;
    m_previous = previous ? previous : "";
    ::setenv(QZCLoadResource::kBundleVariable, bundle.c_str(), 1);
}

ScopedBundle::~ScopedBundle()
{
    if (m_hadPrevious)
        ::setenv(QZCLoadResource::kBundleVariable, m_previous.c_str(), 1);
    else
        ::unsetenv(QZCLoadResource::kBundleVariable);
}

std::string takeErrors()
{
    std::string joined = QZCUtility::GetError();
    QZCUtility::ClearErrorInfo();
    return joined;
}

std::string describe(const QZICsvConvResultXML& result)
{
    return result.Result + "|" + result.DetailErrorInfo + "|" + std::to_string(result.Conformity);
}

std::string describe(const QZICsvConvXbrlResultXML& result)
{
    std::string text = result.Result + "|" + result.DetailErrorInfo + "|" + std::to_string(result.XbrlCsvFileCount);
    for (const auto* array : {&result.CsvFileNameArray, &result.CheckResultArray, &result.XbrlTypeArray,
                              &result.StyleVersionArray, &result.CorporateNameArray, &result.FiscalYearFromArray,
                              &result.FiscalYearToArray, &result.GenericCSVArray, &result.DetailErrorInfoArray}) {
        text += "\n[";
        for (const std::string& value : *array)
            text += value + ";";
        text += "]";
    }
    return text;
}
