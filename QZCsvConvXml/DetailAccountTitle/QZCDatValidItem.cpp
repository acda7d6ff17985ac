#include "QZCDatValidItem.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include "QZCDatCsvFile.h"
#include "QZCDatValidAlnum.h"
#include "QZCDatValidAlnum2.h"
#include "QZCDatValidAlnum3.h"
#include "QZCDatValidCharlength.h"
#include "QZCDatValidContain.h"
#include "QZCDatValidDecimal.h"
#include "QZCDatValidEmpty.h"
#include "QZCDatValidExist.h"
#include "QZCDatValidExistdate.h"
#include "QZCDatValidExistmonth.h"
#include "QZCDatValidExistpath.h"
#include "QZCDatValidExistyear.h"
#include "QZCDatValidExtension.h"
#include "QZCDatValidFylstring.h"
#include "QZCDatValidLength.h"
#include "QZCDatValidMultibyte.h"
#include "QZCDatValidNumber.h"
#include "QZCDatValidRange.h"
#include "QZCDatValidRange2.h"
#include "QZCDatValidStyleVersion.h"
#include "QZCLog.h"

namespace {

using Item = std::unique_ptr<QZCDatValidItem>;
using Maker = Item (*)(long, QZCDatMessage_t, const char*, const char*, const char*);

// One maker per way the factory hands its parameters to a class.
template <class T>
Item Make(long column, QZCDatMessage_t message, const char*, const char*, const char*)
{
    return std::make_unique<T>(column, message);
}

template <class T>
Item MakeWithValue(long column, QZCDatMessage_t message, const char* value, const char*, const char*)
{
    auto item = std::make_unique<T>(column, message);
    item->SetParam(value);
    return item;
}

template <class T>
Item MakeWithMax(long column, QZCDatMessage_t message, const char*, const char*, const char* max)
{
    auto item = std::make_unique<T>(column, message);
    item->SetParam(max);
    return item;
}

template <class T>
Item MakeWithMinMax(long column, QZCDatMessage_t message, const char*, const char* min, const char* max)
{
    auto item = std::make_unique<T>(column, message);
    item->SetParam(min, max);
    return item;
}

template <class T>
Item MakeWithValueMax(long column, QZCDatMessage_t message, const char* value, const char*, const char* max)
{
    auto item = std::make_unique<T>(column, message);
    item->SetParam(value, max);
    return item;
}

struct FactoryRow {
    const char* type;
    Maker make;
};

const FactoryRow kFactoryTable[] = {
    {"alnum", Make<QZCDatValidAlnum>},
    {"alnum2", Make<QZCDatValidAlnum2>},
    {"alnum3", Make<QZCDatValidAlnum3>},
    {"charlength", MakeWithMax<QZCDatValidCharlength>},
    {"contain", MakeWithValue<QZCDatValidContain>},
    {"empty", Make<QZCDatValidEmpty>},
    {"fylstring", Make<QZCDatValidFylstring>},
    {"exist", Make<QZCDatValidExist>},
    {"existdate", Make<QZCDatValidExistdate>},
    {"existmonth", Make<QZCDatValidExistmonth>},
    {"existyear", Make<QZCDatValidExistyear>},
    {"existpath", MakeWithValue<QZCDatValidExistpath>},
    {"extension", MakeWithValue<QZCDatValidExtension>},
    {"length", MakeWithValueMax<QZCDatValidLength>},
    {"styleversion", Make<QZCDatValidStyleVersion>},
    {"decimal", Make<QZCDatValidDecimal>},
    {"number", Make<QZCDatValidNumber>},
    {"range", MakeWithMinMax<QZCDatValidRange>},
    {"range2", MakeWithMinMax<QZCDatValidRange2>},
    {"multibyte", Make<QZCDatValidMultibyte>},
};

}  // namespace

QZCDatValidItem::QZCDatValidItem(long column, QZCDatMessage_t message)
    : m_nMessage(message), m_nColumn(column)
{
}

QZCDatValidItem::~QZCDatValidItem() = default;

std::unique_ptr<QZCDatValidItem> QZCDatValidItem::CreateItem(long column, const char* type, const char* value,
                                                             const char* min, const char* max,
                                                             QZCDatMessage_t message)
{
    if (type == nullptr || value == nullptr || min == nullptr || max == nullptr) {
        QZC_LOG("QZCDatValidItem::CreateItem", "引数エラー。チェックパラメータ情報が不正です。");
        return nullptr;
    }
    for (const FactoryRow& row : kFactoryTable) {
        if (std::strcmp(row.type, type) == 0) {
            return row.make(column, message, value, min, max);
        }
    }
    QZC_LOG("QZCDatValidItem::CreateItem", ("不明なValidのidが指定されています。 " + std::string(type)).c_str());
    return nullptr;
}

QZCDatMessage_t QZCDatValidItem::GetMessageNumber(const std::string& code)
{
    if (code.empty()) {
        return MSG_NONE;
    }
    for (int64_t index = 1; index < MSG_COUNT; ++index) {
        if (code == DatMsgTable[index].code) {
            return static_cast<QZCDatMessage_t>(index);
        }
    }
    return MSG_NONE;
}

void QZCDatValidItem::AddOuterItem(std::unique_ptr<QZCDatValidItem> outer)
{
    m_vecOuterItems.push_back(std::move(outer));
}

int QZCDatValidItem::ValidateCsv(QZCDatCsvFile* csv, long row, long /*col*/)
{
    RequireCsv(csv, "QZCDatValidItem::ValidateCsv");
    // A failing outer condition with nomsg "1" switches this check off for the
    // record; any other failing outer condition has reported itself and fails
    // the record, but the own check still runs so that its error shows too.
    bool outerFailed = false;
    for (const auto& outer : m_vecOuterItems) {
        if (outer->ValidateOuter(csv, row, -1) != 0) {
            if (outer->GetNoMsg() == "1") {
                return 0;
            }
            outerFailed = true;
        }
    }
    const std::string value = csv->GetItem(row, m_nColumn);
    const QZCDatMessage_t result = Check(value);
    if (result != MSG_NONE) {
        RecordError(row + 1, m_nColumn + 1, result);
        return -1;
    }
    if (outerFailed) {
        return -1;
    }
    std::string updated;
    if (_updated(updated, value)) {
        csv->SetItem(updated, row, m_nColumn);
    }
    return 0;
}

int QZCDatValidItem::Validate(const std::string& value, long row, long col)
{
    const QZCDatMessage_t result = Check(value);
    if (result == MSG_NONE) {
        return 0;
    }
    RecordError(row, col, result);
    QZC_LOG("QZCDatValidItem::Validate", "入力値チェックエラー。");
    return -1;
}

int QZCDatValidItem::ValidateOuter(QZCDatCsvFile* csv, long row, long col)
{
    RequireCsv(csv, "QZCDatValidItem::ValidateOuter");
    const QZCDatMessage_t result = Check(csv->GetItem(row, m_nColumn));
    if (result == MSG_NONE) {
        return 0;
    }
    if (m_strNoMsg != "1") {
        // An outer condition has no message of its own.
        QZCUtility::AddCsvErrorInfo(static_cast<int>(row + 1),
                                    static_cast<int>((m_nColumn < 0 ? col : m_nColumn) + 1),
                                    DatMsgTable[result].code);
    }
    return -1;
}

void QZCDatValidItem::SetNoMsg(const std::string& nomsg)
{
    m_strNoMsg = nomsg;
}

std::string QZCDatValidItem::GetNoMsg() const
{
    return m_strNoMsg;
}

QZCDatMessage_t QZCDatValidItem::_validate(const std::string& /*value*/)
{
    return MSG_NONE;
}

bool QZCDatValidItem::_updated(std::string& /*out*/, const std::string& /*value*/)
{
    return false;
}

QZCDatMessage_t QZCDatValidItem::Check(const std::string& value)
{
    try {
        return _validate(value);
    } catch (...) {
        QZC_LOG("QZCDatValidItem::Check", "想定外エラーが発生しました。");
        throw;
    }
}

void QZCDatValidItem::RecordError(long line, long column, QZCDatMessage_t result) const
{
    const QZCDatMessage_t message = m_nMessage != MSG_NONE ? m_nMessage : result;
    QZCUtility::AddCsvErrorInfo(static_cast<int>(line), static_cast<int>(column), DatMsgTable[message].code);
}

void QZCDatValidItem::RequireCsv(const QZCDatCsvFile* csv, const char* label)
{
    if (csv == nullptr) {
        QZC_LOG(label, "引数エラー。CSV格納情報が不正です。");
        throw -1;
    }
}

QZCDatMessage_t QZCDatValidItem::Fail(const char* label, QZCDatMessage_t message)
{
    QZC_LOG(label, "入力値チェックエラー。");
    return message;
}

void QZCDatValidItem::ThrowParamError(const char* label)
{
    QZC_LOG(label, "定義体パラメータ指定エラー。");
    throw -1;
}

bool QZCDatValidItem::IsDigitOrLineEnd(char c)
{
    return (c >= '0' && c <= '9') || c == '\n' || c == '\r';
}

bool QZCDatValidItem::StartsWithSign(const std::string& value)
{
    return !value.empty() && (value[0] == '+' || value[0] == '-');
}

bool QZCDatValidItem::IsAllBytes(const std::string& value, bool (*accept)(char), bool signAllowed)
{
    const auto begin = value.begin() + (signAllowed && StartsWithSign(value) ? 1 : 0);
    return std::all_of(begin, value.end(), accept);
}

std::vector<std::string> QZCDatValidItem::SplitWords(const std::string& list)
{
    std::vector<std::string> words;
    std::istringstream stream(list);
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}
