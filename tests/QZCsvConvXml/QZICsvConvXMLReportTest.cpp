// Every shipped detail example through the operation of its kind, and the
// report XML of the ones that can be converted.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "QZCDOMParser.h"
#include "QZICsvConvXML.h"
#include "TestSupport.h"

namespace {

namespace fs = std::filesystem;

const fs::path kExamples = fs::path(QZC_SOURCE_DIR) / "examples" / "detail";

bool isAppendedTable(const fs::path& file)
{
    return file.filename().string().rfind("HOB", 0) == 0;
}

// The style version written in the file name, as in HOI010_4.0.csv.
std::string styleVersion(const fs::path& file)
{
    std::string stem = file.stem().string();
    size_t start = stem.find('_') + 1;
    return stem.substr(start, stem.find('_', start) - start);
}

bool parses(const std::string& xml)
{
    QZCDOMParser parser;
    return parser.Initialize() && parser.Parse(xml.c_str(), "report", "UTF-8");
}

class ShippedExamplesTest : public ::testing::Test {
protected:
    ScopedBundle m_bundle{QZC_BUNDLE_DIR};
    QZICsvConvXML m_library;
};

TEST_F(ShippedExamplesTest, CleanExamplesConvertWithWellFormedReports)
{
    int checked = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(kExamples)) {
        const fs::path file = entry.path();
        if (file.extension() != ".csv")
            continue;  // the files with mistakes are in a folder of their own
        const std::string path = file.string();
        const std::string version = styleVersion(file);
        QZICsvConvResultXML result = isAppendedTable(file)
                                         ? m_library.CsvCheckToAppendedTable(path.c_str(), version.c_str())
                                         : m_library.CsvCheckToDetailAccountTitle2(path.c_str(), version.c_str());
        EXPECT_EQ(result.Result, "S_OK") << path;
        EXPECT_EQ(result.Conformity, 1) << path;
        EXPECT_EQ(result.DetailErrorInfo, "") << path;

        std::string report;
        QZICsvConvResultXML reported = m_library.CsvReportToXml(path.c_str(), version.c_str(), report);
        EXPECT_EQ(reported.Conformity, 1) << path;
        EXPECT_EQ(report.rfind("<?xml version=\"1.0\" encoding=\"UTF-8\"?>", 0), 0u) << path;
        EXPECT_NE(report.find(" page=\"1\""), std::string::npos) << path;
        EXPECT_TRUE(parses(report)) << path;
        ++checked;
    }
    EXPECT_GE(checked, 19);
}

TEST_F(ShippedExamplesTest, ReportsFollowTheConformity)
{
    std::string report;
    const std::string errors = (kExamples / "with-errors" / "HOI010_4.0_預貯金等.csv").string();
    QZICsvConvResultXML warned = m_library.CsvReportToXml(errors.c_str(), "4.0", report);
    EXPECT_EQ(warned.Conformity, 2);
    EXPECT_NE(warned.DetailErrorInfo.find("HQZ9620E"), std::string::npos);
    EXPECT_TRUE(parses(report));

    // A frame error stops the reading: nothing complete to convert.
    const std::string rowKind = (kExamples / "with-errors" / "HOI010_4.0_預貯金等_フォーマット区分.csv").string();
    QZICsvConvResultXML frame = m_library.CsvReportToXml(rowKind.c_str(), "4.0", report);
    EXPECT_EQ(frame.Conformity, 2);
    EXPECT_EQ(report, "");

    const std::string clean = (kExamples / "HOI010_4.0_預貯金等.csv").string();
    QZICsvConvResultXML refused = m_library.CsvReportToXml(clean.c_str(), "9.9", report);
    EXPECT_EQ(refused.Result, "E_FAIL");
    EXPECT_EQ(report, "");
}

}  // namespace
