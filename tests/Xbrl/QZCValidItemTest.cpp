#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "QZCAccountBookValidator.h"
#include "QZCDOMParser.h"
#include "QZCUtility.h"
#include "TestSupport.h"

namespace {

using Line = std::vector<std::string>;

// The validators of one "item" element written in the test.
class Checks {
public:
    explicit Checks(const std::string& valids)
    {
        QZCUtility::ClearErrorInfo();
        const std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><item id=\"T\">" + valids + "</item>";
        EXPECT_TRUE(m_parser.Initialize());
        EXPECT_TRUE(m_parser.Parse(xml.c_str(), "test", "UTF-8"));
        m_built = m_validator.MakeValidItems(m_parser, "T");
    }

    bool built() const { return m_built; }
    // Checks the line and gives the result and the entries it added.
    std::string run(const Line& line, int row = 7)
    {
        const bool ok = m_validator.DoCheck(line, row);
        return std::string(ok ? "ok:" : "ng:") + takeErrors();
    }

private:
    QZCDOMParser m_parser;
    QZCAccountBookValidator m_validator;
    bool m_built = false;
};

TEST(ValidItems, ContinueFlagIsExact)
{
    const char* const later = "<valid id=\"NOTEXIST\" column=\"2\" errorMsg=\"HQZ9620E\"/>";
    Checks goOn(std::string("<valid id=\"EXIST\" column=\"1\" errorMsg=\"HQZ9610E\" continue=\"TRUE\">"
                            "<content value=\"ANYVALUE\"/></valid>") + later);
    EXPECT_EQ(goOn.run({"", "x"}), "ng:0007-00001-HQZ9610E,0007-00002-HQZ9620E");
    EXPECT_EQ(goOn.run({"", ""}), "ok:0007-00001-HQZ9610E");
    Checks stop(std::string("<valid id=\"EXIST\" column=\"1\" errorMsg=\"HQZ9610E\" continue=\"true\">"
                            "<content value=\"ANYVALUE\"/></valid>") + later);
    EXPECT_EQ(stop.run({"", "x"}), "ng:0007-00001-HQZ9610E");
    EXPECT_EQ(stop.run({"a", ""}), "ok:");
    EXPECT_EQ(stop.run({"a"}), "ng:0000-00000-HQZ9560E");  // column 2 is missing
}

TEST(ValidItems, ValueChecks)
{
    Checks length("<valid id=\"LENGTH\" column=\"1\" errorMsg=\"HQZ9620E\"><content length=\"10\" type=\"MAX\"/></valid>");
    EXPECT_EQ(length.run({"あいうえおかきくけこ"}), "ok:");
    EXPECT_EQ(length.run({"あいうえおかきくけこさ"}), "ng:0007-00001-HQZ9620E");
    Checks fixed("<valid id=\"LENGTH\" column=\"1\" errorMsg=\"HQZ9620E\"><content length=\"2\" type=\"FIX\"/></valid>");
    EXPECT_EQ(fixed.run({"BS"}), "ok:");
    EXPECT_EQ(fixed.run({"B"}), "ng:0007-00001-HQZ9620E");

    Checks range("<valid id=\"RANGE\" column=\"1\" errorMsg=\"HQZ9620E\"><content min=\"1\" max=\"12\"/></valid>");
    EXPECT_EQ(range.run({"12"}), "ok:");
    EXPECT_EQ(range.run({"13"}), "ng:0007-00001-HQZ9620E");
    EXPECT_EQ(range.run({"abc"}), "ng:0007-00001-HQZ9620E");

    Checks exist("<valid id=\"EXIST\" column=\"1\" errorMsg=\"HQZ9620E\"><content value=\"A\"/></valid>");
    EXPECT_EQ(exist.run({"A"}), "ok:");
    EXPECT_EQ(exist.run({"a"}), "ng:0007-00001-HQZ9620E");

    Checks select("<valid id=\"SELECT\" column=\"2\" errorMsg=\"HQZ9620E\"><content value=\"1\"/>"
                  "<!-- note --><content value=\"T\"/></valid>");
    EXPECT_EQ(select.run({"x", "T"}), "ok:");
    EXPECT_EQ(select.run({"x", "t"}), "ng:0007-00002-HQZ9620E");

    Checks chars("<valid id=\"CHARTYPE\" column=\"1\" errorMsg=\"HQZ9620E\"><content charType=\"ALPHABET\"/>"
                 "<content charType=\"HYPHEN\"/></valid>");
    EXPECT_EQ(chars.run({"Cash-A"}), "ok:");
    EXPECT_EQ(chars.run({""}), "ok:");
    EXPECT_EQ(chars.run({"Cash_1"}), "ng:0007-00001-HQZ9620E");

    Checks calendar("<valid id=\"CALENDER\" column=\"1\" errorMsg=\"HQZ9620E\"/>");
    EXPECT_EQ(calendar.run({"2024-02-29"}), "ok:");
    EXPECT_EQ(calendar.run({""}), "ng:0007-00001-HQZ9620E");

    Checks fyla("<valid id=\"FYLASTRING\" column=\"1\" errorMsg=\"HQZ8230E\"/>");
    EXPECT_EQ(fyla.run({"株式会社テスト"}), "ok:");
    EXPECT_EQ(fyla.run({"\xF0\x9F\x98\x80"}), "ng:0007-00001-HQZ8230E");

    Checks dates("<valid id=\"DATETYPE\" column=\"2\" errorMsg=\"HQZ9620E\"><content type=\"IncludeCalChk\"/></valid>");
    EXPECT_EQ(dates.run({"C1", "2024-02-29"}), "ok:");
    EXPECT_EQ(dates.run({"C1", "2023-02-29"}), "ng:0007-00002-HQZ9620E");
    EXPECT_EQ(dates.run({"C1", "2023/02/28"}), "ng:0007-00002-HQZ9620E");
}

TEST(ValidItems, ColumnCount)
{
    const char* const valid = "<valid id=\"ELEMENTSCOUNT\" column=\"1\" errorMsg=\"HQZ9300E\"%s><content count=\"5\"/></valid>";
    char withRow[200];
    std::snprintf(withRow, sizeof withRow, valid, " outputRow=\"TRUE\"");
    char withoutRow[200];
    std::snprintf(withoutRow, sizeof withoutRow, valid, "");
    EXPECT_EQ(Checks(withRow).run({"a", "b", "c", "d"}, 12), "ng:0012-00000-HQZ9300E");
    EXPECT_EQ(Checks(withoutRow).run({"a", "b", "c", "d"}, 12), "ng:0000-00000-HQZ9300E");
    EXPECT_EQ(Checks(withoutRow).run({"a", "b", "c", "d", "e"}, 12), "ok:");
}

TEST(ValidItems, StateAcrossLines)
{
    const std::string exclusive =
        "<valid id=\"EXCLUSIVE\" column=\"2\" errorMsg=\"HQZ9620E\"><content value=\"X\"/><content value=\"Y\"/></valid>";
    Checks xy(exclusive);
    EXPECT_EQ(xy.run({"A", "X"}, 1), "ok:");
    EXPECT_EQ(xy.run({"A", "Z"}, 2), "ok:");
    EXPECT_EQ(xy.run({"A", "Y"}, 3), "ng:0003-00002-HQZ9620E");
    Checks xx(exclusive);
    EXPECT_EQ(xx.run({"A", "X"}, 1), "ok:");
    EXPECT_EQ(xx.run({"A", "X"}, 2), "ng:0002-00002-HQZ9620E");

    Checks unique("<valid id=\"UNIQUE\" column=\"1\" errorMsg=\"HQZ9620E\"/>");
    EXPECT_EQ(unique.run({""}, 1), "ok:");
    EXPECT_EQ(unique.run({""}, 2), "ng:0002-00001-HQZ9620E");

    Checks compare("<valid id=\"COMPARE\" column=\"2\" errorMsg=\"HQZ9620E\">"
                   "<content type=\"SMALLER\" column=\"1\" value=\"C1\"/><content type=\"LARGER\" column=\"1\" value=\"C2\"/></valid>");
    EXPECT_EQ(compare.run({"C1", "2024-04-01"}, 3), "ok:");
    EXPECT_EQ(compare.run({"C2", "2024-03-31"}, 4), "ng:0004-00002-HQZ9620E");
    EXPECT_EQ(compare.run({"X", "2099-01-01"}, 5), "ng:0005-00002-HQZ9620E");
    EXPECT_EQ(compare.run({"C2", "2024"}, 6), "ng:0000-00000-HQZ9560E");
}

// A definition that cannot be used is refused as a whole, never run with
// a rule that fails every line.
TEST(ValidItems, UnknownKindAndUnusableParameters)
{
    for (const char* valid : {"<valid id=\"exist\" column=\"1\" errorMsg=\"HQZ9620E\"/>",
                              "<valid id=\"RANGE\" column=\"1\" errorMsg=\"HQZ9620E\"/>",
                              "<valid id=\"ELEMENTSCOUNT\" column=\"1\" errorMsg=\"HQZ9300E\"><note count=\"5\"/></valid>",
                              "<valid id=\"RANGE\" column=\"1\" errorMsg=\"HQZ9620E\"><content min=\"12\" max=\"1\"/></valid>"}) {
        Checks refused(valid);
        EXPECT_FALSE(refused.built()) << valid;
        EXPECT_EQ(takeErrors(), "0000-00000-HQZ9560E") << valid;
    }
}

}  // namespace
