#include "QZCDatXMLDefReport.h"

#include "QZCDatITData.h"
#include "QZCLog.h"

QZCDatXMLDefReport::~QZCDatXMLDefReport() = default;

void QZCDatXMLDefReport::Initialize(const char* name, const char* id, const char* sibling)
{
    m_strName = name != nullptr ? name : "";
    m_strId = id != nullptr ? id : "";
    if (sibling != nullptr) {
        m_strSibling = sibling;
    }
}

std::string QZCDatXMLDefReport::WriteNode(const QZCDatCsvFile* csv, long row, const QZCDatITData* itData)
{
    RequireCsv(csv, "QZCDatXMLDefReport::WriteNode");
    if (itData == nullptr) {
        QZC_LOG("QZCDatXMLDefReport::WriteNode", "引数エラー。申告者情報が不正です。");
        throw -1;
    }
    return WriteChildren(csv, row, itData->IsUtiwakeOn());
}
