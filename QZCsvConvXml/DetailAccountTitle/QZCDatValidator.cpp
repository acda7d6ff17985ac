#include "QZCDatValidator.h"

#include "QZCDOMParser.h"
#include "QZCDatValidStyleVersion.h"
#include "QZCLog.h"
#include "QZCUtility.h"

namespace {

struct ArgValidRow {
    const char* type;
    const char* value;
    const char* min;
    const char* max;
    QZCDatMessage_t message;
};

using ArgValidTable = std::vector<ArgValidRow>;

const ArgValidTable CsvValidTable = {
    {"exist", "", "", "", MSG_HQZ9210E},
    {"extension", ".csv", "", "", MSG_NONE},
    {"existpath", "file", "", "", MSG_HQZ9230E},
};
const ArgValidTable PropFolderTable = {
    {"exist", "", "", "", MSG_HQZ9950E},
    {"existpath", "dir1", "", "", MSG_HQZ9240E},
};
const ArgValidTable VRValidTable = {
    {"exist", "", "", "", MSG_HQZ9250E},
    {"styleversion", "", "", "", MSG_HQZ9250E},
};
const ArgValidTable SoftNMValidTable = {
    {"fylstring", "", "", "", MSG_NONE},
};
const ArgValidTable SakuseiNMValidTable = {
    {"exist", "", "", "", MSG_HQZ9270E},
    {"charlength", "", "", "30", MSG_HQZ9990E},
    {"fylstring", "", "", "", MSG_NONE},
};
const ArgValidTable XmlValidTable = {
    {"exist", "", "", "", MSG_HQZ9210E},
    {"existpath", "dir2", "", "", MSG_HQZ9240E},
};
const ArgValidTable PageNoValidTable = {
    {"number", "", "", "", MSG_HQZ9670E},
    {"range", "", "1", "100000000", MSG_HQZ9670E},
};
const ArgValidTable CsvWriteValidTable = {
    {"exist", "", "", "", MSG_HQZ9210E},
    {"extension", ".csv", "", "", MSG_HQZ9370E},
};
const ArgValidTable GetFileNameValidTable = {
    {"exist", "", "", "", MSG_HQZ9210E},
};

const ArgValidTable* FindArgValidTable(QZCDatArgValid_t argument)
{
    switch (argument) {
    case ARG_CSV: return &CsvValidTable;
    case ARG_PROPFOLDER: return &PropFolderTable;
    case ARG_VR: return &VRValidTable;
    case ARG_SOFTNM: return &SoftNMValidTable;
    case ARG_SAKUSEINM: return &SakuseiNMValidTable;
    case ARG_XML: return &XmlValidTable;
    case ARG_PAGENO:
    case ARG_CSVPAGENO:
    case ARG_XMLPAGENO: return &PageNoValidTable;
    case ARG_CSVWRITE: return &CsvWriteValidTable;
    case ARG_GETFILENAME: return &GetFileNameValidTable;
    }
    return nullptr;
}

// A "column" attribute counts from 1; below 1 (or absent) means the default.
long ColumnOf(const std::string& attribute, long defaultColumn)
{
    const int64_t column = QZCUtility::LeadingInteger(attribute);
    return column < 1 ? defaultColumn : column - 1;
}

}  // namespace

QZCDatValidator::~QZCDatValidator() = default;

int QZCDatValidator::Initialize(long column, QZCDOMParser* dom)
{
    const char* label = "QZCDatValidator::Initialize";
    if (dom == nullptr) {
        QZC_LOG(label, "引数エラー。定義体のDOMが存在しません。");
        return -1;
    }
    try {
        Clear();
        if (dom->MoveFirstChild() != 0) {
            return 0;
        }
        int result = 0;
        do {
            if (dom->GetNodeName() != "valid") {
                continue;
            }
            auto item = QZCDatValidItem::CreateItem(
                ColumnOf(dom->GetAttribute("column"), column), dom->GetAttribute("id").c_str(),
                dom->GetAttribute("value").c_str(), dom->GetAttribute("min").c_str(),
                dom->GetAttribute("max").c_str(), QZCDatValidItem::GetMessageNumber(dom->GetAttribute("message")));
            if (!item) {
                QZC_LOG(label, "チェックアイテムが作成できません。");
                result = -1;
                break;
            }
            result = SetUpOuter(dom, item.get());
            if (result != 0) {
                break;
            }
            m_vecItems.push_back(std::move(item));
        } while (dom->MoveNextSibling() == 0);
        if (dom->MoveParent() != 0) {
            QZC_LOG(label, "定義体のDOM操作に失敗しました。");
            return -1;
        }
        return result;
    } catch (...) {
        QZC_LOG(label, "validateの初期処理中にエラーが発生しました。");
        return -1;
    }
}

int QZCDatValidator::SetUpOuter(QZCDOMParser* dom, QZCDatValidItem* item)
{
    const char* label = "QZCDatValidator::SetUpOuter";
    if (dom->MoveFirstChild() != 0) {
        return 0;
    }
    int result = 0;
    do {
        const int64_t column = QZCUtility::LeadingInteger(dom->GetAttribute("column"));
        if (dom->GetNodeName() != "outer" || column < 1) {
            continue;
        }
        auto outer = QZCDatValidItem::CreateItem(column - 1, dom->GetAttribute("id").c_str(),
                                                 dom->GetAttribute("value").c_str(), dom->GetAttribute("min").c_str(),
                                                 dom->GetAttribute("max").c_str(), MSG_NONE);
        if (!outer) {
            QZC_LOG(label, "外部条件アイテムが作成できません。");
            result = -1;
            break;
        }
        const std::string nomsg = dom->GetAttribute("nomsg");
        if (!nomsg.empty()) {
            outer->SetNoMsg(nomsg);
        }
        item->AddOuterItem(std::move(outer));
    } while (dom->MoveNextSibling() == 0);
    if (dom->MoveParent() != 0) {
        QZC_LOG(label, "定義体のDOM操作に失敗しました。");
        return -1;
    }
    return result;
}

int QZCDatValidator::Initialize(QZCDatArgValid_t argument, const char* parameter)
{
    const char* label = "QZCDatValidator::Initialize";
    Clear();
    const ArgValidTable* table = FindArgValidTable(argument);
    if (table == nullptr) {
        QZC_LOG(label, "引数エラー。チェックパラメータ情報が不正です。");
        throw -1;
    }
    for (const ArgValidRow& row : *table) {
        auto item = QZCDatValidItem::CreateItem(-1, row.type, row.value, row.min, row.max, row.message);
        if (!item) {
            QZC_LOG(label, "チェックアイテムが作成できません。");
            throw -1;
        }
        if (argument == ARG_VR && std::string(row.type) == "styleversion") {
            static_cast<QZCDatValidStyleVersion*>(item.get())->SetParam(parameter != nullptr ? parameter : "");
        }
        m_vecItems.push_back(std::move(item));
    }
    return 0;
}

int QZCDatValidator::ValidateCsv(QZCDatCsvFile* csv, long row, long col)
{
    if (csv == nullptr) {
        QZC_LOG("QZCDatValidator::ValidateCsv", "引数エラー。CSV格納情報が不正です。");
        throw -1;
    }
    int result = 0;
    for (const auto& item : m_vecItems) {
        if (item->ValidateCsv(csv, row, col) != 0) {
            result = -1;
        }
    }
    return result;
}

int QZCDatValidator::Validate(const std::string& value, long row, long col)
{
    for (const auto& item : m_vecItems) {
        const int result = item->Validate(value, row, col);
        if (result != 0) {
            return result;
        }
    }
    return 0;
}

void QZCDatValidator::Clear()
{
    m_vecItems.clear();
}
