#include "QZCValidateMediator2.h"

#include <climits>
#include <stdexcept>

#include "QZCAccountBookListBuilder2.h"
#include "QZCDOMParser.h"
#include "QZCKamokuCodeListCSV.h"
#include "QZCLog.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"

namespace {

constexpr size_t kAbstractColumn = 3;
constexpr size_t kTupleColumn = 4;
constexpr size_t kParentColumn = 5;
constexpr const char* kMonetary = "xbrli:monetaryItemType";
constexpr const char* kString = "xbrli:stringItemType";
constexpr int kCodeColumn = 5;

// Line types of the check definition and the validators they feed.
constexpr const char* kLineTypes[] = {
    "ALLLINE_BASIC", "ALLLINE_ID", "A", "B", "C", "C1", "C2", "ORIGINAL_ACOUNT_ROOT", "ACOUNTITEM",
    "ORIGINAL_ACOUNT_CHILDREN", "ORIGINAL_ACCOUNT", "STANDARD_ACOUNT_ROOT", "STANDARD_ACCOUNT_CHILDREN"};

}  // namespace

// ---- Tuple checker

bool QZCValidateMediator2::QZCTupleChecker::add(int layer, const std::string& code)
{
    if (isExistTuple(code)) {
        return false;
    }
    const auto open = m_mapOpenLayers.find(layer);
    if (open != m_mapOpenLayers.end()) {
        m_mapStates[open->second] = TUPLE_CLOSED;
        closeDeeper(layer);
    }
    m_mapOpenLayers[layer] = code;
    m_mapStates[code] = TUPLE_OPEN;
    return true;
}

void QZCValidateMediator2::QZCTupleChecker::close(int layer)
{
    for (auto entry = m_mapOpenLayers.lower_bound(layer); entry != m_mapOpenLayers.end();) {
        const std::string code = entry->second;
        entry = m_mapOpenLayers.erase(entry);
        bool heldAbove = false;
        for (auto above = m_mapOpenLayers.begin(); above != m_mapOpenLayers.end() && above->first < layer; ++above) {
            heldAbove = heldAbove || above->second == code;
        }
        if (!heldAbove) {
            m_mapStates[code] = TUPLE_CLOSED;
        }
    }
}

void QZCValidateMediator2::QZCTupleChecker::closeDeeper(int layer)
{
    if (layer < INT_MAX) {
        close(layer + 1);
    }
}

void QZCValidateMediator2::QZCTupleChecker::clear(int layer, const std::string& code)
{
    m_mapOpenLayers.erase(layer);
    m_mapStates.erase(code);
}

bool QZCValidateMediator2::QZCTupleChecker::isExistTuple(const std::string& code) const
{
    return m_mapStates.count(code) != 0;
}

bool QZCValidateMediator2::QZCTupleChecker::isOpenType(const std::string& code) const
{
    const auto state = m_mapStates.find(code);
    return state != m_mapStates.end() && state->second == TUPLE_OPEN;
}

int QZCValidateMediator2::QZCTupleChecker::getCheckType(int layer, const std::string& code) const
{
    if (!isExistTuple(code)) {
        return 0;
    }
    if (m_mapOpenLayers.count(layer) == 0) {
        return 3;
    }
    return isOpenType(code) ? 1 : 2;
}

// ---- Construction and the first pass

namespace {

// An amount: an optional sign, digits, and decimals after a point. Compiled
// once for the process.
const QZCRegex& numberPattern()
{
    static const QZCRegex pattern("^[\\-+]?\\d+(\\.\\d+)?$");
    return pattern;
}

}  // namespace

QZCValidateMediator2::QZCValidateMediator2(const std::string& xbrlType)
    : m_strXbrlType(xbrlType),
      m_numberPattern(numberPattern()),
      m_codePattern(*QZCAccountItem2::originalCodePattern())
{
    for (const char* lineType : kLineTypes) {
        m_mapValidators[lineType];
    }
}

bool QZCValidateMediator2::ConstructValidators()
{
    try {
        QZCDOMParser parser;
        const std::string path = QZCPublicFunction::LoadResoucePath(QZC_RESOURCE_XBRL_V30);
        if (!parser.Initialize() || !parser.Parse(path.c_str())) {
            throw std::runtime_error("check definition not readable");
        }
        if (parser.MoveFirstChild() == 0) {
            do {
                if (parser.GetNodeName() == "RecordCheck" && !BuildValidItem(parser)) {
                    throw std::runtime_error("check definition not usable");
                }
            } while (parser.MoveNextSibling() == 0);
        }
        return true;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCValidateMediator2::ConstructValidators", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCValidateMediator2::BuildValidItem(QZCDOMParser& parser)
{
    if (parser.MoveFirstChild() != 0) {
        return true;
    }
    do {
        if (parser.GetNodeName() != "item") {
            continue;
        }
        const auto found = m_mapValidators.find(parser.GetAttribute("lineType"));
        if (found != m_mapValidators.end() && !found->second.MakeValidItems(parser, parser.GetAttribute("id"))) {
            return false;
        }
    } while (parser.MoveNextSibling() == 0);
    parser.MoveParent();
    return true;
}

bool QZCValidateMediator2::ExecFormatCheck(LineIterator first, LineIterator last)
{
    bool titlePending = false;
    int row = 0;
    for (auto line = first; line != last; ++line) {
        ++row;
        if (!validator("ALLLINE_BASIC").DoCheck(*line, row) || !ExecLayerTypeCheck(*line, titlePending, row)
            || !validator("ALLLINE_ID").DoCheck(*line, row) || !ExecRequiredFormCheck(*line, row, titlePending)) {
            return false;
        }
    }
    const char* missing = !m_bExistB      ? "HQZ9770E"
                          : !m_bExistC1   ? "HQZ9780E"
                          : !m_bExistC2   ? "HQZ9790E"
                          : !m_bExistTitle ? "HQZ9710E"
                                          : nullptr;
    if (missing != nullptr) {
        QZCUtility::AddCsvErrorInfo(row, 1, missing);
        return false;
    }
    return true;
}

bool QZCValidateMediator2::ExecLayerTypeCheck(const Line& line, bool& titlePending, int rowNo)
{
    // The fixed head of a file: "A", "B", "C1", "C2" and the title.
    struct HeadLine {
        const char* kind;
        const char* code;
        bool* seen;
    };
    const HeadLine heads[] = {{"A", "HQZ9760E", nullptr},
                              {"B", "HQZ9770E", &m_bExistB},
                              {"C1", "HQZ9780E", &m_bExistC1},
                              {"C2", "HQZ9790E", &m_bExistC2}};
    const std::string& kind = line.at(0);
    if (rowNo >= 1 && rowNo <= 4) {
        const HeadLine& head = heads[rowNo - 1];
        if (kind != head.kind) {
            QZCUtility::AddCsvErrorInfo(rowNo, 1, head.code);
            return false;
        }
        if (head.seen != nullptr) {
            *head.seen = true;
        }
    } else if (rowNo == 5) {
        if (!validator("ORIGINAL_ACOUNT_ROOT").DoCheck(line, rowNo)) {
            return false;
        }
        m_bExistTitle = true;
    }
    if (!titlePending) {
        return true;
    }
    if (m_bExistTitle) {
        titlePending = false;
        return true;
    }
    // The line after a later "A" line must be the statement's title.
    const char* misplaced = kind == "B" ? "HQZ8220E" : kind == "C1" ? "HQZ9850E" : kind == "C2" ? "HQZ9870E" : nullptr;
    if (misplaced != nullptr) {
        QZCUtility::AddCsvErrorInfo(rowNo, 1, misplaced);
        return false;
    }
    if (!validator("ORIGINAL_ACOUNT_ROOT").DoCheck(line, rowNo)) {
        return false;
    }
    titlePending = false;
    return true;
}

bool QZCValidateMediator2::ExecRequiredFormCheck(const Line& line, int rowNo, bool& titlePending)
{
    const std::string& kind = line.at(0);
    if (kind == "A") {
        if (!validator("A").DoCheck(line, rowNo)) {
            return false;
        }
        if (rowNo == 1) {
            if (m_strXbrlType != "-" && line.at(1) != m_strXbrlType) {
                QZCUtility::AddCsvErrorInfo(1, 2, "HQZ9750E");
                return false;
            }
            return true;
        }
        // Only a file named without a kind may hold several statements.
        if (m_strXbrlType != "-") {
            QZCUtility::AddCsvErrorInfo(rowNo, 1, "HQZ9750E");
            return false;
        }
        titlePending = true;
        m_bExistTitle = false;
        return true;
    }
    if (kind == "B") {
        return validator("B").DoCheck(line, rowNo);
    }
    if (kind == "C1" || kind == "C2") {
        return validator(kind == "C1" ? "C1" : "C2").DoCheck(line, rowNo) && validator("C").DoCheck(line, rowNo);
    }
    if (QZCAccountBookListBuilder2::isColumnSBJ(line)) {
        titlePending = true;
        m_bExistTitle = true;
    }
    return true;
}

bool QZCValidateMediator2::ExecSpecificCheck(LineIterator first, LineIterator last)
{
    int row = 0;
    int lastStartRow = 0;
    for (auto line = first; line != last; ++line) {
        ++row;
        const std::string& kind = line->at(0);
        if (kind == "A") {
            lastStartRow = row;
            continue;
        }
        if (kind == "B" || kind == "C1" || kind == "C2") {
            continue;
        }
        if (QZCAccountBookListBuilder2::isColumnSBJ(*line)) {
            if ((row == 5 || row == lastStartRow + 1) && !validator("ORIGINAL_ACOUNT_ROOT").DoCheck(*line, row)) {
                return false;
            }
            continue;
        }
        for (const char* lineType : {"ACOUNTITEM", "ORIGINAL_ACOUNT_CHILDREN", "ORIGINAL_ACCOUNT"}) {
            if (!validator(lineType).DoCheck(*line, row)) {
                return false;
            }
        }
    }
    return true;
}

// ---- The second pass

bool QZCValidateMediator2::ExecCheckAfterLayered(const std::vector<QZCAccountBook2>& books,
                                                 const QZCKamokuCodeListCSV& codeList)
{
    try {
        bool ok = true;
        for (const QZCAccountBook2& book : books) {
            m_mapBookCodes.clear();
            m_mapStandardNames.clear();
            for (auto item = book.GetAccountItemIterator2(); item != book.GetAccountItemEndIterator2(); ++item) {
                ok = ExecCheckPerItem(codeList, book.GetBookTypeID(), *item) && ok;
            }
        }
        return ok;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG("QZCValidateMediator2::ExecCheckAfterLayered", QZCLog::kUnexpected);
        return false;
    }
}

bool QZCValidateMediator2::ExecCheckPerItem(const QZCKamokuCodeListCSV& codeList, const std::string& kindCode,
                                            const QZCAccountItem2& item)
{
    bool ok = true;
    std::vector<std::string> row;
    const bool standard = codeList.GetRow(kindCode, item.GetSubjectId(), row);
    if (!item.IsTuple() && !item.IsInnerTupleItem() && (!standard || row.at(kParentColumn).empty())) {
        ok = checkOverlapSBJCode(codeList, kindCode, item) && ok;
    }
    if (standard) {
        ok = checkValidStandardSubject(codeList, kindCode, item, item.GetRowNo()) && ok;
    } else {
        ok = checkValidOriginalSubject(item, item.GetRowNo()) && ok;
        m_tupleChecker.close(item.GetLayerNo());
    }
    bool reset = false;
    for (auto child = item.GetChildrenIterator2(); child != item.GetChildrenEndIterator2(); ++child) {
        std::vector<std::string> childRow;
        if (!reset && codeList.GetRow(kindCode, child->GetSubjectId(), childRow)
            && !childRow.at(kParentColumn).empty() && !childRow.at(kTupleColumn).empty()) {
            m_tupleChecker.clear(child->GetLayerNo(), child->GetSubjectId());
            reset = true;
        }
        ok = ExecCheckPerItem(codeList, kindCode, *child) && ok;
    }
    m_tupleChecker.closeDeeper(item.GetLayerNo());
    return ok;
}

bool QZCValidateMediator2::checkOverlapSBJCode(const QZCKamokuCodeListCSV& codeList, const std::string& kindCode,
                                               const QZCAccountItem2& item)
{
    const std::string& code = item.GetSubjectId();
    if (code.empty() || m_mapBookCodes.emplace(code, item.GetSubjectName()).second) {
        return true;
    }
    std::vector<std::string> row;
    std::vector<std::string> groups;
    const bool known = codeList.GetRow(kindCode, code, row)
                       || (QZCRegex::rgx(m_codePattern, code, groups) && codeList.GetRow(kindCode, groups.at(1), row));
    if (!known) {
        return true;
    }
    QZCUtility::AddCsvErrorInfo(item.GetRowNo(), kCodeColumn, "HQZ8090E");
    return false;
}

bool QZCValidateMediator2::checkValidStandardSubject(const QZCKamokuCodeListCSV& codeList,
                                                     const std::string& kindCode, const QZCAccountItem2& item,
                                                     int rowNo)
{
    std::vector<std::string> row;
    codeList.GetRow(kindCode, item.GetSubjectId(), row);
    bool ok = checkValidStandardSubjectValue(row, item.GetItemType(), item.GetContent(), item.IsAbstract(), rowNo);
    const std::string& parent = row.at(kParentColumn);
    if (!parent.empty()) {
        const auto name = m_mapStandardNames.emplace(item.GetSubjectId(), item.GetSubjectName()).first;
        if (name->second != item.GetSubjectName()) {
            QZCUtility::AddCsvErrorInfo(rowNo, 1, "HQZ8250E");
            ok = false;
        }
        if (!item.GetParentSbjId().empty() && item.GetParentSbjId() != parent) {
            QZCUtility::AddCsvErrorInfo(rowNo, kCodeColumn, "HQZ8260E");
            ok = false;
        }
    }
    if (row.at(kTupleColumn) == "tuple") {
        return checkValidStandardSubjectRequiredItem(codeList, kindCode, item, rowNo) && ok;
    }
    m_tupleChecker.close(item.GetLayerNo());
    return ok;
}

bool QZCValidateMediator2::checkMoney(const std::string& value, int rowNo)
{
    if (!QZCRegex::rgx(m_numberPattern, value)) {
        QZCUtility::AddCsvErrorInfo(rowNo, 2, "HQZ9680E");
        return false;
    }
    if (!isMoneyRange(value)) {
        QZCUtility::AddCsvErrorInfo(rowNo, 2, "HQZ9450E");
        return false;
    }
    return true;
}

bool QZCValidateMediator2::checkValidStandardSubjectValue(const std::vector<std::string>& row,
                                                          const std::string& itemType, const std::string& content,
                                                          bool isAbstract, int rowNo)
{
    // Item type of the line: "" for none (a tuple's type is cleared too),
    // "1", "2", "T" or anything else.
    const bool noType = itemType.empty() || itemType == "EMPTY";
    const bool monetary = itemType == kMonetary && !isAbstract;
    const bool text = itemType == kString && !isAbstract;
    if (row.at(kAbstractColumn).empty()) {
        if (noType || text) {
            return true;
        }
        if (monetary) {
            return checkMoney(content, rowNo);
        }
        QZCUtility::AddCsvErrorInfo(rowNo, 3, "HQZ9820E");
        return false;
    }
    bool ok = true;
    if (!noType && !isAbstract) {
        QZCUtility::AddCsvErrorInfo(rowNo, 3, "HQZ9040E");
        ok = false;
    }
    // A heading carries no value; an empty amount reads "0".
    if (!content.empty() && !(monetary && content == "0")) {
        QZCUtility::AddCsvErrorInfo(rowNo, 2, "HQZ9810E");
        ok = false;
    }
    return ok;
}

bool QZCValidateMediator2::checkValidStandardSubjectRequiredItem(const QZCKamokuCodeListCSV& codeList,
                                                                 const std::string& kindCode,
                                                                 const QZCAccountItem2& item, int rowNo)
{
    const GroupState state = checkNameAndGroup(item, rowNo);
    if (state == GroupState::Stop) {
        return false;
    }
    std::vector<CHILD_ITEM> members;
    if (!codeList.GetChildList(kindCode, item.GetSubjectId(), members)) {
        return state == GroupState::Fine;
    }
    return checkMembers(codeList, kindCode, item, members, rowNo) && state == GroupState::Fine;
}

QZCValidateMediator2::GroupState QZCValidateMediator2::checkNameAndGroup(const QZCAccountItem2& item, int rowNo)
{
    const std::string& code = item.GetSubjectId();
    const int layer = item.GetLayerNo();
    const auto name = m_mapStandardNames.emplace(code, item.GetSubjectName()).first;
    if (name->second != item.GetSubjectName()) {
        QZCUtility::AddCsvErrorInfo(rowNo, 1, "HQZ8250E");
        return GroupState::NameDiffers;
    }
    if (!m_tupleChecker.isExistTuple(code)) {
        m_tupleChecker.add(layer, code);
    } else if (!m_tupleChecker.isOpenType(code)) {
        // A group that was closed appears again.
        QZCUtility::AddCsvErrorInfo(rowNo, kCodeColumn, "HQZ8260E");
        m_tupleChecker.close(layer);
        return GroupState::Stop;
    } else if (m_tupleChecker.getCheckType(layer, code) == 3) {
        QZCUtility::AddCsvErrorInfo(rowNo, kCodeColumn, "HQZ8260E");
        return GroupState::Stop;
    }
    return GroupState::Fine;
}

bool QZCValidateMediator2::checkMembers(const QZCKamokuCodeListCSV& codeList, const std::string& kindCode,
                                        const QZCAccountItem2& item, const std::vector<CHILD_ITEM>& members,
                                        int rowNo)
{
    bool ok = true;
    const auto reject = [&ok](const QZCAccountItem2& child) {
        QZCUtility::AddCsvErrorInfo(child.GetRowNo(), kCodeColumn, "HQZ8260E");
        setErrForChildren(child, kCodeColumn, "HQZ8260E");
        ok = false;
    };
    const std::vector<QZCAccountItem2> children(item.GetChildrenIterator2(), item.GetChildrenEndIterator2());
    size_t m = 0;
    size_t c = 0;
    bool requiredMissing = false;
    while (c < children.size() && m < members.size()) {
        const QZCAccountItem2& child = children[c];
        // Below a member only accounts that the code list puts there.
        for (auto grandChild = child.GetChildrenIterator2(); grandChild != child.GetChildrenEndIterator2();
             ++grandChild) {
            std::vector<std::string> row;
            if (!codeList.GetRow(kindCode, grandChild->GetSubjectId(), row)
                || row.at(kParentColumn) != grandChild->GetParentSbjId()) {
                reject(*grandChild);
            }
        }
        const std::string key = QZCKamokuCodeListCSV::generateKey(kindCode, child.GetSubjectId());
        bool listed = false;
        for (const CHILD_ITEM& member : members) {
            listed = listed || member.key == key;
        }
        if (!listed) {
            reject(child);
            ++c;
        } else if (members[m].key == key) {
            ++c;
            ++m;
        } else {
            requiredMissing = requiredMissing || members[m].substitutionGroup == "1";
            ++m;
        }
    }
    for (; m < members.size(); ++m) {
        requiredMissing = requiredMissing || members[m].substitutionGroup == "1";
    }
    for (; c < children.size(); ++c) {
        reject(children[c]);
    }
    if (requiredMissing) {
        QZCUtility::AddCsvErrorInfo(rowNo, kCodeColumn, "HQZ8260E");
        ok = false;
    }
    return ok;
}

bool QZCValidateMediator2::checkValidOriginalSubject(const QZCAccountItem2& item, int rowNo)
{
    const std::string& type = item.GetItemType();
    if (type != kMonetary && type != kString) {
        QZCUtility::AddCsvErrorInfo(rowNo, 3, "HQZ9830E");
        return false;
    }
    if (item.IsAbstract()) {
        if (item.GetRawContent().empty()) {
            return true;
        }
        QZCUtility::AddCsvErrorInfo(rowNo, 2, "HQZ9810E");
        return false;
    }
    return type != kMonetary || checkMoney(item.GetContent(), rowNo);
}

bool QZCValidateMediator2::isMoneyRange(const std::string& value)
{
    const size_t start = !value.empty() && (value[0] == '+' || value[0] == '-') ? 1 : 0;
    const size_t point = value.find('.', start);
    if (point == std::string::npos) {
        return value.size() - start <= 15;
    }
    return point - start <= 15 && value.size() - point - 1 <= 2;
}

void QZCValidateMediator2::setErrForChildren(const QZCAccountItem2& item, int column, const char* code)
{
    for (auto child = item.GetChildrenIterator2(); child != item.GetChildrenEndIterator2(); ++child) {
        QZCUtility::AddCsvErrorInfo(child->GetRowNo(), column, code);
    }
}
