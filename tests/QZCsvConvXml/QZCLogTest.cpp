#include <cstdlib>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"

namespace {

// Runs with a private home folder and restores the log switch afterwards.
class LogTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_home = std::getenv("HOME") ? std::getenv("HOME") : "";
        ::setenv("HOME", m_dir.path().c_str(), 1);
        QZCLog::m_bOutput = false;
        QZCLog::m_strOutputPath.clear();
    }
    void TearDown() override
    {
        ::setenv("HOME", m_home.c_str(), 1);
        ::unsetenv(QZCLog::kSwitchVariable);
        QZCLog::m_bOutput = false;
        QZCLog::m_strOutputPath.clear();
    }
    std::string logPath() const
    {
        return m_dir.file(QZCMacOSNative::dateTimeNow("'_VORNA_QZCSVCONV_'yyyyMMdd'.log'", nullptr));
    }

    TempDir m_dir;
    std::string m_home;
};

TEST_F(LogTest, NothingIsWrittenWithoutTheSwitch)
{
    QZCLog::InitDebugDump();
    QZC_LOG("QZCCsvConvXML::WriteFileData", "message");
    EXPECT_FALSE(QZCLog::m_bOutput);
    EXPECT_FALSE(QZCMacOSNative::pathFileExists(logPath().c_str()));
}

TEST_F(LogTest, RecordsCarryHeaderMessageAndPosition)
{
    ::setenv(QZCLog::kSwitchVariable, "", 1);
    QZCLog::InitDebugDump();
    ASSERT_TRUE(QZCLog::m_bOutput);
    EXPECT_EQ(QZCLog::m_strOutputPath, logPath());

    QZCLog::OutputLog("/src/QZCsvConvXml/QZCCsvConvXML.cpp", 42, "QZCCsvConvXML::WriteFileData", "ファイル書き込みに失敗しました。");
    QZCLog::OutputLog("x.cpp", 7, "Label", nullptr);
    QZCLog::OutputLog(nullptr, 7, "Label", "ignored");
    QZCLog::OutputLog("x.cpp", 7, nullptr, "ignored");

    std::string text = readBytes(logPath());
    std::string now = QZCMacOSNative::dateTimeNow("yyyy'-'MM'-'dd", nullptr);
    ASSERT_EQ(text.substr(0, 2 + now.size()), "--" + now);
    size_t first = text.find(" QZCCsvConvXML::WriteFileData--\nファイル書き込みに失敗しました。\n[File:QZCCsvConvXML.cpp Line:42]\n\n");
    EXPECT_NE(first, std::string::npos);
    EXPECT_NE(text.find(" Label--\n[File:x.cpp Line:7]\n\n"), std::string::npos);
    EXPECT_EQ(text.find("ignored"), std::string::npos);
}

}  // namespace
