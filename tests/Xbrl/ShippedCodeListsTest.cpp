// The account code lists of the bundle, read as the check reads them: every
// row must give the checks what they rely on, or a filer's correct statement
// comes back with errors the filer cannot fix.
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "QZCCsvFile.h"

namespace {

const std::string kFolder = std::string(QZC_BUNDLE_DIR) + "/Xbrl/V3.0";

struct ListKind {
    const char* kind;
    const char* periodType;  // of every amount of the statement; "" when both occur
};

const ListKind kKinds[] = {
    {"BS", "instant"}, {"PL", "duration"}, {"SC", "duration"}, {"SS", ""},
    {"SE", ""},        {"SR", "duration"}, {"NT", ""},
};

bool isElementName(const std::string& name)
{
    // The first pass admits letters, digits and "-" in an account code, and a
    // "-" would make the code read as an account of the filer's own.
    if (name.empty())
        return false;
    for (char c : name) {
        if (!std::isalnum(static_cast<unsigned char>(c)))
            return false;
    }
    return true;
}

bool endsWith(const std::string& text, const std::string& suffix)
{
    return text.size() >= suffix.size() && text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

// The faults of one list, one text per faulty row.
std::vector<std::string> faults(const QZCCsvFile::Lines& rows, const ListKind& kind)
{
    std::vector<std::string> found;
    std::map<std::string, std::vector<std::string>> seen;
    std::set<std::string> parents;
    for (const std::vector<std::string>& row : rows) {
        const std::string where = row.empty() ? "(empty row)" : row[0];
        auto fault = [&](const std::string& what) { found.push_back(where + ": " + what); };
        if (row.size() < 10) {  // the context id is column 9
            fault("fewer than 10 columns");
            continue;
        }
        const std::string &name = row[0], &period = row[1], &balance = row[2], &abstract = row[3],
                          &tuple = row[4], &parent = row[5], &group = row[7], &context = row[9];
        if (!isElementName(name))
            fault("not an element name");
        if (seen.count(name))
            fault("listed twice");
        if (!parent.empty() && !seen.count(parent))
            fault("parent " + parent + " is not listed before it");
        if (period != "instant" && period != "duration")
            fault("period type " + period);
        if (balance != "" && balance != "debit" && balance != "credit")
            fault("balance " + balance);
        if (abstract != "" && abstract != "true")
            fault("abstract flag " + abstract);
        if (tuple != "" && tuple != "tuple")
            fault("tuple flag " + tuple);
        if (group != "0" && group != "1")
            fault("substitution group " + group);
        if (group == "1" && (!seen.count(parent) || seen.at(parent)[4] != "tuple"))
            fault("required outside a tuple");
        if (abstract == "true" || tuple == "tuple") {
            if (!balance.empty() || !context.empty() || (abstract == "true" && tuple == "tuple"))
                fault("a heading or tuple with a value's attributes");
        } else {
            if (!endsWith(context, period == "instant" ? "Instant" : "Duration"))
                fault("context " + context + " for period type " + period);
            if (*kind.periodType && period != kind.periodType)
                fault("period type " + period + " in this statement");
        }
        seen[name] = row;
        parents.insert(parent);
    }
    for (const auto& [name, row] : seen) {
        if ((row[3] == "true" || row[4] == "tuple") && !parents.count(name))
            found.push_back(name + ": a heading or tuple without accounts");
    }
    return found;
}

class ShippedCodeList : public testing::TestWithParam<ListKind> {};

TEST_P(ShippedCodeList, EveryRowIsSound)
{
    QZCCsvFile file;
    const std::string path = kFolder + "/kamokuCodeList_" + GetParam().kind + ".csv";
    ASSERT_TRUE(file.ReadCsvFile(path.c_str())) << path;
    EXPECT_EQ(faults(file.GetCSVData(), GetParam()), std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(Bundle, ShippedCodeList, testing::ValuesIn(kKinds),
                         [](const testing::TestParamInfo<ListKind>& info) { return std::string(info.param.kind); });

}  // namespace
