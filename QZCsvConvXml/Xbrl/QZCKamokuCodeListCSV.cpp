#include "QZCKamokuCodeListCSV.h"

#include "QZCAccountBook2.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCUtility.h"

namespace {

constexpr size_t kNameColumn = 0;
constexpr size_t kParentColumn = 5;
constexpr size_t kSubstitutionGroupColumn = 7;

}  // namespace

QZCKamokuCodeListCSV::QZCKamokuCodeListCSV()
{
    InitMembers();
    init();
}

void QZCKamokuCodeListCSV::init()
{
    for (const char* kind : {"BS", "PL", "SC", "SS", "SE", "NT", "SR"}) {
        m_mapFiles[kind] = std::string("kamokuCodeList_") + kind + ".csv";
    }
    m_mapAttrColumns = {{"name", 0},     {"periodType", 1},        {"abstract", 3},
                        {"balance", 2}, {"substitutionGroup", 7}, {"contextID", 9}};
}

void QZCKamokuCodeListCSV::InitMembers()
{
    QZCCsvFile::InitMembers();
    m_mapLists.clear();
    m_mapRows.clear();
}

bool QZCKamokuCodeListCSV::ReadCsvFile(const char* folder, const std::vector<QZCAccountBook2>& books)
{
    if (folder == nullptr) {
        return false;
    }
    try {
        for (const QZCAccountBook2& book : books) {
            const std::string kind = book.GetBookTypeID();
            const auto file = m_mapFiles.find(kind);
            if (file == m_mapFiles.end()) {
                QZCUtility::AddOtherExceptionErrorInfo();
                QZC_LOG("QZCKamokuCodeListCSV::ReadCsvFile", QZCLog::kUnexpected);
                return false;
            }
            QZCCsvFile::InitMembers();
            const std::string path = QZCMacOSNative::appendFilePath(folder, file->second.c_str());
            if (!QZCCsvFile::ReadCsvFile(path.c_str()) || !MakeMap(kind, GetCSVData())) {
                return false;
            }
        }
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCKamokuCodeListCSV::ReadCsvFile", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCKamokuCodeListCSV::MakeMap(const std::string& bookTypeId, const Lines& rows)
{
    try {
        // A kind read again keeps its first rows, but its children are
        // listed once more.
        const Lines& stored = m_mapLists.emplace(bookTypeId, rows).first->second;
        for (const std::vector<std::string>& row : stored) {
            const std::string key = generateKey(bookTypeId, row.at(kNameColumn));
            m_mapRows.emplace(key, row);
            const std::string& parent = row.at(kParentColumn);
            if (!parent.empty()) {
                m_mapChildren[generateKey(bookTypeId, parent)].push_back(
                    {key, row.at(kNameColumn), row.at(kSubstitutionGroupColumn)});
            }
        }
        QZCCsvFile::InitMembers();
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCKamokuCodeListCSV::MakeMap", QZCLog::kUnexpected);
        return false;
    }
}

std::string QZCKamokuCodeListCSV::generateKey(const std::string& bookTypeId, const std::string& name)
{
    return bookTypeId + "_" + name;
}

bool QZCKamokuCodeListCSV::GetRow(const std::string& bookTypeId, const std::string& name,
                                  std::vector<std::string>& row) const
{
    row.clear();
    const auto found = m_mapRows.find(generateKey(bookTypeId, name));
    if (found == m_mapRows.end()) {
        return false;
    }
    row = found->second;
    return true;
}

bool QZCKamokuCodeListCSV::GetChildList(const std::string& bookTypeId, const std::string& parentName,
                                        std::vector<CHILD_ITEM>& children) const
{
    children.clear();
    const auto found = m_mapChildren.find(generateKey(bookTypeId, parentName));
    if (found == m_mapChildren.end()) {
        return false;
    }
    children = found->second;
    return true;
}

std::string QZCKamokuCodeListCSV::GetAttrValue(const std::string& bookTypeId, const std::string& name,
                                               const std::string& attribute) const
{
    const auto column = m_mapAttrColumns.find(attribute);
    std::vector<std::string> row;
    if (column == m_mapAttrColumns.end() || !GetRow(bookTypeId, name, row)) {
        return std::string();
    }
    return row.at(static_cast<size_t>(column->second));
}
