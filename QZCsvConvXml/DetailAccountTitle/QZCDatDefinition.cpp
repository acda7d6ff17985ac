#include "QZCDatDefinition.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatITData.h"
#include "QZCLog.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"

QZCDatDefinition::QZCDatDefinition() = default;

QZCDatDefinition::~QZCDatDefinition()
{
    ClearVecRootNode();
}

int QZCDatDefinition::CreateValidDefinition(const std::map<std::string, ReportAttr_t>& formatKubun,
                                            QZCDOMParser* definition)
{
    return CreateDefinition(formatKubun, definition, false, "QZCDatDefinition::CreateValidDefinition");
}

int QZCDatDefinition::CreatePrintDefinition(const std::map<std::string, ReportAttr_t>& formatKubun,
                                            QZCDOMParser* definition)
{
    return CreateDefinition(formatKubun, definition, true, "QZCDatDefinition::CreatePrintDefinition");
}

void QZCDatDefinition::ClearVecRootNode()
{
    m_vecValidRootNode.clear();
    m_vecPrintRootNode.clear();
}

void QZCDatDefinition::Clear()
{
    ClearVecRootNode();
}

QZCDatXMLDefReport* QZCDatDefinition::GetRootNode(const QZCDatRootNodes& roots, const char* formatKubun)
{
    if (formatKubun == nullptr) {
        return nullptr;
    }
    for (const auto& root : roots) {
        if (std::strstr(formatKubun, root->GetId()) != nullptr) {
            return root.get();
        }
    }
    return nullptr;
}

const QZCDatRootNodes& QZCDatDefinition::GetValidRootNodes() const
{
    return m_vecValidRootNode;
}

const QZCDatRootNodes& QZCDatDefinition::GetPrintRootNodes() const
{
    return m_vecPrintRootNode;
}

int QZCDatDefinition::ValidateCsv(QZCDatCsvFile* csv)
{
    const char* label = "QZCDatDefinition::ValidateCsv";
    if (csv == nullptr) {
        QZC_LOG(label, "引数エラー。CSVチェックに必要な情報が準備されていません。");
        throw -1;
    }
    try {
        const int64_t count = csv->GetRecordCount();
        if (QZCDatConvertInfo::instance()->GetITData()->IsUtiwakeOn()) {
            for (int64_t row = 0; row < count; ++row) {
                if (!csv->IsValidRecord(row) || csv->IsMeisai(row, 1)) {
                    continue;
                }
                QZCDatXMLDefReport* root = GetRootNode(m_vecValidRootNode, csv->GetItem(row, 0));
                if (root != nullptr && root->ValidateCsvOfGoukei(csv, row) != 0) {
                    return -1;
                }
            }
        }
        int result = 0;
        for (int64_t row = 0; row < count; ++row) {
            if (!csv->IsValidRecord(row)) {
                continue;
            }
            QZCDatXMLDefReport* root = GetRootNode(m_vecValidRootNode, csv->GetItem(row, 0));
            if (root != nullptr && root->ValidateCsv(csv, row) != 0) {
                result = -1;
            }
        }
        return result;
    } catch (...) {
        QZC_LOG(label, "想定外エラーが発生しました。");
        throw -1;
    }
}

int QZCDatDefinition::CreateDefinition(const std::map<std::string, ReportAttr_t>& formatKubun,
                                       QZCDOMParser* definition, bool print, const char* label)
{
    if (formatKubun.empty() || definition == nullptr) {
        QZC_LOG(label, "引数エラー。定義情報作成に必要な情報が準備されていません。");
        return -1;
    }
    try {
        m_strReportId.clear();
        m_pDefinition = definition;
        const std::string styleVersion = QZCDatConvertInfo::instance()->GetITData()->GetITData(ARG_VR);
        QZCDatRootNodes& roots = print ? m_vecPrintRootNode : m_vecValidRootNode;
        for (const auto& entry : formatKubun) {
            if (!MoveToReport(entry.first, styleVersion)) {
                return -1;
            }
            auto report = std::make_unique<QZCDatXMLDefReport>();
            const std::string sibling = definition->GetAttribute("sibling");
            report->Initialize(m_strReportId.c_str(), definition->GetAttribute("id").c_str(),
                               print ? sibling.c_str() : nullptr);
            if (definition->MoveFirstChild() == 0) {
                do {
                    if (definition->GetNodeName() != "item") {
                        continue;
                    }
                    auto node = QZCDatXMLDefineNode::CreateNode(definition);
                    const int placed = print ? report->LocatePrintNode(node, -1) : report->LocateValidNode(node, -1);
                    if (placed < 0) {
                        QZC_LOG(label, "定義体の帳票タグ階層定義が不正です。");
                        return -1;
                    }
                } while (definition->MoveNextSibling() == 0);
            }
            roots.push_back(std::move(report));
        }
        return 0;
    } catch (...) {
        QZC_LOG(label, "想定外エラーが発生しました。");
        return -1;
    }
}

bool QZCDatDefinition::MoveToReport(const std::string& key, const std::string& styleVersion)
{
    if (m_pDefinition->MoveRoot() != 0 || m_pDefinition->MoveFirstChild() != 0) {
        return false;
    }
    do {
        if (m_pDefinition->GetNodeName() == "report" && m_pDefinition->GetAttribute("id") == key &&
            m_pDefinition->GetAttribute("reportVR") == styleVersion) {
            m_strReportId = m_pDefinition->GetAttribute("reportId");
            return true;
        }
    } while (m_pDefinition->MoveNextSibling() == 0);
    return false;
}

namespace {

// Formats one piece of a page's start tag the way a fixed buffer does:
// longer pieces are cut at 1023 bytes.
template <typename... Args>
std::string tagPiece(const char* format, Args... args)
{
    char buffer[1024];
    std::snprintf(buffer, sizeof buffer, format, args...);
    return buffer;
}

bool isDetailRow(const QZCDatCsvFile* csv, int64_t record)
{
    return std::strcmp(csv->GetItem(record, 1), "0") == 0;
}

// The page of each record: the one written in its format kubun, as in
// HOI010(3), or else the running page of its kubun. A total row closes its
// page, and a full page moves on only when another detail row follows.
class PageNumbering {
public:
    explicit PageNumbering(const std::vector<std::unique_ptr<QZCDatXMLDefReport>>& roots)
    {
        for (const auto& root : roots)
            m_pages[root->GetId()] = 1;
    }

    int64_t PageOf(const QZCDatCsvFile* csv, int64_t record, const std::string& kubun)
    {
        const size_t open = kubun.find('(');
        if (open != std::string::npos)
            return QZCUtility::LeadingInteger(kubun.substr(open + 1, kubun.find(')') - open - 1));
        const int64_t rows = ++m_rows[kubun];
        const int64_t page = m_pages[kubun];
        const bool total = !isDetailRow(csv, record);
        const bool fullBeforeDetail = !total && record + 1 < csv->GetRecordCount() &&
                                      isDetailRow(csv, record + 1) && rows == csv->GetMaxOccurs(kubun);
        if (total || fullBeforeDetail) {
            ++m_pages[kubun];
            m_rows[kubun] = 0;
        }
        return page;
    }

private:
    std::map<std::string, int64_t> m_pages;
    std::map<std::string, int64_t> m_rows;
};

}  // namespace

std::string QZCDatDefinition::MakeReportToCsv(const QZCDatCsvFile* csv, const QZCDatITData* itData)
{
    const char* label = "QZCDatDefinition::MakeReportToCsv";
    if (!csv || !itData || m_vecPrintRootNode.empty()) {
        QZC_LOG(label, "引数エラー。XML作成に必要な情報が準備されていません。");
        throw -1;
    }
    try {
        PageNumbering numbering(m_vecPrintRootNode);
        ReportPages pages;
        const int64_t count = csv->GetRecordCount();
        for (int64_t i = 0; i < count; ++i) {
            const std::string kubun = csv->GetItem(i, 0);
            QZCDatXMLDefReport* root = GetRootNode(m_vecPrintRootNode, kubun.c_str());
            if (!root) {
                QZC_LOG(label, "想定外エラーが発生しました。");
                throw -1;
            }
            std::string fragment = root->WriteNode(csv, i, itData);
            const int64_t page = numbering.PageOf(csv, i, kubun);
            std::string name;
            _ReportTable table;
            GetLevel4Tag(root, fragment, name, table);
            TagCorrection1(fragment, table);
            std::map<std::string, _ReportTable>& tables = pages[page];
            auto stored = tables.find(name);
            if (stored != tables.end())
                TagAppend(stored->second.children, table.children);
            else
                tables.emplace(name, std::move(table));
        }
        return WritePages(pages, itData);
    } catch (...) {
        QZC_LOG(label, "想定外エラーが発生しました。");
        throw -1;
    }
}

std::string QZCDatDefinition::WritePages(const ReportPages& pages, const QZCDatITData* itData) const
{
    const std::string day = QZCPublicFunction::Now("yyyy'-'MM'-'dd", nullptr);
    const std::string version = QZCPublicFunction::SpecialEncoding(itData->GetITData(ARG_VR));
    const std::string creator = QZCPublicFunction::SpecialEncoding(itData->GetITData(ARG_SAKUSEINM));
    const std::string software = QZCPublicFunction::SpecialEncoding(itData->GetITData(ARG_SOFTNM));
    const std::string csvName = QZCPublicFunction::SpecialEncoding(itData->GetCsvFileName());
    const bool withFileName = !itData->IsD15HO001On();
    std::string text;
    for (const auto& [page, tables] : pages) {
        text += tagPiece("<%s VR=\"%s\" id=\"%s-%ld\" page=\"%ld\" sakuseiDay=\"%s\" sakuseiNM=\"%s\" softNM=\"%s",
                         m_strReportId.c_str(), version.c_str(), m_strReportId.c_str(), static_cast<long>(page),
                         static_cast<long>(page), day.c_str(), creator.c_str(), software.c_str());
        if (withFileName)
            text += tagPiece("\" csvFileNM=\"%s", csvName.c_str());
        text += "\">";
        for (const auto& [name, table] : tables) {
            if (!name.empty())
                TagCorrection2(text, table);
        }
        text += "</" + m_strReportId + ">";
    }
    return text;
}

void QZCDatDefinition::GetLevel4Tag(const QZCDatXMLDefReport* report, std::string fragment, std::string& name,
                                    _ReportTable& table) const
{
    const size_t open = fragment.find('<');
    const size_t close = fragment.find('>');
    if (open == std::string::npos || close == std::string::npos)
        return;
    name = fragment.substr(open + 1, close - open - 1);
    table.startTag = "<" + name + ">";
    table.endTag = "</" + name + ">";
    table.sibling = report->GetSibling();
}

void QZCDatDefinition::TagCorrection1(std::string& fragment, _ReportTable& table) const
{
    if (table.sibling == "1") {
        // One container for the whole page: the record's own pair of tags goes.
        for (const std::string* tag : {&table.startTag, &table.endTag}) {
            const size_t at = tag->empty() ? std::string::npos : fragment.find(*tag);
            if (at != std::string::npos)
                fragment.erase(at, tag->size());
        }
    }
    const size_t open = fragment.find('<');
    const size_t close = fragment.find('>');
    if (open != std::string::npos && close != std::string::npos)
        table.children.emplace(fragment.substr(open + 1, close - open - 1), fragment);
}

void QZCDatDefinition::TagAppend(std::map<std::string, std::string>& stored,
                                 const std::map<std::string, std::string>& added) const
{
    if (added.empty())
        return;
    const auto& [key, value] = *added.begin();
    auto found = stored.find(key);
    if (found != stored.end())
        found->second += value;
    else
        stored.emplace(key, value);
}

void QZCDatDefinition::TagCorrection2(std::string& output, const _ReportTable& table) const
{
    if (table.sibling == "1")
        output += table.startTag;
    for (const auto& [key, value] : table.children)
        output += value;
    if (table.sibling == "1")
        output += table.endTag;
}
