#include <gtest/gtest.h>

#include "QZCMacOSNative.h"

namespace {

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
