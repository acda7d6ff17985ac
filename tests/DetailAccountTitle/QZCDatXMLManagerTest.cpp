#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "DatTestSupport.h"
#include "DetailTestBundle.h"
#include "QZCDatXMLManager.h"

namespace {

class QZCDatXMLManagerTest : public ::testing::Test {
protected:
    // A manager of the type case with a CSV file of that name as its argument.
    std::string Start(uint16_t typeCase, const std::string& name, const std::string& text = "HOI010,0,a\n")
    {
        m_manager = std::make_unique<QZCDatXMLManager>(typeCase);
        m_manager->InitObject();
        ResetErrors();
        const std::string path = m_bundle.Csv(name, text);
        EXPECT_EQ(m_manager->InitForPath(ARG_CSV, path.c_str()), 0) << name;
        EXPECT_EQ(m_manager->InitForPath(ARG_PROPFOLDER, typeCase == TYPECASE_APPENDED ? "AppendedTable" : "AccountTitle"),
                  0);
        return path;
    }
    int NameRule(uint16_t typeCase, const std::string& name)
    {
        const std::string path = Start(typeCase, name);
        return m_manager->IsCorrectCsvFilenameInternal(path);
    }

    DetailTestBundle m_bundle;
    std::unique_ptr<QZCDatXMLManager> m_manager;
};

TEST_F(QZCDatXMLManagerTest, FirstOperationTakesTheFormFromTheNameAndTheVersionFromItsRow)
{
    Start(TYPECASE_DETAIL, "HOI010_2.0.csv");
    EXPECT_EQ(m_manager->SetITData(ARG_VR, " 2.0 "), 0);
    EXPECT_EQ(m_manager->GetReportId(), "HOI010");
    EXPECT_EQ(m_manager->GetIdVr("/"), "HOI010/2.0");
    EXPECT_EQ(m_manager->IsCorrectCsvFilename(m_bundle.Path("HOI010_2.0.csv")), 0);
    EXPECT_EQ(m_manager->IsCorrectCsvFilename(m_bundle.Path("HOI010_4.0.csv")), -1);
    EXPECT_FALSE(m_manager->SetInputReportVersion("2.0"));
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9350E");

    Start(TYPECASE_DETAIL, "HOI010_2.0.csv");
    EXPECT_EQ(m_manager->SetITData(ARG_VR, "3.0"), -1);
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9250E");
}

TEST_F(QZCDatXMLManagerTest, FileNameRule)
{
    EXPECT_EQ(NameRule(TYPECASE_DETAIL, "HOI010_2.0_abc.csv"), 0);
    EXPECT_EQ(m_manager->GetReportId(), "HOI010");
    EXPECT_EQ(NameRule(TYPECASE_DETAIL, "HOI020_1.0.csv"), 0);  // an earlier minor version
    EXPECT_EQ(NameRule(TYPECASE_DETAIL, "HOI010_2.csv"), -1);
    EXPECT_EQ(NameRule(TYPECASE_DETAIL, "HOI010_2.00.csv"), -1);
    EXPECT_EQ(NameRule(TYPECASE_DETAIL, "HOI010_3.0.csv"), -1);
    EXPECT_EQ(NameRule(TYPECASE_DETAIL2, "HOI010_2.0.csv"), -1);
    EXPECT_EQ(NameRule(TYPECASE_DETAIL2, "HOI010_3.0.csv"), 0);
    EXPECT_EQ(NameRule(TYPECASE_DETAIL2, "HOI160_4.0.csv"), 0);  // last slot of the last row
    EXPECT_EQ(NameRule(TYPECASE_DETAIL2, "HOI010_5.0.csv"), -1);
    EXPECT_EQ(NameRule(TYPECASE_APPENDED, "HOD451_7.0.csv"), 0);
    EXPECT_EQ(NameRule(TYPECASE_APPENDED, "HOD451_7.2.csv"), -1);
    EXPECT_EQ(NameRule(TYPECASE_APPENDED, "HOL335_1.0.csv"), 0);  // last pair of the list
    EXPECT_EQ(NameRule(TYPECASE_APPENDED, "HOI010_2.0.csv"), -1);
    EXPECT_EQ(NameRule(TYPECASE_DETAIL2, "HOB016_6.0.csv"), -1);

    EXPECT_TRUE(QZCDatXMLManager::IsValidFilename("HOD451_7", "0", "HOD451", "7.1"));
    EXPECT_FALSE(QZCDatXMLManager::IsValidFilename("HOD451_7", "0", nullptr, "7.1"));
    EXPECT_FALSE(QZCDatXMLManager::IsValidFilename("HOD451_7", "0", "HOD451_7"));
}

TEST_F(QZCDatXMLManagerTest, StyleVersionsOfTheRowsOfATypeCase)
{
    Start(TYPECASE_DETAIL2, "HOI010_3.0.csv");
    EXPECT_TRUE(m_manager->CheckStyleVersion("HOI010", "4.0"));
    EXPECT_TRUE(m_manager->CheckStyleVersion("HOI020", "4.0"));
    EXPECT_FALSE(m_manager->CheckStyleVersion("HOI010", "2.0"));
    EXPECT_FALSE(m_manager->CheckStyleVersion("HOI010", "9.9"));
    EXPECT_EQ(m_manager->SetITData(ARG_VR, "9.9"), -1);
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9250E");
    Start(TYPECASE_DETAIL2, "HOI010_2.0.csv");
    EXPECT_EQ(m_manager->SetITData(ARG_VR, "4.0"), -1);
    EXPECT_EQ(m_manager->GetReportId(), "-");
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9350E");
}

// Only the first detail operation reports a content that names no form.
TEST_F(QZCDatXMLManagerTest, ContentWithoutAForm)
{
    struct Case {
        const char* text;
        const char* firstOperation;
    };
    for (const Case& c : {Case{"\"\",0,x\n", "0001-00001-HQZ9570E"}, Case{"\" \",0,x\n", "0001-00001-HQZ9570E"},
                          Case{"no separator", "0001-00001-HQZ9580E"}}) {
        Start(TYPECASE_DETAIL, "HOI010_2.0.csv", c.text);
        EXPECT_EQ(m_manager->SetITData(ARG_VR, "2.0"), -1);
        EXPECT_EQ(m_manager->GetReportId(), "");
        EXPECT_EQ(takeErrors(), c.firstOperation) << c.text;
        Start(TYPECASE_DETAIL2, "HOI010_4.0.csv", c.text);
        EXPECT_EQ(m_manager->SetITData(ARG_VR, "4.0"), -1);
        EXPECT_EQ(takeErrors(), "") << c.text;
        EXPECT_TRUE(m_manager->SetInputReportVersion("4.0"));
    }
    Start(TYPECASE_DETAIL2, "HOI010_4.0.csv", "\"HOI010\",0,x\n");
    EXPECT_EQ(m_manager->SetITData(ARG_VR, "4.0"), 0);
}

TEST_F(QZCDatXMLManagerTest, OutwardChecksOfTheName)
{
    const std::string stem = "HOI010_4.0_";
    const std::string longest = stem + std::string(125 - stem.size() - 4, 'a') + ".csv";
    std::string path = Start(TYPECASE_DETAIL2, longest);
    EXPECT_EQ(m_manager->AppearanceCheck(path.c_str()), 0);
    path = Start(TYPECASE_DETAIL2, stem + std::string(126 - stem.size() - 4, 'a') + ".csv");
    EXPECT_EQ(m_manager->AppearanceCheck(path.c_str()), -1);
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ9660E");
    path = Start(TYPECASE_DETAIL2, stem + "№.csv");
    EXPECT_EQ(m_manager->AppearanceCheck(path.c_str()), -1);
    EXPECT_EQ(takeErrors(), "0000-00000-HQZ8230E");
    path = Start(TYPECASE_DETAIL2, "HOI010_4.0.csv", "HOI010,0,a\nHOI010,0,№\n");
    EXPECT_EQ(m_manager->SetITData(ARG_VR, "4.0"), 0);
    EXPECT_EQ(m_manager->AppearanceCheck(path.c_str()), -1);
    EXPECT_EQ(takeErrors(), "2-00003-HQZ8230E");
}

}  // namespace
