#include <filesystem>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "QZCMacOSNative.h"

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

TEST(Files, ExistenceSizeAndFolders)
{
    TempDir dir;
    writeBytes(dir.file("out.csv"), "abc");
    EXPECT_TRUE(QZCMacOSNative::pathFileExists(dir.file("out.csv").c_str()));
    EXPECT_FALSE(QZCMacOSNative::pathFileExists(dir.path().c_str()));
    EXPECT_FALSE(QZCMacOSNative::pathFileExists(nullptr));
    EXPECT_EQ(QZCMacOSNative::getFileSize(dir.file("out.csv").c_str()), 3u);
    EXPECT_EQ(QZCMacOSNative::getFileSize(dir.file("none").c_str()), UINT64_MAX);
    EXPECT_TRUE(QZCMacOSNative::pathDirectoryExists(dir.path().c_str(), false));
    EXPECT_FALSE(QZCMacOSNative::pathDirectoryExists(dir.file("out.csv").c_str(), false));
    EXPECT_TRUE(QZCMacOSNative::pathDirectoryExists(dir.file("out.csv").c_str(), true));
    EXPECT_TRUE(QZCMacOSNative::pathDirectoryExists(dir.file("not-yet.csv").c_str(), true));
    EXPECT_FALSE(QZCMacOSNative::pathDirectoryExists(dir.file("x/out.csv").c_str(), true));
    EXPECT_TRUE(QZCMacOSNative::pathFileIsRead(dir.file("out.csv").c_str()));
    EXPECT_FALSE(QZCMacOSNative::pathFileIsRead(dir.file("none").c_str()));
}

TEST(Files, FolderListingIsSortedWithoutFoldersAndDsStore)
{
    TempDir dir;
    for (const char* name : {"b.csv", "A.csv", ".hidden", ".DS_Store", "a.csv"})
        writeBytes(dir.file(name), "x");
    std::filesystem::create_directory(dir.file("sub"));
    writeBytes(dir.file("sub/inner.csv"), "x");
    std::vector<std::string> files{"stale"};
    ASSERT_TRUE(QZCMacOSNative::getFilesUnderFolder(dir.path().c_str(), files));
    EXPECT_EQ(files, (std::vector<std::string>{dir.file(".hidden"), dir.file("A.csv"), dir.file("a.csv"), dir.file("b.csv")}));
    EXPECT_FALSE(QZCMacOSNative::getFilesUnderFolder(dir.file("missing").c_str(), files));
    EXPECT_TRUE(files.empty());
}

TEST(Paths, ComponentsAndJoining)
{
    EXPECT_EQ(QZCMacOSNative::getLastPathComponent("/a/b/HOI010_2.0.csv", true), "HOI010_2.0.csv");
    EXPECT_EQ(QZCMacOSNative::getLastPathComponent("/a/b/HOI010_2.0.csv", false), "HOI010_2.0");
    EXPECT_EQ(QZCMacOSNative::getLastPathComponent("/a/b/", true), "b");
    EXPECT_EQ(QZCMacOSNative::getPathExtension("/a/b.c/data.CSV"), "CSV");
    EXPECT_EQ(QZCMacOSNative::getPathExtension("/a/b.c/data"), "");
    EXPECT_EQ(QZCMacOSNative::appendFilePath("/a/", "b.csv"), "/a/b.csv");
    EXPECT_EQ(QZCMacOSNative::appendFilePath("/a", nullptr), "/a");
    EXPECT_EQ(QZCMacOSNative::appendFilePath(nullptr, "b"), "");
}

TEST(Dates, StrictParsingOfBothCalendars)
{
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2020-04-01"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2020.4.1"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2020/04/01 10:20:30"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2024/02/29"));
    // Days whose local midnight summer time skipped in Tokyo and São Paulo
    // (ctest runs this again under both zones).
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("1948/05/02"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("2018-11-04"));
    EXPECT_TRUE(QZCMacOSNative::dateTimeChange("昭和26年5月6日"));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange("2023/02/29"));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange("2020-02-30"));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange("2020/04/01x"));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange(""));
    EXPECT_FALSE(QZCMacOSNative::dateTimeChange(nullptr));

    std::optional<QZCDate> era = dateStringToDate("令和元年5月1日");
    std::optional<QZCDate> western = dateStringToDate("2019/05/01");
    ASSERT_TRUE(era && western);
    EXPECT_EQ(*era, *western);
    EXPECT_EQ(dateStringToDate("平成31年4月30日"), dateStringToDate("2019/04/30"));
    EXPECT_EQ(dateStringToDate("昭和64年1月7日"), dateStringToDate("1989/01/07"));
    EXPECT_FALSE(dateStringToDate("令和元年2月30日"));
}

TEST(Dates, RangeCodes)
{
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "2020/04/01", "2020/06/30", true), 33);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/04/01", "2020/04/01", "2020/06/30", true), 32);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/04/01", "2020/04/01", "2020/04/01", true), 0);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/07/01", "2020/04/01", "2020/06/30", true), 17);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/03/01", "2020/04/01", "2020/06/30", true), 34);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "2020/04/01", "2020/06/31", true), -4);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", nullptr, "2020/06/30", true), -3);
    EXPECT_EQ(QZCMacOSNative::rangeDate("x", "2020/04/01", "2020/06/30", true), -2);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "", "", false), -5);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "2020/04/01", nullptr, false), 1 + 0xF0);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", nullptr, "2020/05/01", false), 0x0F);
    EXPECT_EQ(QZCMacOSNative::rangeDate("2020/05/01", "bad", nullptr, false), -3);
}

TEST(Text, Utf16CountingAndSubstrings)
{
    EXPECT_EQ(QZCMacOSNative::getCharacterLength("aあ\U0001F600"), 4u);
    EXPECT_EQ(QZCMacOSNative::getCharacterLength(nullptr), 0u);
    EXPECT_EQ(QZCMacOSNative::getStringLength("aあ\U0001F600", 1), 3u);
    EXPECT_EQ(QZCMacOSNative::getStringLength("aあ", 2), 0u);
    EXPECT_EQ(QZCMacOSNative::subStringWithCharacterLength("ABC", 5, 2), "ABC");
    EXPECT_EQ(QZCMacOSNative::subStringWithCharacterLength("ABCDE", 1, 10), "BCDE");
    EXPECT_EQ(QZCMacOSNative::subStringWithCharacterLength("ABCDE", 1, 0), "");
    EXPECT_EQ(QZCMacOSNative::subStringWithCharacterLength("あいうえお", 1, 2), "いう");
    EXPECT_TRUE(QZCMacOSNative::isAllMultiByteString("全角"));
    EXPECT_TRUE(QZCMacOSNative::isAllMultiByteString(""));
    EXPECT_FALSE(QZCMacOSNative::isAllMultiByteString("全角a"));
}

TEST(Text, TrimmingUsesTheUnicodeWhitespaceSet)
{
    EXPECT_EQ(QZCMacOSNative::stringByTrimming("\u3000ABC\u3000"), "ABC");
    EXPECT_EQ(QZCMacOSNative::stringByTrimming("\u0085\t a b \r\n\u00A0\u2028"), "a b");
    EXPECT_EQ(QZCMacOSNative::stringByTrimming(" \u3000 "), "");
    EXPECT_EQ(QZCMacOSNative::stringByTrimming("全角\u3000"), "全角");
    EXPECT_EQ(QZCMacOSNative::characterByTrimming("\x81\x40\x82\xA0 ", false), "\x82\xA0");
    EXPECT_EQ(QZCMacOSNative::characterByTrimming(" x ", true), "x");
}

TEST(Text, NumberSyntax)
{
    struct Case {
        const char* text;
        bool exponent;
        int expected;
    };
    const Case cases[] = {
        {"12", false, 0}, {"-3.5", false, 0}, {"5.", false, 0}, {".5", false, 0}, {"+7", false, 0},
        {"1.5E+3", true, 0}, {"1E+5", true, 0}, {"1E+5", false, -2}, {"1E5", true, -3}, {"1E+", true, -3},
        {"１２", false, -1}, {"12a", false, -2}, {"", false, -3}, {"-", false, -3}, {"1.2.3", false, -3},
        {"-.5", false, -3}, {"1-2", false, -3}, {"E5", true, -2}, {nullptr, false, -3},
    };
    for (const Case& c : cases)
        EXPECT_EQ(QZCMacOSNative::isNumberString(c.text, c.exponent), c.expected) << (c.text ? c.text : "(null)");
}

}  // namespace
