#include "TestSupport.h"

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <unicode/unistr.h>

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

std::string testData(const std::string& name)
{
    const std::string path = std::string(QZC_SOURCE_DIR) + "/tests/data/" + name;
    EXPECT_TRUE(std::filesystem::is_regular_file(path)) << path;
    return readBytes(path);
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

namespace {

std::string utf8(UChar32 c)
{
    std::string out;
    return icu::UnicodeString(c).toUTF8String(out);
}

std::string unescape(const std::string& field)
{
    std::string out;
    for (size_t i = 0; i < field.size(); ++i) {
        const char c = field[i];
        size_t digits = i + 1;
        while (c == '{' && digits < field.size() && std::isdigit(static_cast<unsigned char>(field[digits])))
            ++digits;
        const size_t close = field.find('}', digits);
        if (digits > i + 1 && field[digits] == '*' && close != std::string::npos) {
            const std::string text = unescape(field.substr(digits + 1, close - digits - 1));
            for (long n = std::stol(field.substr(i + 1, digits - i - 1)); n > 0; --n)
                out += text;
            i = close;
        } else if (c != '\\' || i + 1 == field.size()) {
            out += c;
        } else {
            const char e = field[++i];
            const size_t hexDigits = e == 'x' ? 2 : e == 'u' ? 4 : e == 'U' ? 8 : 0;
            if (hexDigits != 0) {
                const unsigned long value = std::stoul(field.substr(i + 1, hexDigits), nullptr, 16);
                out += e == 'x' ? std::string(1, static_cast<char>(value)) : utf8(static_cast<UChar32>(value));
                i += hexDigits;
            } else {
                out += e == 't' ? '\t' : e == 'r' ? '\r' : e == 'n' ? '\n' : e;
            }
        }
    }
    return out;
}

}  // namespace

std::vector<Case> readCases(const std::string& name, size_t columns)
{
    std::vector<Case> cases;
    std::ifstream in(std::string(QZC_SOURCE_DIR) + "/tests/data/" + name);
    EXPECT_TRUE(in.good()) << "no case table " << name;
    int number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        if (line.empty() || line[0] == '#')
            continue;
        Case c{{}, name + ":" + std::to_string(number)};
        for (size_t start = 0;;) {
            const size_t tab = line.find('\t', start);
            c.fields.push_back(unescape(line.substr(start, tab - start)));
            if (tab == std::string::npos)
                break;
            start = tab + 1;
        }
        EXPECT_LE(c.fields.size(), columns) << c.where;
        c.fields.resize(columns);
        cases.push_back(std::move(c));
    }
    EXPECT_FALSE(cases.empty()) << name;
    return cases;
}
