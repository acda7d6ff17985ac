#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "QZCUtility.h"
#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatDefinition.h"
#include "QZCDatITData.h"
#include "QZCDatValidItem.h"
#include "QZCDatXMLManager.h"
#include "QZICsvConvXML.h"
#include "TestSupport.h"

// The validation definitions that the bundle ships. The examples and what
// the tool answers for them are data (examples/**/NAME.expected.json, run by
// the tool's example test); here are the checks that need code: every
// definition loads, every version of the version table has one, a file that
// fills every column of a version to its limits passes, the reports of the
// clean examples name their fields by the schema's item ids, and the labels
// of the items change no answer.

namespace {

namespace fs = std::filesystem;

const fs::path kBundle = QZC_BUNDLE_DIR;
const fs::path kExamples = fs::path(QZC_SOURCE_DIR) / "examples" / "detail";

struct ShippedForm {
    std::string reportId;  // HOI010
    std::string version;   // 4.0
    std::string path;      // the *_vld.xml file
    bool appended;
    std::string name() const { return reportId + "_" + version; }
};

// Every *_vld.xml of the two definition folders, by file name.
std::vector<ShippedForm> ShippedForms()
{
    std::vector<ShippedForm> forms;
    for (const char* folder : {"AccountTitle", "AppendedTable"}) {
        for (const auto& entry : fs::directory_iterator(kBundle / folder)) {
            const std::string file = entry.path().filename().string();
            const size_t underscore = file.find('_');
            const size_t suffix = file.rfind("_vld.xml");
            if (underscore == std::string::npos || suffix == std::string::npos || suffix <= underscore) {
                ADD_FAILURE() << "not a definition name: " << file;
                continue;
            }
            forms.push_back({file.substr(0, underscore), file.substr(underscore + 1, suffix - underscore - 1),
                             entry.path().string(), std::string(folder) == "AppendedTable"});
        }
    }
    std::sort(forms.begin(), forms.end(), [](const ShippedForm& a, const ShippedForm& b) { return a.path < b.path; });
    return forms;
}

// Whether the first detail operation (version table row 1) takes the version.
bool FirstOperationVersion(const std::string& reportId, const std::string& version)
{
    return QZCDatXMLManager(TYPECASE_DETAIL).CheckStyleVersion(reportId, version);
}

// The answer of the operation that checks a file of the form's version.
std::string Check(const ShippedForm& form, const std::string& csv)
{
    QZICsvConvXML library;
    if (form.appended)
        return describe(library.CsvCheckToAppendedTable(csv.c_str(), form.version.c_str()));
    if (FirstOperationVersion(form.reportId, form.version))
        return describe(library.CsvCheckToDetailAccountTitle(csv.c_str(), form.version.c_str()));
    return describe(library.CsvCheckToDetailAccountTitle2(csv.c_str(), form.version.c_str()));
}

std::map<std::string, std::string> Attributes(const QZCDOMParser& dom, std::initializer_list<const char*> names)
{
    std::map<std::string, std::string> values;
    for (const char* name : names) {
        values[name] = dom.GetAttribute(name);
    }
    return values;
}

// A check built from definition attributes, run over a few probe values: a
// definition fault (missing parameter, minimum above maximum, a bound that
// is not a number) is thrown when the check first sees a value.
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
            ADD_FAILURE() << where << ": check \"" << a.at("id") << "\" has faulty parameters";
            return;
        }
    }
    QZCUtility::ClearErrorInfo();
}

// Walks the file as the library reads it and reports what it cannot use;
// returns the format kubuns of the form's style version.
std::map<std::string, ReportAttr_t> InspectDefinition(const ShippedForm& form, QZCDOMParser& dom)
{
    std::map<std::string, ReportAttr_t> kubun;
    EXPECT_EQ(dom.MoveRoot(), 0);
    if (dom.MoveFirstChild() != 0) {
        ADD_FAILURE() << form.name() << ": no report element";
        return kubun;
    }
    // The file-name check reads the form's id and version on the first child.
    EXPECT_EQ(dom.GetAttribute("reportId"), form.reportId) << form.name();
    EXPECT_EQ(dom.GetAttribute("reportVR"), form.version) << form.name();
    do {
        const std::string id = dom.GetAttribute("id");
        const std::string where = form.name() + " report " + id;
        EXPECT_EQ(dom.GetNodeName(), "report") << where;
        EXPECT_EQ(dom.GetAttribute("reportId"), form.reportId) << where;
        EXPECT_EQ(dom.GetAttribute("reportVR"), form.version) << where;
        const long columns = std::atol(dom.GetAttribute("columnNum").c_str());
        EXPECT_GT(std::atol(dom.GetAttribute("maxOccurs").c_str()), 0) << where << ": rows a page";
        EXPECT_TRUE(kubun.emplace(id, ReportAttr_t{columns, 0, 0}).second) << where << ": id used twice";

        std::set<std::string> rowKinds;
        if (dom.MoveFirstChild() != 0) {
            ADD_FAILURE() << where << ": no items";
            continue;
        }
        do {
            const auto item = Attributes(dom, {"id", "column", "meisaiGoukei", "unit", "parent"});
            const std::string itemWhere = where + " item " + item.at("id");
            EXPECT_EQ(dom.GetNodeName(), "item") << itemWhere;
            EXPECT_FALSE(item.at("parent").empty()) << itemWhere << ": not placed in the report";
            const long column = std::atol(item.at("column").c_str());
            EXPECT_LE(column + (item.at("unit") == "1" ? 1 : 0), columns) << itemWhere << ": beyond the last column";
            EXPECT_TRUE(column == 0 || column > (form.appended ? 1 : 2)) << itemWhere << ": the record's frame";
            rowKinds.insert(item.at("meisaiGoukei"));
            if (dom.MoveFirstChild() != 0) {
                continue;
            }
            do {
                const auto valid = Attributes(dom, {"id", "value", "min", "max", "column", "message"});
                const std::string validWhere = itemWhere + " valid " + valid.at("id");
                const long validColumn = std::atol(valid.at("column").c_str());
                EXPECT_TRUE(validColumn >= 1 || column >= 1) << validWhere << ": checks no column";
                EXPECT_LE(validColumn, columns) << validWhere << ": beyond the last column";
                if (!valid.at("message").empty()) {
                    EXPECT_NE(QZCDatValidItem::GetMessageNumber(valid.at("message")), MSG_NONE) << validWhere;
                }
                ProbeCheck(validWhere, valid);
                if (dom.MoveFirstChild() == 0) {
                    const auto outer = Attributes(dom, {"id", "value", "min", "max", "column", "nomsg"});
                    const long outerColumn = std::atol(outer.at("column").c_str());
                    EXPECT_TRUE(outerColumn >= 1 && outerColumn <= columns) << validWhere << ": outer condition";
                    ProbeCheck(validWhere + " outer", outer);
                    dom.MoveParent();
                }
            } while (dom.MoveNextSibling() == 0);
            dom.MoveParent();
        } while (dom.MoveNextSibling() == 0);
        dom.MoveParent();
        // A detail statement names the row kinds it takes: detail and total.
        if (!form.appended) {
            EXPECT_EQ(rowKinds.count("0") + rowKinds.count("1"), 2u) << where;
        }
    } while (dom.MoveNextSibling() == 0);

    // A record finds its table by the first id that its format kubun
    // contains, so no id may be part of another.
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
    ScopedBundle m_bundle{kBundle.string()};
};

TEST_F(ShippedDefinitionsTest, EveryVersionOfTheTableLoadsWithoutFault)
{
    std::set<std::string> detailVersions;
    for (const ShippedForm& form : ShippedForms()) {
        SCOPED_TRACE(form.path);
        QZCDatConvertInfo::destroy();
        QZCDatITData* data = QZCDatConvertInfo::instance()->GetITData();
        data->SetTypeCase(form.appended ? TYPECASE_APPENDED : TYPECASE_DETAIL2);
        data->Initialize(ARG_VR, form.path.c_str());
        ASSERT_EQ(data->SetITData(ARG_VR, form.version.c_str()), 0);
        QZCDOMParser dom;
        ASSERT_TRUE(dom.Initialize());
        ASSERT_TRUE(dom.Parse(form.path.c_str()));
        const auto kubun = InspectDefinition(form, dom);
        ASSERT_FALSE(kubun.empty());
        QZCDatDefinition definition;
        EXPECT_EQ(definition.CreateValidDefinition(kubun, &dom), 0) << "an item cannot be read or placed";
        EXPECT_EQ(definition.CreatePrintDefinition(kubun, &dom), 0) << "an item names no parent of the report";
        if (!form.appended) {
            // Every detail definition is one of a version of the table.
            EXPECT_TRUE(FirstOperationVersion(form.reportId, form.version) ||
                        QZCDatXMLManager(TYPECASE_DETAIL2).CheckStyleVersion(form.reportId, form.version));
            detailVersions.insert(form.name());
        }
    }
    // ... and the table's rows 1 to 4 hold 58 pairs.
    EXPECT_EQ(detailVersions.size(), 58u);
}

TEST_F(ShippedDefinitionsTest, FilesFilledToTheLimitsOfTheirLayoutPass)
{
    // Blocks of the generated file: "detail NAME.csv" or "appended NAME.csv",
    // then the records, then a blank line.
    std::ifstream in(fs::path(QZC_SOURCE_DIR) / "tests" / "DetailAccountTitle" / "ShippedLayouts.txt");
    std::map<std::string, std::string> files;
    std::string file;
    for (std::string line; std::getline(in, line);) {
        if (line.empty()) {
            file.clear();
        } else if (file.empty()) {
            file = line.substr(line.find(' ') + 1);
            files[file];
        } else {
            files[file] += line + "\r\n";
        }
    }
    TempDir dir;
    for (const ShippedForm& form : ShippedForms()) {
        const std::string name = form.name() + "_layout.csv";
        ASSERT_EQ(files.count(name), 1u) << name;
        writeShiftJis(dir.file(name), files[name]);
        const std::string conformity = form.appended || !FirstOperationVersion(form.reportId, form.version) ? "1" : "0";
        EXPECT_EQ(Check(form, dir.file(name)), "S_OK||" + conformity) << name << "\n" << files[name];
        files.erase(name);
    }
    EXPECT_TRUE(files.empty()) << files.begin()->first << " has no definition";
}

TEST_F(ShippedDefinitionsTest, CleanExampleReportsNameTheirFieldsAsTheSchema)
{
    // Elements of a page: the tables and their rows, the schema's item ids,
    // and the parts of an era date.
    const std::regex names("CONTENTS|HOI[0-9]{3}|table[0-9-]+(-total)?|row|[A-Z]{3}[0-9]{5}|era|yy|mm|dd");
    const std::regex element("<([A-Za-z][^ />]*)");
    int reports = 0;
    for (const auto& entry : fs::directory_iterator(kExamples)) {
        const std::string file = entry.path().filename().string();
        if (entry.path().extension() != ".csv" || file.rfind("HOI", 0) != 0) {
            continue;
        }
        const std::string version = file.substr(7, file.find('_', 7) - 7);
        std::string report;
        QZICsvConvResultXML result = QZICsvConvXML().CsvReportToXml(entry.path().string().c_str(), version.c_str(), report);
        EXPECT_EQ(result.Conformity, 1) << file;
        QZCDOMParser parser;
        ASSERT_TRUE(parser.Initialize());
        EXPECT_TRUE(parser.Parse(report.c_str(), "report", "UTF-8")) << file;
        EXPECT_NE(report.find(" page=\"2\""), std::string::npos) << file << ": one page only";
        std::set<std::string> schemaIds;
        for (auto it = std::sregex_iterator(report.begin(), report.end(), element); it != std::sregex_iterator(); ++it) {
            const std::string name = (*it)[1];
            EXPECT_TRUE(std::regex_match(name, names)) << file << ": element " << name;
            if (std::regex_match(name, std::regex("[A-Z]{3}[0-9]{5}"))) {
                schemaIds.insert(name);
            }
        }
        EXPECT_GT(schemaIds.size(), 3u) << file;
        ++reports;
    }
    EXPECT_EQ(reports, 16);
}

TEST_F(ShippedDefinitionsTest, LabelsChangeNoAnswer)
{
    // The same bundle with every label taken out of its definitions.
    TempDir dir;
    const fs::path unlabelled = dir.file("QZCsvConvXml.bundle");
    fs::copy(kBundle, unlabelled, fs::copy_options::recursive);
    const std::regex label(" label=\"[^\"]*\"");
    int labels = 0;
    for (const ShippedForm& form : ShippedForms()) {
        const fs::path copy = unlabelled / fs::relative(form.path, kBundle);
        const std::string text = readBytes(copy.string());
        const std::string stripped = std::regex_replace(text, label, "");
        labels += text != stripped;
        writeBytes(copy.string(), stripped);
    }
    EXPECT_EQ(labels, static_cast<int>(ShippedForms().size()));

    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(kExamples)) {
        if (entry.path().extension() != ".csv") {
            continue;
        }
        const std::string path = entry.path().string();
        const std::string name = entry.path().filename().string();
        const std::string version = name.substr(name.find('_') + 1, name.find('_', name.find('_') + 1) - name.find('_') - 1);
        auto answers = [&] {
            QZICsvConvXML library;
            return describe(library.CsvCheckToDetailAccountTitle(path.c_str(), version.c_str())) + " " +
                   describe(library.CsvCheckToDetailAccountTitle2(path.c_str(), version.c_str())) + " " +
                   describe(library.CsvCheckToAppendedTable(path.c_str(), version.c_str()));
        };
        const std::string labelled = answers();
        ScopedBundle scope(unlabelled.string());
        EXPECT_EQ(answers(), labelled) << name;
        ++files;
    }
    EXPECT_GT(files, 30);
}

}  // namespace
