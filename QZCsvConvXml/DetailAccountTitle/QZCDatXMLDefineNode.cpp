#include "QZCDatXMLDefineNode.h"

#include <cstdio>

#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatCsvFile.h"
#include "QZCDatITData.h"
#include "QZCDatValidator.h"
#include "QZCDatXMLDefDate.h"
#include "QZCDatXMLDefKubun.h"
#include "QZCDatXMLDefNormal.h"
#include "QZCLog.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"

namespace {

constexpr size_t kTagBufferSize = 100;

bool IsUtiwakeOn()
{
    return QZCDatConvertInfo::instance()->GetITData()->IsUtiwakeOn();
}

}  // namespace

QZCDatXMLDefineNode::QZCDatXMLDefineNode() = default;

QZCDatXMLDefineNode::~QZCDatXMLDefineNode() = default;

std::unique_ptr<QZCDatXMLDefineNode> QZCDatXMLDefineNode::CreateNode(QZCDOMParser* dom)
{
    const char* label = "QZCDatXMLDefineNode::CreateNode";
    if (dom == nullptr) {
        QZC_LOG(label, "引数エラー。定義体のDOMが存在しません。");
        return nullptr;
    }
    try {
        const std::string type = dom->GetAttribute("type");
        std::unique_ptr<QZCDatXMLDefineNode> node;
        if (type == "Date") {
            node = std::make_unique<QZCDatXMLDefDate>();
        } else if (type == "Kubun") {
            node = std::make_unique<QZCDatXMLDefKubun>();
        } else if (type == "Normal") {
            node = std::make_unique<QZCDatXMLDefNormal>();
        } else {
            node = std::make_unique<QZCDatXMLDefineNode>();
        }
        if (node->Initialize(dom) == 0) {
            return node;
        }
    } catch (...) {
    }
    QZC_LOG(label, "想定外エラーが発生しました。");
    return nullptr;
}

int QZCDatXMLDefineNode::Initialize(QZCDOMParser* dom)
{
    const char* label = "QZCDatXMLDefineNode::Initialize";
    if (dom == nullptr) {
        QZC_LOG(label, "引数エラー。定義体のDOMが存在しません。");
        return -1;
    }
    try {
        m_strName = dom->GetAttribute("id");
        m_strParentName = dom->GetAttribute("parent");
        m_strMeisaiGoukei = dom->GetAttribute("meisaiGoukei");
        const int64_t column = QZCUtility::LeadingInteger(dom->GetAttribute("column"));
        m_nColumn = column >= 1 ? column - 1 : -1;
        m_bZeroSuppress = dom->GetAttribute("zeroSuppress") == "true";
        m_bUnit = dom->GetAttribute("unit") == "1";
        if (!dom->HasChild()) {
            return 0;
        }
        m_pValidator = std::make_unique<QZCDatValidator>();
        return m_pValidator->Initialize(m_nColumn, dom);
    } catch (...) {
        QZC_LOG(label, "想定外エラーが発生しました。");
        return -1;
    }
}

int QZCDatXMLDefineNode::ValidateCsv(QZCDatCsvFile* csv, long row)
{
    const char* label = "QZCDatXMLDefineNode::ValidateCsv";
    RequireCsv(csv, label);
    int result = 0;
    if (m_pValidator && m_pValidator->ValidateCsv(csv, row, -1) != 0) {
        QZC_LOG(label, ("入力値チェックエラー。 " + m_strName).c_str());
        result = -1;
    }
    const bool utiwake = IsUtiwakeOn();
    for (const auto& child : m_vecChildren) {
        if (TakesPart(*child, csv, row, utiwake) && child->ValidateCsv(csv, row) != 0) {
            QZC_LOG(label, ("入力値チェックエラー。 " + child->m_strName).c_str());
            result = -1;
        }
    }
    return result;
}

int QZCDatXMLDefineNode::ValidateCsvOfGoukei(QZCDatCsvFile* csv, long row)
{
    const char* label = "QZCDatXMLDefineNode::ValidateCsvOfGoukei";
    RequireCsv(csv, label);
    if (m_pValidator && m_pValidator->ValidateCsv(csv, row, -1) != 0) {
        QZC_LOG(label, ("入力値チェックエラー。 " + m_strName).c_str());
        return -1;
    }
    for (const auto& child : m_vecChildren) {
        if (child->m_strMeisaiGoukei == "1" && child->ValidateCsv(csv, row) != 0) {
            QZC_LOG(label, ("入力値チェックエラー。 " + child->m_strName).c_str());
            return -1;
        }
    }
    return 0;
}

std::string QZCDatXMLDefineNode::WriteNode(const QZCDatCsvFile* csv, long row)
{
    RequireCsv(csv, "QZCDatXMLDefineNode::WriteNode");
    const std::string inner = WriteChildren(csv, row, IsUtiwakeOn());
    const std::string value = MakeNodeValue(csv, row);
    if (value.empty() && inner.empty()) {
        return "";
    }
    // Tags are cut at 99 bytes.
    char startTag[kTagBufferSize];
    char endTag[kTagBufferSize];
    if (m_bUnit) {
        std::snprintf(startTag, sizeof startTag, "<%s unit=\"%s\">", m_strName.c_str(), MakeUnitValue(csv, row).c_str());
    } else {
        std::snprintf(startTag, sizeof startTag, "<%s>", m_strName.c_str());
    }
    std::snprintf(endTag, sizeof endTag, "</%s>", m_strName.c_str());
    return startTag + value + inner + endTag;
}

std::string QZCDatXMLDefineNode::MakeNodeValue(const QZCDatCsvFile* csv, long row)
{
    RequireCsv(csv, "QZCDatXMLDefineNode::MakeNodeValue");
    if (m_nColumn < 0) {
        return "";
    }
    std::string value = QZCPublicFunction::SpecialEncoding(csv->GetItem(row, m_nColumn));
    if (m_bZeroSuppress) {
        value.erase(0, value.find_first_not_of('0'));
    }
    return value;
}

const char* QZCDatXMLDefineNode::GetName() const
{
    return m_strName.c_str();
}

const char* QZCDatXMLDefineNode::GetId() const
{
    return m_strId.c_str();
}

const char* QZCDatXMLDefineNode::GetParentName() const
{
    return m_strParentName.c_str();
}

const char* QZCDatXMLDefineNode::GetMeisaiGoukei() const
{
    return m_strMeisaiGoukei.c_str();
}

const char* QZCDatXMLDefineNode::GetSibling() const
{
    return m_strSibling.c_str();
}

long QZCDatXMLDefineNode::GetColumn() const
{
    return m_nColumn;
}

std::string QZCDatXMLDefineNode::MakeUnitValue(const QZCDatCsvFile* csv, long row)
{
    RequireCsv(csv, "QZCDatXMLDefineNode::MakeUnitValue");
    if (m_nColumn < 0) {
        return "";
    }
    return QZCPublicFunction::SpecialEncoding(csv->GetItem(row, m_nColumn + 1));
}

int QZCDatXMLDefineNode::LocateValidNode(std::unique_ptr<QZCDatXMLDefineNode>& node, int notFound)
{
    if (!node) {
        QZC_LOG("QZCDatXMLDefineNode::LocateValidNode", "引数エラー。ノードが存在しません。");
        return notFound;
    }
    m_vecChildren.push_back(std::move(node));
    return 0;
}

int QZCDatXMLDefineNode::LocatePrintNode(std::unique_ptr<QZCDatXMLDefineNode>& node, int notFound)
{
    if (!node) {
        QZC_LOG("QZCDatXMLDefineNode::LocatePrintNode", "引数エラー。ノードが存在しません。");
        return notFound;
    }
    if (node->m_strParentName == m_strName) {
        m_vecChildren.push_back(std::move(node));
        return 0;
    }
    // The newest node of that name wins: search from the last child, depth first.
    for (auto child = m_vecChildren.rbegin(); child != m_vecChildren.rend(); ++child) {
        if ((*child)->LocatePrintNode(node, notFound) == 0) {
            return 0;
        }
    }
    return notFound;
}

bool QZCDatXMLDefineNode::TakesPart(const QZCDatXMLDefineNode& child, const QZCDatCsvFile* csv, long row,
                                    bool utiwake)
{
    return !utiwake || child.m_strMeisaiGoukei.empty() || child.m_strMeisaiGoukei == csv->GetRecordMeisaiGoukei(row);
}

void QZCDatXMLDefineNode::RequireCsv(const QZCDatCsvFile* csv, const char* label)
{
    if (csv == nullptr) {
        QZC_LOG(label, "引数エラー。CSV格納情報が不正です。");
        throw -1;
    }
}

std::string QZCDatXMLDefineNode::WriteChildren(const QZCDatCsvFile* csv, long row, bool utiwake)
{
    std::string inner;
    for (const auto& child : m_vecChildren) {
        if (TakesPart(*child, csv, row, utiwake)) {
            inner += child->WriteNode(csv, row);
        }
    }
    return inner;
}
