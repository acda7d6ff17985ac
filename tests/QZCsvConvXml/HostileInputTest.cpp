// Numbers beyond anything a real file holds, in the CSV files and in the
// definitions, and files too large to read: every check answers as it does
// for the nearest ordinary value, without undefined behaviour (the sanitizer
// build runs the same cases).
#include <filesystem>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "QZCMacOSNative.h"
#include "QZCUtility.h"
#include "QZICsvConvXML.h"
#include "TestSupport.h"

namespace {

namespace fs = std::filesystem;

const std::string kHuge = "99999999999999999999";

std::string ReplaceAll(const std::string& text, const std::string& pattern, const std::string& replacement)
{
    return std::regex_replace(text, std::regex(pattern), replacement);
}

// A copy of the bundle with one definition file replaced.
class EditedBundle {
public:
    EditedBundle(const std::string& definition, const std::string& text)
        : m_bundle(m_dir.file("QZCsvConvXml.bundle"))
    {
        fs::copy(QZC_BUNDLE_DIR, m_bundle, fs::copy_options::recursive);
        writeBytes(m_bundle + "/" + definition, text);
        m_scope.emplace(m_bundle);
    }

private:
    TempDir m_dir;
    std::string m_bundle;
    std::optional<ScopedBundle> m_scope;
};

std::string CheckDetail(const std::string& dir, const std::string& name, const std::string& version,
                        const std::string& csv)
{
    const std::string path = dir + "/" + name;
    writeShiftJis(path, csv);
    return describe(QZICsvConvXML().CsvCheckToDetailAccountTitle2(path.c_str(), version.c_str()));
}

std::string CheckStatements(const std::string& folder, const std::string& name, const std::string& csv)
{
    fs::remove_all(folder);
    fs::create_directories(folder);
    writeShiftJis(folder + "/" + name, csv);
    return describe(QZICsvConvXML().CsvCheckToXbrl2(folder.c_str(), "3.0"));
}

TEST(HostileNumbers, ReadFromTheirStartWithinInt32)
{
    const struct {
        const char* text;
        int64_t value;
    } cases[] = {
        {"12", 12},          {" \t7", 7},          {"+3", 3},           {"-4", -4},
        {"5x", 5},           {"", 0},              {"x9", 0},           {"-", 0},
        {"2147483647", INT32_MAX},                 {"2147483648", INT32_MAX},
        {"-2147483648", INT32_MIN},                {"-2147483649", INT32_MIN},
        {"99999999999999999999", INT32_MAX},       {"-99999999999999999999", INT32_MIN},
    };
    for (const auto& c : cases)
        EXPECT_EQ(QZCUtility::LeadingInteger(c.text), c.value) << c.text;
}

// Fields of a detail file far beyond any real value (era code, date parts,
// amount, page number) are wrong values of their column.
TEST(HostileNumbers, DetailFieldsAreWrongValues)
{
    const auto line = [](const std::string& kubun, const std::string& date, const std::string& amount) {
        return kubun + ",0,,,株式会社さかえ工業," + date + ",5,08,04,30,北斗中央銀行,本店営業部," + amount + ",,\n";
    };
    const struct {
        std::string csv;
        const char* answer;
    } cases[] = {
        {line("2", kHuge + ",07,12,20", "3850000"), "S_OK|1-00006-HQZ9620E|2"},
        {line("2", "-" + kHuge + ",07,12,20", "3850000"), "S_OK|1-00006-HQZ9620E|2"},
        {line("2", "5," + kHuge + ",12,20", "3850000"), "S_OK|1-00006-HQZ9620E,1-00007-HQZ9620E|2"},
        {line("2", "5,07," + kHuge + "," + kHuge, "3850000"), "S_OK|1-00006-HQZ9620E,1-00008-HQZ9620E,1-00009-HQZ9620E|2"},
        {line("2", "5,07,12,20", kHuge), "S_OK|1-00016-HQZ9620E|2"},
        {line("2(" + kHuge + ")", "5,07,12,20", "3850000"), "S_OK|1-00001-HQZ9580E|2"},
    };
    TempDir dir;
    for (const auto& c : cases)
        EXPECT_EQ(CheckDetail(dir.path(), "HOI020_4.0.csv", "4.0", c.csv), c.answer) << c.csv;
}

// Numeric parameters of a validation definition beyond 32 bits answer like
// the largest (or smallest) 32-bit value: columns, counts, lengths, limits,
// page flags.
TEST(HostileNumbers, DefinitionParametersAnswerLikeTheInt32Limits)
{
    const std::string definition = "AccountTitle/HOI020_4.0_vld.xml";
    const std::string shipped = readBytes(std::string(QZC_BUNDLE_DIR) + "/" + definition);
    const std::string csv = readBytes(std::string(QZC_SOURCE_DIR) + "/examples/detail/HOI020_4.0_受取手形.csv");
    const auto check = [&](const std::string& text) {
        EditedBundle bundle(definition, text);
        TempDir dir;
        writeBytes(dir.file("HOI020_4.0.csv"), csv);
        return describe(QZICsvConvXML().CsvCheckToDetailAccountTitle2(dir.file("HOI020_4.0.csv").c_str(), "4.0"));
    };
    // Where each parameter goes, $N standing for the number.
    const std::pair<const char*, const char*> edits[] = {
        {" column=\"[^\"]*\"", " column=\"$N\""},
        {" columnNum=\"[^\"]*\"", " columnNum=\"$N\""},
        {" maxOccurs=\"[^\"]*\"", " maxOccurs=\"$N\""},
        {" max=\"[^\"]*\"", " max=\"$N\""},
        {" value=\"[^\"]*\"", " value=\"$N\""},
        {"<report ", "<report columnNumEx=\"18 $N\" maxOccursPerTag=\"$N\" bracketed=\"$N\" "},
    };
    for (const auto& [pattern, replacement] : edits) {
        for (const auto& [hostile, limit] : {std::pair{kHuge, "2147483647"}, std::pair{"-" + kHuge, "-2147483648"}}) {
            const std::string edited = ReplaceAll(shipped, pattern, ReplaceAll(replacement, "\\$N", hostile));
            ASSERT_NE(edited, shipped) << pattern;
            EXPECT_EQ(check(edited), check(ReplaceAll(shipped, pattern, ReplaceAll(replacement, "\\$N", limit))))
                << pattern << " " << hostile;
        }
    }
}

// Layer numbers at the ends of an int, of repeated groups that open and close
// at that layer, answer like a layer beyond the checked range, also with a
// check definition that lets every layer through to the account checks.
TEST(HostileNumbers, LayersAtTheEndsOfAnInt)
{
    const std::string definition = "Xbrl/V3.0/QZCAccountBookCheckDefinition2.xml";
    const std::string shipped = readBytes(std::string(QZC_BUNDLE_DIR) + "/" + definition);
    const std::string open = ReplaceAll(shipped, "<valid id=\"RANGE\" column=\"4\"[^\n]*\n", "");
    ASSERT_NE(open, shipped);
    const auto notes = [](const std::string& layer) {
        return "A,NT,,,\nB,株式会社みなと商事,,,\nC1,2024-04-01,,,\nC2,2025-03-31,,,\n個別注記表,,,,\n"
               "発行済株式の種類及び総数,,T," + layer + ",IssuedShares\n"
               "自己株式の種類及び株式数,,T," + layer + ",TreasuryShares\n"
               "発行済株式の種類及び総数,,T," + layer + ",IssuedShares\n"
               "その他,1,1," + layer + ",Other\n";
    };
    TempDir dir;
    const std::string folder = dir.file("statements");
    for (const std::string* text : {&shipped, &open}) {
        EditedBundle bundle(definition, *text);
        const std::string ordinary = CheckStatements(folder, "HOT010_3.0_NT.csv", notes("6000"));
        for (const std::string& layer : {std::string("2147483647"), std::string("2147483648"), kHuge})
            EXPECT_EQ(CheckStatements(folder, "HOT010_3.0_NT.csv", notes(layer)), ordinary) << layer;
        EXPECT_EQ(CheckStatements(folder, "HOT010_3.0_NT.csv", notes("-" + kHuge)),
                  CheckStatements(folder, "HOT010_3.0_NT.csv", notes("-6000")));
        const auto line = [](const std::string& layer) {
            return "A,BS,,,\nB,株式会社みなと商事,,,\nC1,2024-04-01,,,\nC2,2025-03-31,,,\nx,1,1," + layer + ",y\n";
        };
        EXPECT_EQ(CheckStatements(folder, "HOT010_3.0_BS.csv", line("2147483647")),
                  CheckStatements(folder, "HOT010_3.0_BS.csv", line("6000")));
    }
}

// A file larger than the readers take is refused from its size, before any
// of it is read, with the entry of a file that cannot be read. The file is
// sparse: it takes no room on the disk.
TEST(HostileFiles, TooLargeToReadIsRefusedFromItsSize)
{
    TempDir dir;
    const auto sparse = [](const std::string& path) {
        const int fd = ::open(path.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0644);
        ASSERT_GE(fd, 0);
        EXPECT_EQ(::ftruncate(fd, static_cast<off_t>(QZCMacOSNative::kMaxReadableFileSize + 1)), 0);
        ::close(fd);
    };
    sparse(dir.file("HOI010_4.0.csv"));
    EXPECT_FALSE(QZCMacOSNative::pathFileIsRead(dir.file("HOI010_4.0.csv").c_str()));
    for (const auto& check : {&QZICsvConvXML::CsvCheckToDetailAccountTitle, &QZICsvConvXML::CsvCheckToDetailAccountTitle2,
                              &QZICsvConvXML::CsvCheckToAppendedTable}) {
        EXPECT_EQ(describe((QZICsvConvXML().*check)(dir.file("HOI010_4.0.csv").c_str(), "4.0")),
                  describe((QZICsvConvXML().*check)(dir.file("missing/HOI010_4.0.csv").c_str(), "4.0")));
    }

    // In a folder of statements the large file gets the entry of an empty one.
    const std::string folder = dir.file("statements");
    const std::string empty = CheckStatements(folder, "HOT010_3.0_BS.csv", "");
    sparse(folder + "/HOT010_3.0_BS.csv");
    EXPECT_EQ(describe(QZICsvConvXML().CsvCheckToXbrl2(folder.c_str(), "3.0")), empty);
}

}  // namespace
