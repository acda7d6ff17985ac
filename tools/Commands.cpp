#include "Commands.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

#include <dlfcn.h>
#include <sys/stat.h>

#include "QZICsvConvSupport.h"
#include "QZICsvConvXML.h"
#include "QZIFormLayout.h"
#include "Utf8.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kClean = "clean";
constexpr const char* kFindings = "findings";
constexpr const char* kFailed = "failed";

// What an answer gathers besides the result object.
struct Findings {
    std::vector<Json> entries;
    std::vector<std::string> hints;
    std::string verdict = kClean;
    int64_t files = 1;
    int64_t filesWithFindings = 0;
};

std::string fill(std::string text, const std::string& value)
{
    const size_t at = text.find("{}");
    return at == std::string::npos ? text : text.replace(at, 2, value);
}

void append(std::vector<Json>& to, std::vector<Json> from)
{
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

// The whole content of a file, or of standard input for "-", byte for byte.
std::optional<std::string> readData(const std::string& path)
{
    if (path == "-")
        return std::string(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A CSV file read from standard input, kept under the name the library
// needs: the one given with --name or else, for files whose first field is
// the form code, that code, "_", the style version, ".csv".
class StandardInputFile {
public:
    StandardInputFile(const std::string& name, const std::string& styleVersion)
    {
        const std::string data = *readData("-");
        std::string fileName = fs::path(name).filename().string();
        if (fileName.empty()) {
            std::string reportId = data.substr(0, data.find_first_of(",(\r\n"));
            if (reportId.empty() || reportId.find('/') != std::string::npos)
                reportId = "stdin";
            fileName = reportId + "_" + styleVersion + ".csv";
        }
        char folder[] = "/tmp/qzcsvconv.XXXXXX";
        if (!::mkdtemp(folder))
            throw UsageError("cannot keep standard input in a temporary folder");
        m_folder = folder;
        m_path = (m_folder / fileName).string();
        if (!QZICsvConvSupport::WriteFile(m_path, data))
            throw UsageError("cannot keep standard input in " + m_path);
    }
    ~StandardInputFile()
    {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }
    StandardInputFile(const StandardInputFile&) = delete;
    StandardInputFile& operator=(const StandardInputFile&) = delete;
    const std::string& path() const { return m_path; }

private:
    fs::path m_folder;
    std::string m_path;
};

// The folder of the loaded library, where the bundle is looked for when no
// variable names it.
std::string libraryFolder()
{
    Dl_info info{};
    if (::dladdr(static_cast<const void*>(&PROCESS_OK), &info) == 0 || !info.dli_fname)
        return "";
    return fs::path(info.dli_fname).parent_path().string();
}

void checkBundle(Language language, Findings& findings)
{
    if (!QZICsvConvSupport::BundlePath().empty())
        return;
    const char* configured = std::getenv(QZICsvConvSupport::BundleVariable());
    std::string where;
    if (configured && *configured) {
        where = configured;
    } else {
        const std::string folder = libraryFolder();
        where = folder + "/QZCsvConvXml.bundle, " + folder + "/../share/QZCsvConvXml/QZCsvConvXml.bundle";
    }
    findings.hints.push_back(
        fill(Text{"リソースバンドルが見つかりません（探した場所: {}）。--bundle DIR または環境変数 QZCSVCONVXML_BUNDLE "
                  "でバンドルのフォルダを指定してください。",
                  "The resource bundle was not found (looked in: {}). Point the tool at it with --bundle DIR or the "
                  "environment variable QZCSVCONVXML_BUNDLE."}(language),
             where));
    findings.verdict = kFailed;
}

void checkExists(const std::string& path, Language language, Findings& findings)
{
    std::error_code error;
    if (path != "-" && !fs::exists(path, error))
        findings.hints.push_back(fill(Text{"{} は存在しません。", "{} does not exist."}(language), path));
}

// A hint when the file's name belongs to another command than the one given.
void checkOperation(const std::string& command, const std::string& path, Language language, Findings& findings)
{
    const std::optional<QZIFormLayout::Form> form = QZIFormLayout::Recognize(path);
    if (!form)
        return;
    const char* right = form->operation == QZIFormLayout::Operation::Detail    ? "detail"
                        : form->operation == QZIFormLayout::Operation::Detail2 ? "detail2"
                                                                               : "appended";
    if (command == right || (command == "report" && form->operation != QZIFormLayout::Operation::Detail))
        return;
    findings.hints.push_back(fill(Text{"この様式とバージョン（{}）は qzcsvconv ", "This form and version ({}) belong to qzcsvconv "}(language),
                                  form->reportId + " " + form->styleVersion) +
                             right + Text{" でチェックします。", "."}(language));
}

Json detailResult(const QZICsvConvResultXML& result)
{
    return {{"Result", result.Result}, {"DetailErrorInfo", result.DetailErrorInfo}, {"Conformity", result.Conformity}};
}

void runDetail(const Invocation& call, Json& answer, Findings& findings)
{
    const std::string& file = call.arguments[0];
    const std::string& version = call.arguments[1];
    std::optional<StandardInputFile> input;
    if (file == "-")
        input.emplace(call.inputName, version);
    const std::string& path = input ? input->path() : file;

    QZICsvConvXML library;
    QZICsvConvResultXML result;
    std::string xml;
    if (call.command == "detail")
        result = library.CsvCheckToDetailAccountTitle(path.c_str(), version.c_str());
    else if (call.command == "detail2")
        result = library.CsvCheckToDetailAccountTitle2(path.c_str(), version.c_str());
    else if (call.command == "appended")
        result = library.CsvCheckToAppendedTable(path.c_str(), version.c_str());
    else
        result = library.CsvReportToXml(path.c_str(), version.c_str(), xml);
    answer.update(detailResult(result));

    const bool ok = result.Result == PROCESS_OK;
    if (call.command == "detail")
        findings.verdict = !ok ? kFailed : result.DetailErrorInfo.empty() ? kClean : kFindings;
    else
        findings.verdict = !ok || result.Conformity == 0 ? kFailed : result.Conformity == 1 ? kClean : kFindings;
    findings.entries = explainDetail(file, path, version, result.DetailErrorInfo, call.language);
    inspectCsvBytes(file, path, call.language, findings.entries, findings.hints);
    checkOperation(call.command, path, call.language, findings);
    checkExists(file, call.language, findings);
    if (call.command != "report")
        return;

    // A report is handed out only as a well-formed document.
    if (!xml.empty() && !QZICsvConvSupport::IsWellFormedXml(xml)) {
        findings.entries.push_back(makeEntry(file, 0, 0, kReportNotWellFormed, call.language));
        xml.clear();
        findings.verdict = kFailed;
    } else if (xml.empty() && findings.verdict != kFailed) {
        findings.hints.push_back(Text{
            "帳票XMLは作成されませんでした。ファイルの読み込みを止める形式の誤りがあり、ファイル全体を読めないためです。",
            "No report XML was produced: an error in the frame of the file stops reading it, so the file cannot be "
            "reported."}(call.language));
        findings.verdict = kFailed;
    }
    if (!call.output.empty() && findings.verdict != kFailed && !QZICsvConvSupport::WriteFile(call.output, xml)) {
        findings.hints.push_back(fill(Text{"{} に書き込めません。", "Cannot write {}."}(call.language), call.output));
        findings.verdict = kFailed;
    }
    answer["Report"] = xml;
}

void runWrite(const Invocation& call, Json& answer, Findings& findings)
{
    const std::string& target = call.arguments[0];
    const std::string& source = call.arguments[1];
    std::optional<std::string> data = readData(source);
    if (!data)
        throw UsageError("cannot read " + source);
    // Shift_JIS has no byte order mark.
    if (data->rfind("\xEF\xBB\xBF", 0) == 0)
        data->erase(0, 3);
    QZICsvConvResultXML result = QZICsvConvXML().CsvWrite(target.c_str(), data->c_str());
    answer.update(detailResult(result));
    findings.verdict = result.Result == PROCESS_OK ? kClean : kFailed;
    for (const QZICsvConvSupport::ErrorEntry& entry : QZICsvConvSupport::ParseErrorInfo(result.DetailErrorInfo))
        findings.entries.push_back(makeEntry(target, entry.line, entry.column, entry.code, call.language));
    if (result.Result != PROCESS_OK)
        append(findings.entries, inspectWriteData(source, *data, call.language));
}

void runStatements(const Invocation& call, Json& answer, Findings& findings)
{
    const std::string& input = call.arguments[0];
    const std::string& version = call.arguments[1];
    const QZICsvConvXbrlResultXML result = QZICsvConvXML().CsvCheckToXbrl2(input.c_str(), version.c_str());
    answer.update({
        {"Result", result.Result},
        {"DetailErrorInfo", result.DetailErrorInfo},
        {"XbrlCsvFileCount", result.XbrlCsvFileCount},
        {"CsvFileNameArray", result.CsvFileNameArray},
        {"CheckResultArray", result.CheckResultArray},
        {"XbrlTypeArray", result.XbrlTypeArray},
        {"StyleVersionArray", result.StyleVersionArray},
        {"CorporateNameArray", result.CorporateNameArray},
        {"FiscalYearFromArray", result.FiscalYearFromArray},
        {"FiscalYearToArray", result.FiscalYearToArray},
        {"GenericCSVArray", result.GenericCSVArray},
        {"DetailErrorInfoArray", result.DetailErrorInfoArray},
    });

    findings.entries = explainStatements(input, input, result.DetailErrorInfo, call.language);
    findings.files = result.XbrlCsvFileCount;
    for (size_t i = 0; i < result.CsvFileNameArray.size(); ++i) {
        const std::string path = statementsFile(answer, i);
        append(findings.entries, explainStatements(path, path, result.DetailErrorInfoArray[i], call.language));
        inspectCsvBytes(path, path, call.language, findings.entries, findings.hints);
        findings.filesWithFindings += result.CheckResultArray[i] != "0" ? 1 : 0;
    }
    std::error_code error;
    if (result.Result != PROCESS_OK && fs::is_directory(input, error))
        append(findings.entries, inspectFolder(input, call.language));
    checkExists(input, call.language, findings);

    // A record without a file name stands for a check that could not start.
    const auto& names = result.CsvFileNameArray;
    if (result.Result != PROCESS_OK || names.empty() || std::find(names.begin(), names.end(), "") != names.end())
        findings.verdict = kFailed;
    else
        findings.verdict = findings.filesWithFindings == 0 ? kClean : kFindings;
}

// Every text of the answer as valid UTF-8: file names inside a folder may
// be in any encoding.
void makeValid(Json& value)
{
    if (value.is_string())
        value = validUtf8(value.get<std::string>());
    else if (value.is_structured())
        for (Json& element : value)
            makeValid(element);
}

}  // namespace

Json runCommand(const Invocation& call)
{
    Json answer = {{"Command", call.command}, {"Arguments", call.arguments}};
    Findings findings;
    if (call.command == "xbrl")
        runStatements(call, answer, findings);
    else if (call.command == "write")
        runWrite(call, answer, findings);
    else
        runDetail(call, answer, findings);
    if (call.command != "write")
        checkBundle(call.language, findings);

    int64_t blocking = 0;
    bool toolFinding = false;
    for (const Json& entry : findings.entries) {
        blocking += entry["BlocksConversion"].get<bool>() ? 1 : 0;
        toolFinding = toolFinding || entry["Code"].get<std::string>().rfind("QZT", 0) == 0;
    }
    if (toolFinding && findings.verdict == kClean)
        findings.verdict = kFindings;
    if (call.command != "xbrl")
        findings.filesWithFindings = findings.verdict == kClean ? 0 : 1;

    answer["Verdict"] = findings.verdict;
    answer["Valid"] = findings.verdict == kClean;
    answer["Summary"] = {
        {"Entries", findings.entries.size()},
        {"Blocking", blocking},
        {"Files", findings.files},
        {"FilesWithFindings", findings.filesWithFindings},
    };
    answer["Entries"] = std::move(findings.entries);
    answer["Hints"] = std::move(findings.hints);
    makeValid(answer);
    return answer;
}

std::string statementsFile(const Json& answer, size_t index)
{
    const std::string input = answer["Arguments"][0].get<std::string>();
    const std::string name = answer["CsvFileNameArray"][index].get<std::string>();
    return name.empty() || fs::path(input).filename() == name ? input : (fs::path(input) / name).string();
}

int exitStatus(const Json& answer)
{
    return answer.value("Valid", false) ? 0 : 1;
}

void printJson(std::ostream& out, const Json& answer)
{
    out << answer.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}
