#include "QZCDatDefinition.h"

#include <cstring>

#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatITData.h"
#include "QZCLog.h"

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
