#include "QZCDatXMLManager.h"

#include <memory>

#include "QZCDOMParser.h"
#include "QZCDatConvertInfo.h"
#include "QZCDatCsvFile.h"
#include "QZCDatDefinition.h"
#include "QZCDatValidFylstring.h"
#include "QZCDatValidator.h"
#include "QZCLog.h"
#include "QZCMacOSNative.h"
#include "QZCPublicFunction.h"
#include "QZCUtility.h"

namespace {

struct ReportVersion {
    const char* reportId;
    const char* version;
};

// Forms of the detail statements and their style versions. A row applies
// when every bit of its mask is set in the type case; empty slots are null.
struct DatReportRow {
    uint16_t mask;
    ReportVersion slots[16];
};

const DatReportRow DATCaRiVr[] = {
    {0x0100,
     {{"HOI010", "2.0"}, {"HOI020", "1.1"}, {"HOI030", "1.1"}, {"HOI040", "1.1"}, {"HOI050", "2.0"},
      {"HOI060", "2.0"}, {"HOI070", "2.0"}, {"HOI080", "1.1"}, {"HOI090", "2.0"}, {"HOI100", "3.0"},
      {"HOI110", "1.1"}, {"HOI120", "2.0"}, {"HOI130", "3.0"}, {"HOI141", "3.0"}, {"HOI150", "1.0"},
      {"HOI160", "1.0"}}},
    {0x0400,
     {{"HOI010", "3.0"}, {"HOI020", "2.0"}, {"HOI030", "2.0"}, {"HOI040", "2.0"}, {"HOI050", "3.0"},
      {"HOI060", "3.0"}, {"HOI070", "3.0"}, {"HOI080", "2.0"}, {"HOI090", "3.0"}, {"HOI100", "4.0"},
      {"HOI110", "2.0"}, {"HOI120", "3.0"}, {"HOI130", "4.0"}, {"HOI141", "4.0"}, {"HOI150", "2.0"},
      {"HOI160", "2.0"}}},
    {0x0400,
     {{"HOI010", "4.0"}, {"HOI020", "3.0"}, {"HOI030", "3.0"}, {"HOI040", "3.0"}, {"HOI050", "4.0"},
      {"HOI060", "4.0"}, {"HOI070", "4.0"}, {"HOI080", "3.0"}, {"HOI090", "4.0"}, {"HOI100", "5.0"},
      {"HOI110", "3.0"}, {"HOI120", "4.0"}, {"HOI130", "5.0"}, {"HOI141", "5.0"}, {"HOI150", "3.0"},
      {"HOI160", "3.0"}}},
    {0x0400,
     {{"HOI020", "4.0"}, {"HOI030", "4.0"}, {"HOI040", "4.0"}, {"HOI070", "5.0"}, {"HOI080", "4.0"},
      {"HOI090", "5.0"}, {"HOI100", "6.0"}, {"HOI120", "5.0"}, {"HOI150", "4.0"}, {"HOI160", "4.0"}}},
};

// Forms of the appended tables, newest version first within each form.
struct DatReportList {
    uint16_t mask;
    ReportVersion pairs[193];
};

const DatReportList DATCaRiVrBEP = {
    0x0200,
    {
        {"HOB016", "6.0"}, {"HOB016", "5.0"}, {"HOB016", "4.0"},
        {"HOB040", "7.0"}, {"HOB040", "6.0"},
        {"HOB042", "15.0"}, {"HOB042", "14.0"}, {"HOB042", "13.0"}, {"HOB042", "12.0"}, {"HOB042", "11.0"},
        {"HOB068", "9.0"}, {"HOB068", "8.0"}, {"HOB068", "7.0"}, {"HOB068", "6.0"}, {"HOB068", "5.0"}, {"HOB068", "4.0"},
        {"HOB205", "10.0"}, {"HOB205", "9.0"},
        {"HOB211", "16.0"}, {"HOB211", "15.0"}, {"HOB211", "14.0"}, {"HOB211", "13.0"}, {"HOB211", "12.0"}, {"HOB211", "11.0"},
        {"HOB161", "16.0"}, {"HOB161", "15.0"}, {"HOB161", "14.0"}, {"HOB161", "13.0"}, {"HOB161", "12.0"}, {"HOB161", "11.0"},
        {"HOB655", "10.0"}, {"HOB655", "9.0"}, {"HOB655", "8.0"}, {"HOB655", "7.0"}, {"HOB655", "6.0"}, {"HOB655", "5.0"},
        {"HOB680", "9.0"}, {"HOB680", "8.0"}, {"HOB680", "7.0"}, {"HOB680", "6.0"}, {"HOB680", "5.0"}, {"HOB680", "4.0"},
        {"HOB634", "10.0"}, {"HOB634", "9.0"}, {"HOB634", "8.0"}, {"HOB634", "7.0"},
        {"HOB647", "8.0"}, {"HOB647", "7.0"}, {"HOB647", "6.0"}, {"HOB647", "5.0"}, {"HOB647", "4.0"}, {"HOB647", "3.0"},
        {"HOB630", "14.0"}, {"HOB630", "13.0"}, {"HOB630", "12.0"}, {"HOB630", "11.0"}, {"HOB630", "10.0"}, {"HOB630", "9.0"},
        {"HOB670", "12.0"}, {"HOB670", "11.0"}, {"HOB670", "10.0"}, {"HOB670", "9.0"}, {"HOB670", "8.0"},
        {"HOR616", "6.0"}, {"HOR616", "5.0"}, {"HOR616", "4.0"},
        {"HOR742", "7.0"}, {"HOR742", "6.0"}, {"HOR742", "5.0"}, {"HOR742", "4.0"}, {"HOR742", "3.0"},
        {"HOR671", "14.0"}, {"HOR671", "13.0"}, {"HOR671", "12.0"}, {"HOR671", "11.0"},
        {"HOR786", "6.0"}, {"HOR786", "5.0"}, {"HOR786", "4.0"}, {"HOR786", "3.0"},
        {"HOR783", "8.0"}, {"HOR783", "7.0"}, {"HOR783", "6.0"}, {"HOR783", "5.0"}, {"HOR783", "4.0"},
        {"HOR683", "4.0"}, {"HOR683", "3.0"}, {"HOR683", "2.0"},
        {"HOR627", "13.0"}, {"HOR627", "12.0"}, {"HOR627", "11.0"}, {"HOR627", "10.0"}, {"HOR627", "9.0"},
        {"HOR721", "8.0"}, {"HOR721", "7.0"},
        {"HOB800", "18.0"}, {"HOB800", "16.0"}, {"HOB800", "15.0"}, {"HOB800", "14.0"}, {"HOB800", "13.0"},
        {"HOB810", "8.0"}, {"HOB810", "7.0"}, {"HOB810", "6.0"}, {"HOB810", "5.0"},
        {"HOR800", "12.0"}, {"HOR800", "11.0"}, {"HOR800", "10.0"},
        {"HOR802", "3.0"},
        {"HOC060", "14.0"}, {"HOC060", "13.0"}, {"HOC060", "12.0"},
        {"HOC061", "2.0"}, {"HOC061", "1.0"},
        {"HOC086", "4.0"}, {"HOC086", "3.0"},
        {"HOC110", "10.0"}, {"HOC110", "9.0"},
        {"HOC112", "17.0"}, {"HOC112", "16.0"}, {"HOC112", "15.0"}, {"HOC112", "14.0"}, {"HOC112", "13.0"}, {"HOC112", "12.0"},
        {"HOD190", "15.0"}, {"HOD190", "14.0"}, {"HOD190", "13.0"}, {"HOD190", "12.0"},
        {"HOD201", "14.0"}, {"HOD201", "13.0"}, {"HOD201", "12.0"}, {"HOD201", "11.0"}, {"HOD201", "10.0"},
        {"HOD451", "7.1"}, {"HOD451", "7.0"}, {"HOD451", "6.0"}, {"HOD451", "5.0"}, {"HOD451", "4.0"},
        {"HOD495", "7.0"}, {"HOD495", "6.0"},
        {"HOE104", "7.0"}, {"HOE104", "6.0"},
        {"HOE099", "12.0"}, {"HOE099", "11.0"}, {"HOE099", "10.0"}, {"HOE099", "9.0"}, {"HOE099", "8.0"},
        {"HOE101", "4.0"}, {"HOE101", "3.0"},
        {"HOB911", "4.0"}, {"HOB911", "3.0"},
        {"HOB920", "10.0"}, {"HOB920", "9.0"}, {"HOB920", "8.0"},
        {"HOR820", "11.0"}, {"HOR820", "10.0"},
        {"HOE351", "4.0"}, {"HOE351", "3.0"},
        {"HOE370", "9.0"}, {"HOE370", "8.0"},
        {"HOE371", "3.0"}, {"HOE371", "2.0"}, {"HOE371", "1.0"},
        {"HOE410", "4.0"}, {"HOE410", "3.0"}, {"HOE410", "2.0"},
        {"HOE432", "4.0"},
        {"HOE434", "8.0"}, {"HOE434", "7.0"}, {"HOE434", "6.0"}, {"HOE434", "5.0"}, {"HOE434", "4.0"},
        {"HOE440", "9.0"}, {"HOE440", "8.0"}, {"HOE440", "7.0"}, {"HOE440", "6.0"}, {"HOE440", "5.0"},
        {"HOE600", "11.0"}, {"HOE600", "10.0"},
        {"HOL025", "10.0"}, {"HOL025", "9.0"},
        {"HOL040", "18.0"}, {"HOL040", "17.0"}, {"HOL040", "16.0"}, {"HOL040", "15.0"},
        {"HOL049", "10.0"}, {"HOL049", "9.0"}, {"HOL049", "8.0"}, {"HOL049", "7.0"},
        {"HOE605", "3.0"}, {"HOE605", "2.0"}, {"HOE605", "1.0"},
        {"HOB806", "1.0"},
        {"HOL335", "2.0"}, {"HOL335", "1.0"},
    },
};

QZCDatITData* ITData()
{
    return QZCDatConvertInfo::instance()->GetITData();
}

bool RowApplies(uint16_t mask, uint16_t typeCase)
{
    return (mask & typeCase) == mask;
}

// Splits text at its first '.'; false when there is none or nothing follows it.
bool SplitAtFirstDot(const std::string& text, std::string& base, std::string& minor)
{
    const size_t dot = text.find('.');
    if (dot == std::string::npos || dot + 1 == text.size()) {
        return false;
    }
    base = text.substr(0, dot);
    minor = text.substr(dot + 1, text.find('_', dot + 1) - dot - 1);
    return true;
}

void Unexpected(const char* label)
{
    QZCUtility::AddOtherExceptionErrorInfo();
    QZC_LOG(label, "想定外エラーが発生しました。");
}

}  // namespace

QZCDatXMLManager::QZCDatXMLManager(uint16_t typeCase) : m_nTypeCase(typeCase) {}

QZCDatXMLManager::~QZCDatXMLManager()
{
    Terminate(true);
}

void QZCDatXMLManager::InitObject()
{
    if (!SetTypeCaseInside()) {
        throw -1;
    }
}

bool QZCDatXMLManager::SetTypeCaseInside()
{
    try {
        ITData()->SetTypeCase(m_nTypeCase);
        return true;
    } catch (...) {
        return false;
    }
}

int QZCDatXMLManager::InitForPath(QZCDatArgValid_t kind, const char* value)
{
    try {
        const std::string trimmed = QZCPublicFunction::StringTrim(value != nullptr ? value : "");
        std::string checked = trimmed;
        long column = 1;
        if (kind == ARG_PROPFOLDER) {
            checked = trimmed.empty() ? std::string()
                                      : QZCMacOSNative::appendFilePath(QZCMacOSNative::getBundlePath().c_str(),
                                                                       trimmed.c_str());
            column = 2;
        } else if (kind != ARG_CSV && kind != ARG_CSVWRITE) {
            return 0;
        }
        QZCDatValidator validator;
        validator.Initialize(kind, nullptr);
        if (validator.Validate(checked, 9999, column) != 0) {
            return -1;
        }
        if (kind == ARG_CSV) {
            m_strCsvPath = trimmed;
            return SetITData(ARG_CSV, trimmed.c_str());
        }
        if (kind == ARG_PROPFOLDER) {
            m_strDefinitionFolder = checked;
        }
        return 0;
    } catch (...) {
        Unexpected("QZCDatXMLManager::InitForPath");
        return -1;
    }
}

int QZCDatXMLManager::SetITData(QZCDatArgValid_t kind, const char* value)
{
    try {
        const std::string trimmed = QZCPublicFunction::StringTrim(value != nullptr ? value : "");
        QZCDatITData* data = ITData();
        switch (kind) {
        case ARG_CSV:
            data->SetCsvFileName(QZCMacOSNative::getLastPathComponent(trimmed.c_str(), true));
            return 0;
        case ARG_VR: {
            if (IsCorrectCsvFilenameInternal(m_strCsvPath) != 0) {
                QZCUtility::AddCsvErrorInfo(0, 0, "HQZ9350E");
                m_strReportId = "-";
                return -1;
            }
            const std::string reportId = GetReportId();
            if (reportId.empty()) {
                return -1;
            }
            if (data->IsUtiwakeOn() && !CheckStyleVersion(reportId, trimmed)) {
                QZCUtility::AddCsvErrorInfo(9999, 3, "HQZ9250E");
                return -1;
            }
            data->Initialize(ARG_VR, DefinitionPath(reportId, trimmed).c_str());
            return data->SetITData(ARG_VR, trimmed.c_str());
        }
        case ARG_PAGENO:
        case ARG_CSVPAGENO:
        case ARG_XMLPAGENO: {
            QZCDatValidator validator;
            validator.Initialize(kind, nullptr);
            if (validator.Validate(trimmed, 9999, kind % 10) != 0) {
                return -1;
            }
            data->SetPageNo(kind, trimmed.c_str());
            return 0;
        }
        default:
            data->Initialize(kind, nullptr);
            return data->SetITData(kind, trimmed.c_str());
        }
    } catch (...) {
        Unexpected("QZCDatXMLManager::SetITData");
        return -1;
    }
}

int QZCDatXMLManager::IsCorrectCsvFilename(const std::string& path)
{
    if (IsCorrectCsvFilenameInternal(path) == 0) {
        return 0;
    }
    QZCUtility::AddCsvErrorInfo(0, 0, "HQZ9350E");
    return -1;
}

int QZCDatXMLManager::IsCorrectCsvFilenameInternal(const std::string& path)
{
    std::string base;
    std::string minor;
    const std::string name = QZCMacOSNative::getLastPathComponent(path.c_str(), false);
    if (name.empty() || !SplitAtFirstDot(name, base, minor)) {
        return -1;
    }
    if (!m_strReportId.empty()) {
        return IsValidFilename(base, minor, GetIdVr("_")) ? 0 : -1;
    }
    if ((m_nTypeCase & 0x0001) != 0) {
        for (const DatReportRow& row : DATCaRiVr) {
            if (!RowApplies(row.mask, m_nTypeCase)) {
                continue;
            }
            for (const ReportVersion& slot : row.slots) {
                if (IsValidFilename(base, minor, slot.reportId, slot.version)) {
                    return 0;
                }
            }
        }
    } else if ((m_nTypeCase & 0x0200) != 0) {
        for (const ReportVersion& pair : DATCaRiVrBEP.pairs) {
            if (IsValidFilename(base, minor, pair.reportId, pair.version)) {
                return 0;
            }
        }
    }
    return -1;
}

bool QZCDatXMLManager::IsValidFilename(const std::string& base, const std::string& minor, const char* reportId,
                                       const char* version)
{
    if (reportId == nullptr || version == nullptr) {
        return false;
    }
    return IsValidFilename(base, minor, std::string(reportId) + "_" + version);
}

bool QZCDatXMLManager::IsValidFilename(const std::string& base, const std::string& minor,
                                       const std::string& candidate)
{
    std::string candidateBase;
    std::string candidateMinor;
    if (!SplitAtFirstDot(candidate, candidateBase, candidateMinor)) {
        return false;
    }
    // A file of an earlier minor version of the same major version passes.
    return base == candidateBase && minor.size() == candidateMinor.size() &&
           QZCUtility::LeadingInteger(minor) <= QZCUtility::LeadingInteger(candidateMinor);
}

std::string QZCDatXMLManager::GetIdVr(const std::string& separator)
{
    const char* label = "QZCDatXMLManager::GetIdVr";
    std::string idVr;
    try {
        QZCDOMParser parser;
        if (!parser.Initialize()) {
            QZC_LOG(label, "DOMParserの初期化に失敗しました。");
            throw -1;
        }
        if (!parser.Parse(DefinitionPath(GetReportId(), ITData()->GetITData(ARG_VR)).c_str())) {
            QZC_LOG(label, "検証定義体の読み込みでエラーが発生しました。");
            throw -1;
        }
        if (parser.MoveRoot() == 0 && parser.MoveFirstChild() == 0) {
            idVr = parser.GetAttribute("reportId");
            idVr += separator;
            idVr += parser.GetAttribute("reportVR");
        }
    } catch (...) {
        QZCUtility::AddOtherExceptionErrorInfo();
    }
    return idVr;
}

const std::string& QZCDatXMLManager::GetReportId()
{
    const char* label = "QZCDatXMLManager::GetReportId";
    if (!m_strReportId.empty()) {
        return m_strReportId;
    }
    try {
        const char* path = m_strCsvPath.c_str();
        const char* problem = QZCMacOSNative::csvFileProblem(path);
        if (*problem != '\0') {
            QZC_LOG(label, problem);
            if (IsTypeCaseDetail()) {
                QZCUtility::AddParamErrorInfoDefinition(1, "HQZ9230E");
            }
            return m_strReportId;
        }
        m_strCsvData = QZCMacOSNative::readSJISFile(path);
        const size_t comma = m_strCsvData.find(',');
        if (comma == std::string::npos) {
            if (IsTypeCaseDetail()) {
                QZCUtility::AddCsvErrorInfo(1, 1, "HQZ9580E");
            }
            QZC_LOG(label, "フォーマット区分が正しくない");
            return m_strReportId;
        }
        std::string kubun = m_strCsvData.substr(0, comma);
        if (!kubun.empty() && kubun.front() == '"') {
            kubun.erase(0, 1);
            if (!kubun.empty() && kubun.back() == '"') {
                kubun.erase(kubun.find('"'));
            }
        }
        if (QZCPublicFunction::StringTrim(kubun).empty()) {
            if (IsTypeCaseDetail()) {
                QZCUtility::AddCsvErrorInfo(1, 1, "HQZ9570E");
            }
            QZC_LOG(label, "フォーマット区分が空欄");
            return m_strReportId;
        }
        const std::string name = QZCMacOSNative::getLastPathComponent(path, false);
        const size_t underscore = name.find('_');
        if (underscore != std::string::npos) {
            m_strReportId = name.substr(0, underscore);
        }
        return m_strReportId;
    } catch (...) {
        Unexpected(label);
        throw -1;
    }
}

bool QZCDatXMLManager::CheckStyleVersion(const std::string& reportId, const std::string& version) const
{
    for (const DatReportRow& row : DATCaRiVr) {
        if (!RowApplies(row.mask, m_nTypeCase)) {
            continue;
        }
        for (const ReportVersion& slot : row.slots) {
            if (slot.reportId != nullptr && reportId == slot.reportId && version == slot.version) {
                return true;
            }
        }
    }
    return false;
}

bool QZCDatXMLManager::SetInputReportVersion(const char* version)
{
    if (!m_strReportId.empty()) {
        return false;
    }
    m_strInputReportVersion = version != nullptr ? version : "";
    return true;
}

int QZCDatXMLManager::AppearanceCheck(const char* csvPath)
{
    const char* label = "QZCDatXMLManager::AppearanceCheck";
    try {
        const std::string path = QZCPublicFunction::StringTrim(csvPath != nullptr ? csvPath : "");
        if (IsCorrectCsvFilenameInternal(path) != 0) {
            QZCUtility::AddCsvErrorInfo(0, 0, "HQZ9350E");
            return -1;
        }
        const std::string name = QZCMacOSNative::getLastPathComponent(path.c_str(), true);
        if (QZCDatValidFylstring(0, MSG_NONE).validate(name) != 0) {
            QZCUtility::AddCsvErrorInfo(0, 0, "HQZ8230E");
            QZC_LOG(label, "ファイル名にFyla利用可能文字以外を含む");
            return -1;
        }
        // Trimmed in place: a copy of a large file's text costs as much as reading it.
        const std::string_view kept = QZCMacOSNative::viewByTrimming(m_strCsvData);
        const size_t begin = static_cast<size_t>(kept.data() - m_strCsvData.data());
        m_strCsvData.resize(begin + kept.size());
        m_strCsvData.erase(0, begin);
        if (QZCDatCsvFile().ParseSimply(m_strCsvData.c_str()) != 0) {
            QZC_LOG(label, "CSVデータにFyla利用可能文字以外を含む");
            return -1;
        }
        if (QZCMacOSNative::getCharacterLength(name.c_str()) >= 126) {
            QZCUtility::AddCsvErrorInfo(0, 0, "HQZ9660E");
            return -1;
        }
        return 0;
    } catch (...) {
        Unexpected(label);
        return -1;
    }
}

int QZCDatXMLManager::LoadCsvWithDefinition()
{
    const char* label = "QZCDatXMLManager::LoadCsvWithDefinition";
    try {
        QZCDatConvertInfo* info = QZCDatConvertInfo::instance();
        info->GetITData()->SetCsvData(m_strCsvData);
        const std::string& reportId = GetReportId();
        if (reportId.empty()) {
            throw -1;
        }
        QZCDOMParser parser;
        if (!parser.Initialize()) {
            QZC_LOG(label, "DOMParserの初期化に失敗しました。");
            throw -1;
        }
        if (!parser.Parse(DefinitionPath(reportId, ITData()->GetITData(ARG_VR)).c_str())) {
            QZC_LOG(label, "検証定義体の読み込みでエラーが発生しました。");
            throw -1;
        }
        QZCDatCsvFile* csv = info->GetCsvFile();
        const int read = csv->ReadFile(m_strCsvPath.c_str(), &parser);
        if (read != 0) {
            return read;
        }
        QZCDatDefinition* definition = info->GetDefinition();
        definition->ClearVecRootNode();
        if (definition->CreateValidDefinition(csv->GetFormatKubun(), &parser) != 0) {
            throw -1;
        }
        return 0;
    } catch (...) {
        Unexpected(label);
        return -1;
    }
}

int QZCDatXMLManager::MakeReport(std::string& xml)
{
    const char* label = "QZCDatXMLManager::MakeReport";
    try {
        QZCDatConvertInfo* info = QZCDatConvertInfo::instance();
        QZCDOMParser parser;
        if (!parser.Initialize() || !parser.Parse(DefinitionPath(GetReportId(), ITData()->GetITData(ARG_VR)).c_str())) {
            QZC_LOG(label, "検証定義体の読み込みでエラーが発生しました。");
            throw -1;
        }
        QZCDatCsvFile* csv = info->GetCsvFile();
        QZCDatDefinition* definition = info->GetDefinition();
        if (definition->CreatePrintDefinition(csv->GetFormatKubun(), &parser) != 0) {
            throw -1;
        }
        xml = definition->MakeReportToCsv(csv, info->GetITData());
        return 0;
    } catch (...) {
        Unexpected(label);
        return -1;
    }
}

const std::string& QZCDatXMLManager::GetCsvData() const
{
    return m_strCsvData;
}

int QZCDatXMLManager::ValidateCsv()
{
    try {
        QZCDatConvertInfo* info = QZCDatConvertInfo::instance();
        return info->GetDefinition()->ValidateCsv(info->GetCsvFile()) != 0 ? -1 : 0;
    } catch (...) {
        Unexpected("QZCDatXMLManager::ValidateCsv");
        return -1;
    }
}

void QZCDatXMLManager::Terminate(bool destroy)
{
    if (destroy) {
        QZCDatConvertInfo::destroy();
    }
}

bool QZCDatXMLManager::IsTypeCaseDetail() const
{
    // Only the first detail operation reports what is wrong with the content here.
    return (m_nTypeCase & TYPECASE_DETAIL) == TYPECASE_DETAIL;
}

std::string QZCDatXMLManager::DefinitionPath(const std::string& reportId, const std::string& version) const
{
    return QZCMacOSNative::appendFilePath(m_strDefinitionFolder.c_str(),
                                          (reportId + "_" + version + "_vld.xml").c_str());
}
