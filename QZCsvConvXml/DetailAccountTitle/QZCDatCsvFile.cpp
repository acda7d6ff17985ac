#include "QZCDatCsvFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "QZCCsvTokenizer.h"
#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatITData.h"
#include "QZCDatValidFylstring.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"

namespace {

constexpr int64_t kMaxRecordCount = int64_t{1} << 31;
constexpr long kMaxPageNumber = 100000000;

bool IsLineEnd(char c)
{
    return c == '\r' || c == '\n';
}

QZCDatITData* ITData()
{
    return QZCDatConvertInfo::instance()->GetITData();
}

// The first detail operation: a detail statement (0x0001) of 0x0100.
bool IsTypeCaseDetail()
{
    return ITData()->IsUtiwakeOn() && ITData()->IsD15HO001On();
}

void AddError(int64_t line, int64_t column, const char* code)
{
    QZCUtility::AddCsvErrorInfo(static_cast<int>(line), static_cast<int>(column), code);
}

}  // namespace

int QZCDatCsvFile::ReadFile(const char* path, QZCDOMParser* definition)
{
    const char* label = "QZCDatCsvFile::ReadFile";
    if (path == nullptr || *path == '\0') {
        QZCUtility::AddParamErrorInfoDefinition(1, "HQZ9230E");
        QZC_LOG(label, "ファイル名が設定されていません。");
        return -1;
    }
    try {
        m_pDefinition = definition;
        Clear();
        const char* problem = QZCMacOSNative::csvFileProblem(path);
        if (*problem != '\0') {
            QZC_LOG(label, problem);
            QZCUtility::AddParamErrorInfoDefinition(1, "HQZ9230E");
            return -1;
        }
        const std::string text = QZCMacOSNative::readSJISFile(path);
        g_nRecordCount = GetRoughRecordCount(text);
        int result = Parse(text.c_str());
        int64_t line = 0;
        if (result == 0 && ITData()->IsUtiwakeOn() && !IsCorrectRecordRelation(line)) {
            AddError(line, 1, "HQZ9580E");
            QZC_LOG(label, "ページごとの最大行数超過（HQZ9580E）");
            result = -1;
        }
        if (result == 0 && m_mapFormatKubun.empty()) {
            AddError(0, 0, "HQZ9620E");
            QZC_LOG(label, "CSVデータに有効なレコードが存在しません。（HQZ9620E）");
            result = -1;
        }
        return result;
    } catch (...) {
        QZC_LOG(label, "想定外エラーが発生しました。");
        throw -1;
    }
}

int QZCDatCsvFile::ParseSimply(const char* text)
{
    const char* label = "QZCDatCsvFile::ParseSimply";
    try {
        m_bSimpleMode = true;
        Parse(text);
        if (m_nInvalidResult == 0) {
            return 0;
        }
        g_nRecordCount = GetRecordCount();
        AddError(m_nInvalidLine, m_nInvalidColumn, "HQZ8230E");
        QZC_LOG(label, "Fyla利用可能文字ではない");
        return -1;
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
        QZC_LOG(label, "想定外エラーが発生しました。");
        throw -1;
    }
}

int QZCDatCsvFile::Parse(const char* text)
{
    if (text == nullptr) {
        QZC_LOG("QZCDatCsvFile::Parse", "引数のポインタが不正です。");
        throw -1;
    }
    const std::string_view view(text);
    size_t lineEnds = 0;
    size_t separators = 0;
    for (const char c : view) {
        lineEnds += c == '\n';
        separators += c == ',';
    }
    if (!m_fields.Reserve(view.size(), lineEnds, separators)) {
        QZC_LOG("QZCDatCsvFile::Parse", "想定外エラーが発生しました。");
        throw -1;
    }
    const bool complete = QZCCsvTokenizer::Split(
        view, QZCCsvTokenizer::QuotedEnd::DropsEmptyRecord,
        [this](std::string_view field, bool endOfRecord, QZCCsvTokenizer::Span) {
            return ColumnTerm(field, endOfRecord) == 0;
        });
    return complete ? 0 : -1;
}

int64_t QZCDatCsvFile::GetRoughRecordCount(const std::string& text) const
{
    // A line end right after the previous one (or a first line of one byte)
    // adds nothing; the text after the last line end counts as a line.
    int64_t count = 0;
    size_t lastEnd = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (!IsLineEnd(text[i])) {
            continue;
        }
        if (i != 0 && i != lastEnd + 1) {
            ++count;
        }
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            ++i;
        }
        lastEnd = i;
    }
    if (text.size() > lastEnd + 1) {
        ++count;
    }
    if (count >= kMaxRecordCount) {
        QZC_LOG("QZCDatCsvFile::GetRoughRecordCount", "想定外エラーが発生しました。");
        throw -1;
    }
    return count;
}

std::map<std::string, ReportAttr_t> QZCDatCsvFile::GetFormatKubun() const
{
    return m_mapFormatKubun;
}

int64_t QZCDatCsvFile::GetRecordCount() const
{
    const auto count = static_cast<int64_t>(m_fields.RecordCount());
    if (count >= kMaxRecordCount) {
        QZC_LOG("QZCDatCsvFile::GetRecordCount", "想定外エラーが発生しました。");
        throw -1;
    }
    return count;
}

bool QZCDatCsvFile::IsValidRecord(int64_t record) const
{
    return *GetItem(record, 0) != '\0' && m_fields.At(static_cast<size_t>(record)).count >= 2;
}

const char* QZCDatCsvFile::GetItem(int64_t record, int64_t field) const
{
    if (record < 0 || field < 0 || record >= static_cast<int64_t>(m_fields.RecordCount()) || field > UINT32_MAX) {
        return "";
    }
    return Field(m_fields.At(static_cast<size_t>(record)), static_cast<uint32_t>(field));
}

void QZCDatCsvFile::SetItem(const std::string& value, int64_t record, int64_t field)
{
    if (record < 0 || field < 0 || record >= static_cast<int64_t>(m_fields.RecordCount()) ||
        field >= m_fields.At(static_cast<size_t>(record)).count) {
        return;
    }
    m_fields.SetField(static_cast<size_t>(record), static_cast<uint32_t>(field), value.c_str());
}

bool QZCDatCsvFile::IsMeisai(int64_t record, int64_t field) const
{
    return std::strcmp(GetItem(record, field), "0") == 0;
}

const char* QZCDatCsvFile::GetRecordMeisaiGoukei(int64_t record) const
{
    return GetItem(record, 1);
}

int64_t QZCDatCsvFile::GetMaxOccurs(const std::string& formatKubun) const
{
    const auto found = m_mapFormatKubun.find(formatKubun);
    return found != m_mapFormatKubun.end() ? found->second.maxOccurs : 0;
}

int64_t QZCDatCsvFile::GetMaxOccursPerTag(const std::string& formatKubun) const
{
    const auto found = m_mapFormatKubun.find(formatKubun);
    return found != m_mapFormatKubun.end() ? found->second.maxOccursPerTag : 0;
}

void QZCDatCsvFile::DeleteEmptyRecord()
{
    m_fields.RemoveRecordsWithoutFirstField();
}

void QZCDatCsvFile::Clear()
{
    m_mapFormatKubun.clear();
    m_mapMaxOccurs.clear();
    m_mapFormatKubunInfo.clear();
    m_fields.Clear();
    m_nColumnCount = 0;
    m_nMaxOccurs = 0;
}

int QZCDatCsvFile::ColumnTerm(std::string_view field, bool endOfRecord)
{
    m_fields.AddField(field);
    if (!endOfRecord) {
        return 0;
    }
    const Record record = m_fields.EndRecord();
    if (!m_bSimpleMode) {
        if (!ValidateRecord(record)) {
            return -1;
        }
    } else if (m_nInvalidResult == 0) {
        ValidFylstring(record);
    }
    m_fields.Keep(record);
    return 0;
}

bool QZCDatCsvFile::ValidateRecord(const Record& record)
{
    const char* label = "QZCDatCsvFile::ValidateRecord";
    const int64_t line = CurrentLine();
    const std::string formatKubun = Field(record, 0);
    if (formatKubun.empty() && record.count == 1) {
        AddError(0, 0, "HQZ9300E");
        QZC_LOG(label, "CSVのカラム数が不正です");
        return false;
    }
    if (IsTypeCaseDetail() && m_nInvalidResult == 0) {
        ValidFylstring(record);
        if (m_nInvalidResult != 0) {
            AddError(0, 0, "HQZ9310E");
            QZC_LOG(label, "Fyla使用可能文字ではない");
            return false;
        }
    }
    if (formatKubun.empty()) {
        AddError(line, 1, "HQZ9570E");
        QZC_LOG(label, "フォーマット区分が空欄");
        return false;
    }
    const FormatKubunInfo& info = LookUpFormatKubun(formatKubun);
    if (!info.found) {
        AddError(line, 1, "HQZ9580E");
        QZC_LOG(label, "フォーマット区分が正しくないか該当するフォーマット区分がみつからない");
        return false;
    }
    m_nColumnCount = info.columnNum;
    m_nMaxOccurs = info.maxOccurs;
    FormatKubunAdds(formatKubun, info.columnNum, info.maxOccurs, info.maxOccursPerTag);
    const auto fields = static_cast<int64_t>(record.count);
    const bool extraCountFits = std::any_of(info.columnNumEx.begin(), info.columnNumEx.end(),
                                            [&](int64_t count) { return count == fields && count >= m_nColumnCount; });
    if (fields != m_nColumnCount && !extraCountFits) {
        AddError(0, 0, "HQZ9300E");
        QZC_LOG(label, "CSVのカラム数が不正です");
        return false;
    }
    if (ITData()->IsUtiwakeOn() && !GyouKubunCheck(formatKubun, Field(record, 1))) {
        return false;
    }
    m_mapMaxOccurs.try_emplace(formatKubun, m_nMaxOccurs);
    return true;
}

void QZCDatCsvFile::ValidFylstring(const Record& record)
{
    for (uint32_t column = 1; column <= record.count; ++column) {
        QZCDatValidFylstring validator(static_cast<long>(column - 1), MSG_NONE);
        m_strScratch.assign(Field(record, column - 1));
        const int result = validator.validate(m_strScratch);
        if (result != 0) {
            m_nInvalidLine = CurrentLine();
            m_nInvalidColumn = static_cast<int64_t>(column);
            m_nInvalidResult = result;
            return;
        }
    }
}

bool QZCDatCsvFile::IsValidFormatKubun(const std::string& formatKubun, const std::string& styleVersion) const
{
    if (m_pDefinition->GetNodeName() != "report" || m_pDefinition->GetAttribute("reportVR") != styleVersion) {
        return false;
    }
    const std::string id = m_pDefinition->GetAttribute("id");
    const std::string bracketed = m_pDefinition->GetAttribute("bracketed");
    if (id == formatKubun) {
        // The first detail operation wants a page-numbered form written with its page number.
        return QZCUtility::LeadingInteger(bracketed) == 0 || !IsTypeCaseDetail();
    }
    const size_t open = formatKubun.find('(');
    if (open == std::string::npos || formatKubun.compare(0, open, id) != 0) {
        return false;
    }
    return IsValidFormatKubunPageNumber(formatKubun.substr(open), bracketed);
}

bool QZCDatCsvFile::IsValidFormatKubunPageNumber(const std::string& rest, const std::string& bracketed) const
{
    const size_t open = rest.find('(');
    const size_t close = rest.find(')');
    return QZCUtility::LeadingInteger(bracketed) == 1 && open != std::string::npos && close != std::string::npos &&
           close == rest.size() - 1 && close > open && IsValidPageNumber(rest.substr(open + 1, close - open - 1));
}

bool QZCDatCsvFile::IsValidPageNumber(const std::string& text) const
{
    if (!std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; })) {
        return false;
    }
    errno = 0;
    const long page = std::strtol(text.c_str(), nullptr, 10);
    return errno != ERANGE && page >= 1 && page <= kMaxPageNumber;
}

std::vector<int64_t> QZCDatCsvFile::GetVecColCount(const std::string& text) const
{
    std::vector<int64_t> counts;
    std::istringstream stream(QZCPublicFunction::StringTrim(text));
    for (std::string piece; stream >> piece;) {
        counts.push_back(QZCUtility::LeadingInteger(piece));
    }
    return counts;
}

void QZCDatCsvFile::FormatKubunAdds(const std::string& formatKubun, int64_t columnNum, int64_t maxOccurs,
                                    int64_t maxOccursPerTag)
{
    m_mapFormatKubun.try_emplace(formatKubun.substr(0, formatKubun.find('(')),
                             ReportAttr_t{columnNum, maxOccurs, maxOccursPerTag});
}

bool QZCDatCsvFile::GyouKubunCheck(const std::string& formatKubun, const std::string& gyouKubun)
{
    const char* label = "QZCDatCsvFile::GyouKubunCheck";
    const int64_t line = CurrentLine();
    if (gyouKubun.empty()) {
        AddError(line, 2, "HQZ9590E");
        QZC_LOG(label, "行区分が空欄（HQZ9590E）");
        return false;
    }
    const std::vector<std::string>& kinds = LookUpFormatKubun(formatKubun).meisaiGoukei;
    if (std::find(kinds.begin(), kinds.end(), gyouKubun) != kinds.end()) {
        return true;
    }
    AddError(line, 2, "HQZ9600E");
    QZC_LOG(label, (gyouKubun == "0" || gyouKubun == "1") ? "行区分的には正しいが定義体と一致しない（HQZ9600E）"
                                                          : "不正な行区分（HQZ9600E）");
    return false;
}

bool QZCDatCsvFile::IsCorrectRecordRelation(int64_t& line) const
{
    std::map<std::string, int64_t> counts;
    int64_t number = 0;
    for (size_t index = 0; index < m_fields.RecordCount(); ++index) {
        const Record& record = m_fields.At(index);
        ++number;
        const char* formatKubun = Field(record, 0);
        if (std::strchr(formatKubun, '(') == nullptr) {
            continue;
        }
        const int64_t count = ++counts[formatKubun];
        const auto max = m_mapMaxOccurs.find(formatKubun);
        if (max != m_mapMaxOccurs.end() && count > max->second) {
            line = number;
            return false;
        }
    }
    return true;
}

const QZCDatCsvFile::FormatKubunInfo& QZCDatCsvFile::LookUpFormatKubun(const std::string& formatKubun)
{
    const auto cached = m_mapFormatKubunInfo.find(formatKubun);
    if (cached != m_mapFormatKubunInfo.end()) {
        return cached->second;
    }
    FormatKubunInfo info;
    if (m_pDefinition != nullptr && m_pDefinition->MoveRoot() == 0 && m_pDefinition->MoveFirstChild() == 0) {
        const std::string styleVersion = ITData()->GetITData(ARG_VR);
        do {
            if (IsValidFormatKubun(formatKubun, styleVersion)) {
                info.found = true;
                info.columnNum = QZCUtility::LeadingInteger(m_pDefinition->GetAttribute("columnNum"));
                info.columnNumEx = GetVecColCount(m_pDefinition->GetAttribute("columnNumEx"));
                info.maxOccurs = QZCUtility::LeadingInteger(m_pDefinition->GetAttribute("maxOccurs"));
                info.maxOccursPerTag = QZCUtility::LeadingInteger(m_pDefinition->GetAttribute("maxOccursPerTag"));
                break;
            }
        } while (m_pDefinition->MoveNextSibling() == 0);
        // The row kinds come from the first report whose id starts the field-1 text.
        if (info.found && m_pDefinition->MoveRoot() == 0 && m_pDefinition->MoveFirstChild() == 0) {
            bool matched = false;
            do {
                const std::string id = m_pDefinition->GetAttribute("id");
                matched = m_pDefinition->GetNodeName() == "report" && formatKubun.compare(0, id.size(), id) == 0 &&
                          m_pDefinition->GetAttribute("reportVR") == styleVersion;
            } while (!matched && m_pDefinition->MoveNextSibling() == 0);
            if (matched && m_pDefinition->MoveFirstChild() == 0) {
                do {
                    if (m_pDefinition->GetNodeName() == "item") {
                        info.meisaiGoukei.push_back(m_pDefinition->GetAttribute("meisaiGoukei"));
                    }
                } while (m_pDefinition->MoveNextSibling() == 0);
            }
        }
    }
    return m_mapFormatKubunInfo.emplace(formatKubun, std::move(info)).first->second;
}

const char* QZCDatCsvFile::Field(const Record& record, uint32_t field) const
{
    return m_fields.Field(record, field);
}

int64_t QZCDatCsvFile::CurrentLine() const
{
    return static_cast<int64_t>(m_fields.RecordCount()) + 1;
}
