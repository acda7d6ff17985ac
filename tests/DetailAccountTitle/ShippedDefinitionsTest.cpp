#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "DatTestSupport.h"
#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatCsvFile.h"
#include "QZCDatDefinition.h"
#include "QZCDatITData.h"
#include "QZCDatValidItem.h"
#include "QZCDatXMLDefReport.h"
#include "QZCMacOSNative.h"
#include "TestSupport.h"

// The validation definitions that the bundle ships and the examples that go
// with them: every definition must load without a fault, every clean example
// must check without an entry, and the examples with mistakes must give
// exactly the entries they were written for.

namespace {

namespace fs = std::filesystem;

struct ShippedForm {
    std::string reportId;  // HOI010
    std::string version;   // 4.0
    std::string path;      // the *_vld.xml file
    uint16_t typeCase;     // how the library checks a file of this form
    bool detail() const { return (typeCase & 0x0001) != 0; }
    std::string name() const { return reportId + "_" + version; }
};

// Every *_vld.xml of the two definition folders, by file name.
std::vector<ShippedForm> ShippedForms()
{
    std::vector<ShippedForm> forms;
    const std::pair<const char*, uint16_t> folders[] = {{"AccountTitle", TYPECASE_DETAIL2},
                                                        {"AppendedTable", TYPECASE_APPENDED}};
    for (const auto& [folder, typeCase] : folders) {
        const fs::path dir = fs::path(QZC_BUNDLE_DIR) / folder;
        if (!fs::is_directory(dir)) {
            continue;
        }
        for (const auto& entry : fs::directory_iterator(dir)) {
            const std::string file = entry.path().filename().string();
            const std::string suffix = "_vld.xml";
            if (file.size() <= suffix.size() || file.compare(file.size() - suffix.size(), suffix.size(), suffix) != 0) {
                continue;
            }
            const std::string stem = file.substr(0, file.size() - suffix.size());
            const size_t underscore = stem.find('_');
            if (underscore == std::string::npos) {
                ADD_FAILURE() << "definition without a style version in its name: " << file;
                continue;
            }
            forms.push_back({stem.substr(0, underscore), stem.substr(underscore + 1), entry.path().string(), typeCase});
        }
    }
    std::sort(forms.begin(), forms.end(), [](const ShippedForm& a, const ShippedForm& b) { return a.path < b.path; });
    return forms;
}

std::string ExamplePath(const std::string& file)
{
    return (fs::path(QZC_SOURCE_DIR) / "examples" / "detail" / file).string();
}

// The attributes of one element at the DOM cursor.
std::map<std::string, std::string> Attributes(const QZCDOMParser& dom, std::initializer_list<const char*> names)
{
    std::map<std::string, std::string> values;
    for (const char* name : names) {
        values[name] = dom.GetAttribute(name);
    }
    return values;
}

// Runs a check built from definition attributes over a few probe values. A
// definition fault (missing parameter, minimum above maximum, a bound that
// is not a number) is thrown by the check when it first sees a value.
void ProbeCheck(const std::string& where, const std::map<std::string, std::string>& a)
{
    auto item = QZCDatValidItem::CreateItem(0, a.at("id").c_str(), a.at("value").c_str(), a.at("min").c_str(),
                                            a.at("max").c_str(), MSG_NONE);
    if (!item) {
        ADD_FAILURE() << where << ": unknown check \"" << a.at("id") << "\"";
        return;
    }
    for (const char* probe : {"", "1", "0", "-1", "12.5", "abc", "あ"}) {
        try {
            item->Validate(probe, 1, 1);
        } catch (...) {
            ADD_FAILURE() << where << ": check \"" << a.at("id") << "\" has faulty parameters (probe \"" << probe
                          << "\")";
            return;
        }
    }
    QZCUtility::ClearErrorInfo();
}

// Walks the file as the library reads it and reports what it cannot use.
// Returns the format kubuns of the form's style version.
std::map<std::string, ReportAttr_t> InspectDefinition(const ShippedForm& form, QZCDOMParser& dom)
{
    std::map<std::string, ReportAttr_t> kubun;
    EXPECT_EQ(dom.MoveRoot(), 0);
    if (dom.MoveFirstChild() != 0) {
        ADD_FAILURE() << form.name() << ": no report element";
        return kubun;
    }
    // The file-name check reads the form's id and version on the first child.
    EXPECT_EQ(dom.GetNodeName(), "report") << form.name();
    EXPECT_EQ(dom.GetAttribute("reportId"), form.reportId) << form.name();
    EXPECT_EQ(dom.GetAttribute("reportVR"), form.version) << form.name();
    do {
        if (dom.GetNodeName() != "report" || dom.GetAttribute("reportVR") != form.version) {
            continue;
        }
        const std::string id = dom.GetAttribute("id");
        const std::string where = form.name() + " report " + id;
        EXPECT_EQ(dom.GetAttribute("reportId"), form.reportId) << where;
        const long columns = std::atol(dom.GetAttribute("columnNum").c_str());
        const long maxOccurs = std::atol(dom.GetAttribute("maxOccurs").c_str());
        const std::string bracketed = dom.GetAttribute("bracketed");
        EXPECT_GE(columns, form.detail() ? 3 : 2) << where;
        EXPECT_TRUE(bracketed.empty() || bracketed == "0" || bracketed == "1") << where;
        if (bracketed == "1") {
            EXPECT_GT(maxOccurs, 0) << where << ": a numbered page needs its number of lines";
        }
        EXPECT_TRUE(kubun.emplace(id, ReportAttr_t{columns, maxOccurs, 0}).second) << where << ": id used twice";

        std::set<std::string> rowKinds;
        if (dom.MoveFirstChild() == 0) {
            do {
                if (dom.GetNodeName() != "item") {
                    continue;
                }
                const auto item = Attributes(dom, {"id", "column", "meisaiGoukei", "unit", "parent"});
                const std::string itemWhere = where + " item " + item.at("id");
                EXPECT_FALSE(item.at("id").empty()) << itemWhere << ": an item writes an element and needs a name";
                EXPECT_FALSE(item.at("parent").empty()) << itemWhere << ": not placed in the report";
                const long column = std::atol(item.at("column").c_str());
                EXPECT_LE(column + (item.at("unit") == "1" ? 1 : 0), columns) << itemWhere << ": beyond the last column";
                EXPECT_NE(column, 1) << itemWhere << ": column 1 is the format kubun";
                if (form.detail()) {
                    EXPECT_NE(column, 2) << itemWhere << ": column 2 is the row kind";
                    const std::string& kind = item.at("meisaiGoukei");
                    EXPECT_TRUE(kind == "0" || kind == "1") << itemWhere << ": row kind \"" << kind << "\"";
                    rowKinds.insert(kind);
                }
                if (dom.MoveFirstChild() != 0) {
                    continue;
                }
                do {
                    if (dom.GetNodeName() != "valid") {
                        continue;
                    }
                    const auto valid = Attributes(dom, {"id", "value", "min", "max", "column", "message"});
                    const std::string validWhere = itemWhere + " valid " + valid.at("id");
                    const long validColumn = std::atol(valid.at("column").c_str());
                    EXPECT_TRUE(validColumn >= 1 || column >= 1) << validWhere << ": checks no column";
                    EXPECT_LE(validColumn, columns) << validWhere << ": beyond the last column";
                    if (!valid.at("message").empty()) {
                        EXPECT_NE(QZCDatValidItem::GetMessageNumber(valid.at("message")), MSG_NONE)
                            << validWhere << ": unknown message " << valid.at("message");
                    }
                    ProbeCheck(validWhere, valid);
                    if (dom.MoveFirstChild() != 0) {
                        continue;
                    }
                    do {
                        if (dom.GetNodeName() != "outer") {
                            continue;
                        }
                        const auto outer = Attributes(dom, {"id", "value", "min", "max", "column", "nomsg"});
                        const long outerColumn = std::atol(outer.at("column").c_str());
                        EXPECT_TRUE(outerColumn >= 1 && outerColumn <= columns)
                            << validWhere << ": outer condition on column " << outer.at("column");
                        ProbeCheck(validWhere + " outer", outer);
                    } while (dom.MoveNextSibling() == 0);
                    dom.MoveParent();
                } while (dom.MoveNextSibling() == 0);
                dom.MoveParent();
            } while (dom.MoveNextSibling() == 0);
            dom.MoveParent();
        }
        if (form.detail()) {
            EXPECT_EQ(rowKinds.count("0"), 1u) << where << ": no detail row";
        }
    } while (dom.MoveNextSibling() == 0);

    // A record finds its section by the first id contained in its format
    // kubun, so no id may be part of another.
    for (const auto& [a, unused] : kubun) {
        for (const auto& [b, unused2] : kubun) {
            EXPECT_TRUE(a == b || b.find(a) == std::string::npos) << form.name() << ": " << a << " within " << b;
        }
    }
    return kubun;
}

class ShippedDefinitionsTest : public ::testing::Test {
protected:
    void TearDown() override { QZCDatConvertInfo::destroy(); }

    // Sets up the filer data as a check of this form does and parses its
    // definition.
    void Prepare(const ShippedForm& form)
    {
        QZCDatConvertInfo::destroy();
        QZCDatITData* data = QZCDatConvertInfo::instance()->GetITData();
        data->SetTypeCase(form.typeCase);
        data->Initialize(ARG_VR, form.path.c_str());
        ASSERT_EQ(data->SetITData(ARG_VR, form.version.c_str()), 0) << form.name();
        ASSERT_TRUE(m_dom.Initialize());
        ASSERT_TRUE(m_dom.Parse(form.path.c_str())) << form.path;
    }

    // Reads and checks a CSV file against the prepared form; returns the
    // entries and leaves the read file in m_csv.
    std::string Check(const std::string& csvPath)
    {
        ResetErrors();
        m_readResult = m_csv.ReadFile(csvPath.c_str(), &m_dom);
        if (m_readResult != 0) {
            return takeErrors();
        }
        m_definition.ClearVecRootNode();
        EXPECT_EQ(m_definition.CreateValidDefinition(m_csv.GetFormatKubun(), &m_dom), 0) << csvPath;
        m_validateResult = m_definition.ValidateCsv(&m_csv);
        return takeErrors();
    }

    QZCDOMParser m_dom;
    QZCDatCsvFile m_csv;
    QZCDatDefinition m_definition;
    int m_readResult = 0;
    int m_validateResult = 0;
};

TEST_F(ShippedDefinitionsTest, EveryDefinitionLoadsWithoutFault)
{
    const std::vector<ShippedForm> forms = ShippedForms();
    std::set<std::string> names;
    for (const ShippedForm& form : forms) {
        names.insert(form.name());
    }
    // The forms that the library must be able to check at least.
    for (const char* required : {"HOI010_4.0", "HOI110_3.0", "HOB016_6.0"}) {
        EXPECT_EQ(names.count(required), 1u) << required;
    }
    for (const ShippedForm& form : forms) {
        SCOPED_TRACE(form.path);
        Prepare(form);
        const auto kubun = InspectDefinition(form, m_dom);
        ASSERT_FALSE(kubun.empty());
        QZCDatDefinition definition;
        EXPECT_EQ(definition.CreateValidDefinition(kubun, &m_dom), 0) << "an item cannot be read or placed";
        EXPECT_EQ(definition.CreatePrintDefinition(kubun, &m_dom), 0) << "an item names no parent of the report";
        EXPECT_EQ(definition.GetValidRootNodes().size(), kubun.size());
        EXPECT_EQ(definition.GetPrintRootNodes().size(), kubun.size());
        QZCDatConvertInfo::destroy();
    }
}

TEST_F(ShippedDefinitionsTest, CleanExamplesCheckWithoutEntriesAndWriteEveryValue)
{
    for (const ShippedForm& form : ShippedForms()) {
        SCOPED_TRACE(form.path);
        const std::string example = ExamplePath(form.name() + ".csv");
        ASSERT_TRUE(fs::exists(example)) << "no clean example for " << form.name();
        Prepare(form);
        // Every field holds only characters the service accepts, as the
        // outward checks of a file require before anything else.
        QZCDatCsvFile light;
        ResetErrors();
        EXPECT_EQ(light.ParseSimply(QZCMacOSNative::readSJISFile(example.c_str()).c_str()), 0) << takeErrors();
        EXPECT_EQ(Check(example), "");
        EXPECT_EQ(m_readResult, 0);
        EXPECT_EQ(m_validateResult, 0);
        ASSERT_GT(m_csv.GetRecordCount(), 0);

        // The output tree writes one element per record, and every value of
        // the record appears in it.
        QZCDatDefinition print;
        ASSERT_EQ(print.CreatePrintDefinition(m_csv.GetFormatKubun(), &m_dom), 0);
        const QZCDatITData* data = QZCDatConvertInfo::instance()->GetITData();
        QZCDOMParser fragmentDom;
        ASSERT_TRUE(fragmentDom.Initialize());
        std::string detailElement;
        for (int64_t row = 0; row < m_csv.GetRecordCount(); ++row) {
            QZCDatXMLDefReport* root = QZCDatDefinition::GetRootNode(print.GetPrintRootNodes(), m_csv.GetItem(row, 0));
            ASSERT_NE(root, nullptr) << "record " << row + 1;
            const std::string fragment = root->WriteNode(&m_csv, row, data);
            ASSERT_TRUE(fragmentDom.Parse(("<page>" + fragment + "</page>").c_str(), "fragment", "UTF-8"))
                << fragment;
            ASSERT_EQ(fragmentDom.MoveRoot(), 0);
            EXPECT_EQ(fragmentDom.MoveFirstChild(), 0) << "record " << row + 1 << " writes nothing";
            EXPECT_NE(fragmentDom.MoveNextSibling(), 0) << "record " << row + 1 << " writes two elements: " << fragment;
            // A page writes its elements in name order: the rows' container
            // must come before the total.
            fragmentDom.MoveRoot();
            fragmentDom.MoveFirstChild();
            const std::string element = fragmentDom.GetNodeName();
            if (m_csv.IsMeisai(row, 1) || !form.detail()) {
                detailElement = element;
            } else {
                EXPECT_LT(detailElement, element) << "the total row would be written before the detail rows";
            }
            const std::string kubun = m_csv.GetItem(row, 0);
            const int64_t columns = m_csv.GetFormatKubun().at(kubun.substr(0, kubun.find('('))).columnNum;
            for (int64_t column = form.detail() ? 2 : 1; column < columns; ++column) {
                std::string value = m_csv.GetItem(row, column);
                value.erase(0, value.find_first_not_of('0'));
                EXPECT_NE(fragment.find(value), std::string::npos)
                    << "record " << row + 1 << " column " << column + 1 << " is not written: " << fragment;
            }
        }
        QZCDatConvertInfo::destroy();
    }
}

// Columns of a form that its typical mistakes go into: the first text with a
// length limit, the first era date and the first 15-digit amount of a detail
// row (1-based; 0 when the form has none).
struct MistakeColumns {
    long name = 0;
    long nameMax = 0;
    long date = 0;
    bool fullDate = false;
    long amount = 0;
};

MistakeColumns FindMistakeColumns(QZCDOMParser& dom, const std::string& version)
{
    MistakeColumns found;
    dom.MoveRoot();
    if (dom.MoveFirstChild() != 0) {
        return found;
    }
    do {
        if (dom.GetNodeName() != "report" || dom.GetAttribute("reportVR") != version || dom.MoveFirstChild() != 0) {
            continue;
        }
        do {
            const long itemColumn = std::atol(dom.GetAttribute("column").c_str());
            if (dom.GetNodeName() != "item" || dom.GetAttribute("meisaiGoukei") == "1" || dom.MoveFirstChild() != 0) {
                continue;
            }
            do {
                const std::string id = dom.GetAttribute("id");
                const long validColumn = std::atol(dom.GetAttribute("column").c_str());
                const long column = validColumn >= 1 ? validColumn : itemColumn;
                if (id == "charlength" && validColumn < 1 && found.name == 0) {
                    found.name = column;
                    found.nameMax = std::atol(dom.GetAttribute("max").c_str());
                } else if ((id == "existdate" || id == "existmonth") && found.date == 0) {
                    found.date = column;
                    found.fullDate = id == "existdate";
                } else if (id == "range" && validColumn < 1 && dom.GetAttribute("max") == "999999999999999" &&
                           found.amount == 0) {
                    found.amount = column;
                }
            } while (dom.MoveNextSibling() == 0);
            dom.MoveParent();
        } while (dom.MoveNextSibling() == 0);
        dom.MoveParent();
    } while (dom.MoveNextSibling() == 0);
    return found;
}

// An entry as the error list writes it for the current record count.
std::string Entry(int64_t line, long column, const char* code)
{
    std::string number = std::to_string(line);
    const size_t width = std::to_string(g_nRecordCount).size();
    number.insert(0, width > number.size() ? width - number.size() : 0, '0');
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "-%05ld-", column);
    return number + buffer + code;
}

TEST_F(ShippedDefinitionsTest, EveryFormRefusesTheTypicalMistakes)
{
    for (const ShippedForm& form : ShippedForms()) {
        SCOPED_TRACE(form.path);
        Prepare(form);
        const MistakeColumns columns = FindMistakeColumns(m_dom, form.version);
        EXPECT_GT(columns.name, 0) << "no text with a length limit";
        EXPECT_GT(columns.amount, 0) << "no amount";

        // Each mistake goes alone into the first record of the clean example.
        struct Mistake {
            const char* what;
            long column;
            std::vector<std::string> values;
        };
        std::string tooLong;
        for (long i = 0; i <= columns.nameMax; ++i) {
            tooLong += "あ";
        }
        std::vector<Mistake> mistakes = {
            {"a name one character too long", columns.name, {tooLong}},
            {"an amount of 16 digits", columns.amount, {"1000000000000000"}},
            {"a negative amount", columns.amount, {"-1"}},
        };
        if (columns.date > 0) {
            // 令和6年2月30日 does not exist; 令和元年4月 was still 平成.
            mistakes.push_back({"an impossible era date", columns.date,
                                columns.fullDate ? std::vector<std::string>{"5", "6", "2", "30"}
                                                 : std::vector<std::string>{"5", "1", "4"}});
        }
        for (const Mistake& mistake : mistakes) {
            if (mistake.column <= 0) {
                continue;
            }
            ASSERT_EQ(Check(ExamplePath(form.name() + ".csv")), "");
            for (size_t i = 0; i < mistake.values.size(); ++i) {
                m_csv.SetItem(mistake.values[i], 0, mistake.column - 1 + static_cast<long>(i));
            }
            ResetErrors();
            g_nRecordCount = m_csv.GetRecordCount();
            EXPECT_EQ(m_definition.ValidateCsv(&m_csv), -1) << mistake.what;
            EXPECT_EQ(takeErrors(), Entry(1, mistake.column, "HQZ9620E")) << mistake.what;
        }

        // The total row of a detail statement is checked before any other
        // record, and its first fault stops the check.
        ASSERT_EQ(Check(ExamplePath(form.name() + ".csv")), "");
        const int64_t last = m_csv.GetRecordCount() - 1;
        if (form.detail() && std::string(m_csv.GetRecordMeisaiGoukei(last)) == "1") {
            m_csv.SetItem("1000000000000000", 0, columns.amount - 1);
            m_csv.SetItem("北斗中央銀行", last, columns.name - 1);
            ResetErrors();
            g_nRecordCount = m_csv.GetRecordCount();
            EXPECT_EQ(m_definition.ValidateCsv(&m_csv), -1);
            EXPECT_EQ(takeErrors(), Entry(last + 1, columns.name, "HQZ9610E")) << "a total row that names something";
        }
        QZCDatConvertInfo::destroy();
    }
}

TEST_F(ShippedDefinitionsTest, DepositsWithTypicalMistakes)
{
    ShippedForm deposits{"HOI010", "4.0", std::string(QZC_BUNDLE_DIR) + "/AccountTitle/HOI010_4.0_vld.xml",
                         TYPECASE_DETAIL2};
    Prepare(deposits);
    // A 34-character bank name, 令和7年2月30日, a balance of 16 digits and an
    // account number without the kind of account; the total row is fine.
    EXPECT_EQ(Check(ExamplePath("HOI010_4.0_errors.csv")),
              "2-00003-HQZ9620E,3-00008-HQZ9620E,4-00007-HQZ9620E,5-00005-HQZ9620E");
    EXPECT_EQ(m_readResult, 0);
    EXPECT_EQ(m_validateResult, -1);

    // Row kind 2 does not exist: the file is refused while it is read.
    EXPECT_EQ(Check(ExamplePath("HOI010_4.0_row_kind.csv")), "2-00002-HQZ9600E");
    EXPECT_EQ(m_readResult, -1);
}

}  // namespace
