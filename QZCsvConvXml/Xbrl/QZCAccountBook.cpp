#include "QZCAccountBook.h"

namespace {

struct StatementKind {
    const char* code;
    const char* name;
    const char* elementName;
};

constexpr StatementKind kStatementKinds[] = {
    {"BS", "貸借対照表", "jpfr-fyla-t-cte_BalanceSheetsAbstract"},
    {"PL", "損益計算書", "jpfr-fyla-t-cte_StatementsOfIncomeAbstract"},
    {"SC", "製造原価報告書", "jpfr-fyla-t-cte_ScheduleCostGoodsManufactured"},
    {"SS", "株主資本等変動計算書", "jpfr-fyla-t-cte_StatementsOfChangesInNetAssetsAbstract"},
    {"SE", "社員資本等変動計算書", "jpfr-fyla-t-par_StatementsOfMembersEquityAbstract"},
    {"SR", "損益金の処分表", "jpfr-fyla-t-pub_StatementAppropriationRetainedEarningsAbstract"},
    {"NT", "個別注記表", "jpfr-fyla-t-cte_NotesAbstract"},
};

}  // namespace

void QZCAccountBook::InitMembers()
{
    m_nRowNo = 0;
    m_strBookType.clear();
    m_strBookTypeName.clear();
    m_strElementName.clear();
    m_vAccountItems.clear();
}

void QZCAccountBook::SetCsvData(const Line& line, int rowNo)
{
    m_nRowNo = rowNo;
    if (!line.empty() && line[0] == "A") {
        SetBookType(line.size() > 1 ? line[1] : std::string());
    }
}

void QZCAccountBook::SetBookType(const std::string& code)
{
    m_strBookTypeID = code;
    m_strBookType.clear();
    m_strBookTypeName.clear();
    for (const StatementKind& kind : kStatementKinds) {
        if (code == kind.code) {
            m_strBookType = kind.name;
            m_strBookTypeName = kind.name;
        }
    }
}

void QZCAccountBook::initBookType2Prefix()
{
    for (const StatementKind& kind : kStatementKinds) {
        m_mapBookType2Prefix[kind.name] = kind.elementName;
    }
}
