#include <gtest/gtest.h>

#include <sstream>
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

// The rules of tests/data/statements-valid-items.tsv over one line each.
TEST(ValidItems, CaseTable)
{
    for (const Case& c : readCases("statements-valid-items.tsv", 4)) {
        SCOPED_TRACE(c.where);
        Checks checks(c[0]);
        if (c[2] == "refused") {
            EXPECT_FALSE(checks.built());
            EXPECT_EQ(takeErrors(), "0000-00000-HQZ9560E");
            continue;
        }
        Line line;
        std::istringstream fields(c[1]);
        for (std::string field; std::getline(fields, field, ',');)
            line.push_back(field);
        if (c[1].empty() || c[1].back() == ',')
            line.push_back("");
        EXPECT_EQ(checks.run(line, c[3].empty() ? 7 : std::stoi(c[3])), c[2]);
    }
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

}  // namespace
