#include "QZIFormLayout.h"

#include <memory>
#include <utility>

#include "QZCDOMParser.h"
#include "QZCDatCsvFile.h"
#include "QZCDatITData.h"
#include "QZCDatValidItem.h"
#include "QZCDatXMLManager.h"
#include "QZCLoadResource.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"
#include "QZICsvConvSupport.h"

namespace {

using Rule = QZIFormLayout::Rule;

// Definition folders of the bundle; row kinds belong to the detail statements.
constexpr const char* kDetailFolder = "AccountTitle";
constexpr const char* kFolders[] = {kDetailFolder, "AppendedTable"};

// A "column" attribute counts from 1; below 1, absent or not a number means
// the default.
int ColumnOf(const std::string& attribute, int defaultColumn)
{
    const int64_t column = QZCUtility::LeadingInteger(attribute);
    return column < 1 ? defaultColumn : static_cast<int>(column);
}

Rule ReadRule(const QZCDOMParser& dom, int column)
{
    Rule rule;
    rule.keyword = dom.GetAttribute("id");
    rule.value = dom.GetAttribute("value");
    rule.min = dom.GetAttribute("min");
    rule.max = dom.GetAttribute("max");
    rule.message = dom.GetAttribute("message");
    rule.column = column;
    return rule;
}

// The "valid" children of the item at the cursor with their "outer"
// conditions, read by the rules the validator set-up uses; the cursor
// returns to the item.
std::vector<Rule> ReadRules(QZCDOMParser& dom, int itemColumn)
{
    std::vector<Rule> rules;
    if (dom.MoveFirstChild() != 0)
        return rules;
    do {
        if (dom.GetNodeName() != "valid")
            continue;
        Rule rule = ReadRule(dom, ColumnOf(dom.GetAttribute("column"), itemColumn));
        if (dom.MoveFirstChild() == 0) {
            do {
                const int column = ColumnOf(dom.GetAttribute("column"), 0);
                if (dom.GetNodeName() != "outer" || column == 0)
                    continue;
                Rule condition = ReadRule(dom, column);
                condition.silent = dom.GetAttribute("nomsg") == "1";
                rule.conditions.push_back(std::move(condition));
            } while (dom.MoveNextSibling() == 0);
            dom.MoveParent();
        }
        rules.push_back(std::move(rule));
    } while (dom.MoveNextSibling() == 0);
    dom.MoveParent();
    return rules;
}

std::unique_ptr<QZCDatValidItem> MakeCheck(const Rule& rule, QZCDatMessage_t message)
{
    return QZCDatValidItem::CreateItem(rule.column - 1, rule.keyword.c_str(), rule.value.c_str(), rule.min.c_str(),
                                       rule.max.c_str(), message);
}

// Whether the library's check of the rule, with its conditions, reports an
// entry at the rule's own column for the one record of csv. Entries go to a
// list of this call's own; the operations' list stays as it was.
bool Fails(const Rule& rule, QZCDatCsvFile& csv)
{
    std::unique_ptr<QZCDatValidItem> check = MakeCheck(rule, QZCDatValidItem::GetMessageNumber(rule.message));
    if (!check)
        return false;
    for (const Rule& condition : rule.conditions) {
        std::unique_ptr<QZCDatValidItem> outer = MakeCheck(condition, MSG_NONE);
        if (!outer)
            return false;
        if (condition.silent)
            outer->SetNoMsg("1");
        check->AddOuterItem(std::move(outer));
    }
    std::vector<std::string> entries;
    std::swap(entries, g_mlErrors);
    try {
        check->ValidateCsv(&csv, 0, -1);
    } catch (...) {
        // A fault of the definition is no finding about the value.
    }
    std::swap(entries, g_mlErrors);
    for (const std::string& entry : entries) {
        for (const QZICsvConvSupport::ErrorEntry& parsed : QZICsvConvSupport::ParseErrorInfo(entry)) {
            if (parsed.column == rule.column)
                return true;
        }
    }
    return false;
}

// The width a check keyword asks of a value; nullopt for a check of
// something else.
std::optional<QZIFormLayout::Width> WidthOf(const std::string& keyword)
{
    using Width = QZIFormLayout::Width;
    if (keyword == "multibyte")
        return Width::FullWidth;
    if (keyword == "number" || keyword == "decimal" || keyword == "alnum" || keyword == "alnum2" ||
        keyword == "alnum3")
        return Width::HalfWidth;
    return std::nullopt;
}

// Whether every silent condition of the rule holds for the one record of
// csv, so that the check runs on it.
bool Applies(const Rule& rule, QZCDatCsvFile& csv)
{
    for (const Rule& condition : rule.conditions) {
        if (!condition.silent)
            continue;
        std::unique_ptr<QZCDatValidItem> outer = MakeCheck(condition, MSG_NONE);
        if (!outer)
            return false;
        outer->SetNoMsg("1");
        try {
            if (outer->ValidateOuter(&csv, 0, -1) != 0)
                return false;
        } catch (...) {
            return false;  // a fault of the definition
        }
    }
    return true;
}

// One record of the CSV reader holding the fields, as the checks read it.
struct RecordFile {
    QZCDatCsvFile file;
    explicit RecordFile(const std::vector<std::string>& record)
    {
        const int64_t recordCount = g_nRecordCount;
        file.ParseSimply((std::string(record.size() - 1, ',') + "\n").c_str());
        g_nRecordCount = recordCount;
        for (size_t field = 0; field < record.size(); ++field)
            file.SetItem(record[field], 0, static_cast<int64_t>(field));
    }
};

}  // namespace

std::optional<QZIFormLayout::Form> QZIFormLayout::Recognize(const std::string& fileName)
{
    const std::string stem = QZCMacOSNative::getLastPathComponent(fileName.c_str(), false);
    const size_t first = stem.find('_');
    if (first == std::string::npos)
        return std::nullopt;
    const size_t second = stem.find('_', first + 1);
    Form form;
    form.reportId = stem.substr(0, first);
    form.styleVersion = stem.substr(first + 1, second == std::string::npos ? std::string::npos : second - first - 1);
    if (QZCDatXMLManager(TYPECASE_DETAIL).CheckStyleVersion(form.reportId, form.styleVersion))
        form.operation = Operation::Detail;
    else if (QZCDatXMLManager(TYPECASE_DETAIL2).CheckStyleVersion(form.reportId, form.styleVersion))
        form.operation = Operation::Detail2;
    else if (QZCDatXMLManager(TYPECASE_APPENDED).IsCorrectCsvFilenameInternal(fileName) == 0)
        form.operation = Operation::AppendedTable;
    else
        return std::nullopt;
    return form;
}

std::optional<QZIFormLayout> QZIFormLayout::Load(const std::string& reportId, const std::string& styleVersion)
{
    const std::string bundle = QZCLoadResource().getBundlePath();
    if (bundle.empty() || reportId.empty())
        return std::nullopt;
    const std::string name = reportId + "_" + styleVersion + "_vld.xml";
    for (const char* folder : kFolders) {
        const std::string path = QZCMacOSNative::appendFilePath(
            QZCMacOSNative::appendFilePath(bundle.c_str(), folder).c_str(), name.c_str());
        if (!QZCMacOSNative::pathFileExists(path.c_str()))
            continue;
        QZCDOMParser dom;
        if (!dom.Initialize() || !dom.Parse(path.c_str()) || dom.MoveRoot() != 0)
            return std::nullopt;
        QZIFormLayout layout;
        layout.m_rowKinds = folder == kDetailFolder;
        if (dom.MoveFirstChild() != 0)
            return layout;
        do {
            if (dom.GetNodeName() != "report" || dom.GetAttribute("reportVR") != styleVersion)
                continue;
            Section section;
            section.formatKubun = dom.GetAttribute("id");
            if (dom.MoveFirstChild() == 0) {
                do {
                    if (dom.GetNodeName() != "item")
                        continue;
                    Field field;
                    field.id = dom.GetAttribute("id");
                    field.label = dom.GetAttribute("label");
                    if (field.label.empty())
                        field.label = field.id;
                    field.column = ColumnOf(dom.GetAttribute("column"), 0);
                    field.rowKind = dom.GetAttribute("meisaiGoukei");
                    field.rules = ReadRules(dom, field.column);
                    section.fields.push_back(std::move(field));
                } while (dom.MoveNextSibling() == 0);
                dom.MoveParent();
            }
            layout.m_sections.push_back(std::move(section));
        } while (dom.MoveNextSibling() == 0);
        return layout;
    }
    return std::nullopt;
}

const QZIFormLayout::Section* QZIFormLayout::SectionOf(const std::vector<std::string>& record) const
{
    for (const Section& candidate : m_sections) {
        if (!record.empty() && !candidate.formatKubun.empty() && record[0].find(candidate.formatKubun) != std::string::npos)
            return &candidate;
    }
    return nullptr;
}

bool QZIFormLayout::TakesPart(const Field& field, const std::vector<std::string>& record) const
{
    return !m_rowKinds || field.rowKind.empty() || field.rowKind == (record.size() > 1 ? record[1] : std::string());
}

QZIFormLayout::Cell QZIFormLayout::Explain(const std::vector<std::string>& record, int column) const
{
    Cell cell;
    const Section* section = SectionOf(record);
    if (!section)
        return cell;
    RecordFile csv(record);
    const Field* reading = nullptr;
    for (const Field& field : section->fields) {
        if (!TakesPart(field, record))
            continue;
        if (!reading && field.column == column)
            reading = &field;
        for (const Rule& rule : field.rules) {
            if (rule.column != column || !Fails(rule, csv.file))
                continue;
            if (cell.failed.empty())
                cell.field = &field;
            cell.failed.push_back(&rule);
        }
    }
    if (!cell.field)
        cell.field = reading;
    return cell;
}

std::vector<QZIFormLayout::Width> QZIFormLayout::Widths(const std::vector<std::string>& record) const
{
    std::vector<Width> widths(record.size() + 1, Width::Any);
    std::vector<bool> decided(widths.size(), false);
    const Section* section = SectionOf(record);
    if (!section)
        return widths;
    RecordFile csv(record);
    for (const Field& field : section->fields) {
        if (!TakesPart(field, record))
            continue;
        for (const Rule& rule : field.rules) {
            const std::optional<Width> width = WidthOf(rule.keyword);
            if (!width || rule.column < 1 || static_cast<size_t>(rule.column) >= widths.size() ||
                !Applies(rule, csv.file))
                continue;
            Width& at = widths[static_cast<size_t>(rule.column)];
            at = decided[static_cast<size_t>(rule.column)] && at != *width ? Width::Any : *width;
            decided[static_cast<size_t>(rule.column)] = true;
        }
    }
    return widths;
}
