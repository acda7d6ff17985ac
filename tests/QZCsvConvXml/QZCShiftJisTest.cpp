#include <filesystem>

#include <gtest/gtest.h>

#include "QZCMacOSNative.h"
#include "TestSupport.h"

namespace {

TEST(ShiftJis, WindowsCodePage932RoundTrips)
{
    TempDir dir;
    const std::string text = "①髙～\\~ｱ半角カナ\r\n勘定科目";
    ASSERT_TRUE(QZCMacOSNative::writeSJISFile(dir.file("a.csv").c_str(), text, true));
    std::string bytes = readBytes(dir.file("a.csv"));
    EXPECT_EQ(bytes.substr(0, 2), "\x87\x40");  // ①
    EXPECT_EQ(bytes.substr(2, 2), "\xFB\xFC");  // 髙 (IBM extension)
    EXPECT_EQ(bytes.substr(4, 2), "\x81\x60");  // ～
    EXPECT_EQ(bytes.substr(6, 2), "\\~");
    EXPECT_EQ(QZCMacOSNative::readSJISFile(dir.file("a.csv").c_str()), text);
}

TEST(ShiftJis, LargeFilesDecodeAcrossReadChunks)
{
    // Double-byte characters at every offset around the 64 KiB boundaries of
    // the reads, and a lead byte left alone at the very end.
    TempDir dir;
    std::string text(65535, 'a');
    for (int i = 0; i < 70000; ++i)
        text += i % 3 == 2 ? "ｱ" : "あ";
    ASSERT_TRUE(QZCMacOSNative::writeSJISFile(dir.file("big.csv").c_str(), text, true));
    EXPECT_EQ(QZCMacOSNative::readSJISFile(dir.file("big.csv").c_str()), text);
    writeBytes(dir.file("cut.csv"), readBytes(dir.file("big.csv")) + "\x82");
    EXPECT_EQ(QZCMacOSNative::readSJISFile(dir.file("cut.csv").c_str()), "");
}

TEST(ShiftJis, InvalidBytesReadAsEmpty)
{
    TempDir dir;
    writeBytes(dir.file("bad.csv"), std::string("ok,\x81\x20,x", 7));
    EXPECT_EQ(QZCMacOSNative::readSJISFile(dir.file("bad.csv").c_str()), "");
    writeBytes(dir.file("nul.csv"), std::string("ab\0cd", 5));
    EXPECT_EQ(QZCMacOSNative::readSJISFile(dir.file("nul.csv").c_str()), "ab");
    EXPECT_EQ(QZCMacOSNative::readSJISFile(dir.file("missing.csv").c_str()), "");
    EXPECT_EQ(QZCMacOSNative::readSJISFile(dir.path().c_str()), "");
    EXPECT_EQ(QZCMacOSNative::readSJISFile(nullptr), "");
}

TEST(ShiftJis, WritingTextWithoutShiftJisForm)
{
    TempDir dir;
    const std::string existing = dir.file("old.csv");
    writeBytes(existing, "previous");
    EXPECT_FALSE(QZCMacOSNative::writeSJISFile(existing.c_str(), "emoji \U0001F600", true));
    EXPECT_EQ(readBytes(existing), "previous");
    EXPECT_FALSE(QZCMacOSNative::writeSJISFile(existing.c_str(), std::string("\x81\x20", 2), false));
    EXPECT_EQ(readBytes(existing), "previous");

    const std::string fresh = dir.file("new.csv");
    EXPECT_TRUE(QZCMacOSNative::writeSJISFile(fresh.c_str(), "\U0001F600", true));
    EXPECT_EQ(readBytes(fresh), "");
    // Shift_JIS input is written as given and replaces the old content.
    EXPECT_TRUE(QZCMacOSNative::writeSJISFile(existing.c_str(), "\x82\xA0,1\r\n", false));
    EXPECT_EQ(readBytes(existing), "\x82\xA0,1\r\n");
    EXPECT_FALSE(QZCMacOSNative::writeSJISFile(dir.file("no/such/folder.csv").c_str(), "x", true));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 2);
}

}  // namespace
