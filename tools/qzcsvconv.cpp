// qzcsvconv: runs the library's checks from the command line.
//
//   qzcsvconv [--bundle DIR] [--json] [--lang ja|en] COMMAND ARGS...
//
// Commands: xbrl FOLDER STYLE_VERSION, detail CSV STYLE_VERSION,
// detail2 CSV STYLE_VERSION, appended CSV STYLE_VERSION, write OUT DATA_FILE,
// report CSV STYLE_VERSION [-o FILE].
//
// Exit status: 0 when the result is "S_OK", 1 when "E_FAIL", 2 for a usage
// error. With --json, one JSON object on standard output whose keys are the
// result object's property names.
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "ImportCodes.h"
#include "MessageCatalog.h"
#include "QZICsvConvSupport.h"
#include "QZICsvConvXML.h"

namespace {

struct Options {
    std::string bundle;
    bool json = false;
    std::string lang = "ja";
    Language language() const { return lang == "en" ? Language::English : Language::Japanese; }
};

// A text of the report in both languages.
struct Text {
    const char* ja;
    const char* en;
    const char* operator()(Language language) const { return language == Language::English ? en : ja; }
};

const Text kFinancialCheck{"財務諸表CSVのチェック", "Financial statements check"};
const Text kDetailCheck{"勘定科目内訳明細書CSVのチェック", "Detail statement check"};
const Text kAppendedCheck{"別表CSVのチェック", "Appended table check"};
const Text kReport{"帳票XMLの作成", "Report XML"};
const Text kWrite{"CSVファイルの書き込み", "CSV write"};
const Text kConvertible{"変換できます", "can be converted"};
const Text kConvertibleWithWarnings{"変換できます（警告あり）", "can be converted with warnings"};
const Text kNotConvertible{"変換できません", "cannot be converted"};
const Text kWritten{"書き込みました", "written"};
const Text kNotWritten{"書き込めませんでした", "not written"};
const Text kFiles{"ファイル数", "files"};
const Text kStatements{"財務諸表", "Statements"};
const Text kCorporateName{"法人名", "Corporate name"};
const Text kFiscalYear{"事業年度", "Fiscal year"};
const Text kErrors{"エラー", "Errors"};
const Text kWholeFile{"ファイル全体", "whole file"};
const Text kArgument{"引数", "argument"};
const Text kLine{"行", "line"};
const Text kColumn{"列", "column"};
const Text kCheckResults[] = {
    {"変換できます（完全）", "complete: can become XBRL"},
    {"内容に誤りがあります（不完全）", "incomplete: errors in the content"},
    {"他のファイルと一致しません（不整合）", "inconsistent with the other files"},
    {"チェックできません（形式エラー）", "format error: not checked"},
};

// One error entry as a line of the report.
std::string describeEntry(const QZICsvConvSupport::ErrorEntry& entry, Language language)
{
    std::string where;
    if (entry.line == 0 && entry.column == 0)
        where = kWholeFile(language);
    else if (entry.line == 9999)
        where = std::string(kArgument(language)) + " " + std::to_string(entry.column);
    else
        where = std::string(kLine(language)) + " " + std::to_string(entry.line) + ", " + kColumn(language) + " " +
                std::to_string(entry.column);
    return where + ": " + entry.code + " " + messageFor(entry.code, language);
}

void printEntries(std::ostream& out, const std::string& joined, const char* indent, Language language)
{
    if (joined.empty())
        return;
    out << indent << kErrors(language) << ":\n";
    for (const QZICsvConvSupport::ErrorEntry& entry : QZICsvConvSupport::ParseErrorInfo(joined))
        out << indent << "  " << describeEntry(entry, language) << "\n";
}

int exitStatus(const std::string& result)
{
    return result == PROCESS_OK ? 0 : 1;
}

int reportFinancial(const QZICsvConvXbrlResultXML& result, const Options& options)
{
    if (options.json) {
        nlohmann::json out = {
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
        };
        std::cout << out.dump(2) << "\n";
        return exitStatus(result.Result);
    }
    Language language = options.language();
    std::cout << kFinancialCheck(language) << ": " << result.Result << " (" << kFiles(language) << " "
              << result.XbrlCsvFileCount << ")\n";
    printEntries(std::cout, result.DetailErrorInfo, "", language);
    for (size_t i = 0; i < result.CsvFileNameArray.size(); ++i) {
        int code = std::atoi(result.CheckResultArray[i].c_str());
        std::cout << "\n" << result.CsvFileNameArray[i] << ": "
                  << (code >= 0 && code <= 3 ? kCheckResults[code](language) : result.CheckResultArray[i].c_str())
                  << "\n";
        std::cout << "  " << kStatements(language) << ": " << result.XbrlTypeArray[i] << "\n";
        if (!result.CorporateNameArray[i].empty())
            std::cout << "  " << kCorporateName(language) << ": " << result.CorporateNameArray[i] << "\n";
        if (!result.FiscalYearFromArray[i].empty() || !result.FiscalYearToArray[i].empty())
            std::cout << "  " << kFiscalYear(language) << ": " << result.FiscalYearFromArray[i] << " - "
                      << result.FiscalYearToArray[i] << "\n";
        printEntries(std::cout, result.DetailErrorInfoArray[i], "  ", language);
    }
    return exitStatus(result.Result);
}

// What the verdict of a detail or writing operation rests on.
enum class Verdict { Result, Conformity, Written };

int reportDetail(const QZICsvConvResultXML& result, const Text& title, Verdict kind, const Options& options)
{
    if (options.json) {
        nlohmann::json out = {
            {"Result", result.Result},
            {"DetailErrorInfo", result.DetailErrorInfo},
            {"Conformity", result.Conformity},
        };
        std::cout << out.dump(2) << "\n";
        return exitStatus(result.Result);
    }
    Language language = options.language();
    bool ok = result.Result == PROCESS_OK;
    const Text* verdict = ok ? &kConvertible : &kNotConvertible;
    if (kind == Verdict::Written)
        verdict = ok ? &kWritten : &kNotWritten;
    else if (kind == Verdict::Conformity)
        verdict = result.Conformity == 1 ? &kConvertible
                  : result.Conformity == 2 ? &kConvertibleWithWarnings
                                           : &kNotConvertible;
    std::cout << title(language) << ": " << result.Result << "\n" << (*verdict)(language) << "\n";
    printEntries(std::cout, result.DetailErrorInfo, "", language);
    return exitStatus(result.Result);
}

// The report XML of a convertible file, on standard output or into a file;
// the verdict and the entries go to standard error when the XML takes
// standard output.
int reportXml(const QZICsvConvResultXML& result, const std::string& xml, const std::string& output,
              const Options& options)
{
    if (options.json) {
        nlohmann::json out = {
            {"Result", result.Result},
            {"DetailErrorInfo", result.DetailErrorInfo},
            {"Conformity", result.Conformity},
            {"Report", xml},
        };
        std::cout << out.dump(2) << "\n";
    } else {
        std::ostream& log = xml.empty() || !output.empty() ? std::cout : std::cerr;
        Language language = options.language();
        const Text& verdict = result.Conformity == 1   ? kConvertible
                              : result.Conformity == 2 ? kConvertibleWithWarnings
                                                       : kNotConvertible;
        log << kReport(language) << ": " << result.Result << "\n" << verdict(language) << "\n";
        printEntries(log, result.DetailErrorInfo, "", language);
        if (!xml.empty() && output.empty())
            std::cout << xml;
    }
    if (xml.empty())
        return 1;
    if (!output.empty() && !QZICsvConvSupport::WriteFile(output, xml)) {
        std::cerr << "qzcsvconv: cannot write " << output << "\n";
        return 1;
    }
    return 0;
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

}  // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Checks CSV files before they become documents of the Fyla e-filing service.", "qzcsvconv"};
    app.set_version_flag("--version", std::string("qzcsvconv ") + QZC_VERSION);
    Options options;
    app.add_option("--bundle", options.bundle, "Resource bundle folder to use instead of the installed one");
    app.add_flag("--json", options.json, "Print one JSON object with the result's properties");
    app.add_option("--lang", options.lang, "Language of the report")->check(CLI::IsMember({"ja", "en"}));
    app.require_subcommand(1, 1);

    std::string first, second;
    CLI::App* xbrl = app.add_subcommand("xbrl", "Check a folder of financial statements CSV files");
    xbrl->add_option("FOLDER", first, "Folder of the statements files")->required();
    xbrl->add_option("STYLE_VERSION", second, "Style version, such as 3.0")->required();
    auto addCheck = [&](const char* name, const char* description) {
        CLI::App* command = app.add_subcommand(name, description);
        command->add_option("CSV", first, "CSV file")->required();
        command->add_option("STYLE_VERSION", second, "Style version, such as 4.0")->required();
        return command;
    };
    CLI::App* detail = addCheck("detail", "Check a detail statement CSV file (first form, no conformity)");
    CLI::App* detail2 = addCheck("detail2", "Check a detail statement CSV file and report its conformity");
    CLI::App* appended = addCheck("appended", "Check an appended table CSV file and report its conformity");
    CLI::App* write = app.add_subcommand("write", "Write UTF-8 text as a Shift_JIS CSV file");
    write->add_option("OUT", first, "CSV file to write")->required();
    write->add_option("DATA_FILE", second, "File holding the UTF-8 text, - for standard input")->required();
    std::string output;
    CLI::App* report = addCheck("report", "Check a detail statement or appended table and print its report XML");
    report->add_option("-o,--output", output, "Write the report XML to this file instead of standard output");
    std::string third;
    CLI::App* importCodes = app.add_subcommand("import-codes", "Turn a public account list into a code list of the bundle");
    importCodes->add_option("KIND", first, "Statement kind: BS, PL, SC, SS, SE, SR or NT")->required();
    importCodes->add_option("PUBLIC_LIST", second, "The public account list saved as CSV (Shift_JIS or UTF-8)")->required();
    importCodes->add_option("OUT", third, "Code list file to write")->required();

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        app.exit(error);
        return 2;
    }
    if (!options.bundle.empty())
        ::setenv(QZICsvConvSupport::BundleVariable(), options.bundle.c_str(), 1);

    if (*importCodes)
        return ImportCodes(first, second, third, options.json, options.language());

    QZICsvConvXML library;
    if (*detail)
        return reportDetail(library.CsvCheckToDetailAccountTitle(first.c_str(), second.c_str()), kDetailCheck,
                            Verdict::Result, options);
    if (*detail2)
        return reportDetail(library.CsvCheckToDetailAccountTitle2(first.c_str(), second.c_str()), kDetailCheck,
                            Verdict::Conformity, options);
    if (*appended)
        return reportDetail(library.CsvCheckToAppendedTable(first.c_str(), second.c_str()), kAppendedCheck,
                            Verdict::Conformity, options);
    if (*report) {
        std::string xml;
        QZICsvConvResultXML result = library.CsvReportToXml(first.c_str(), second.c_str(), xml);
        return reportXml(result, xml, output, options);
    }
    if (*write) {
        std::optional<std::string> data = readData(second);
        if (!data) {
            std::cerr << "qzcsvconv: cannot read " << second << "\n";
            return 2;
        }
        return reportDetail(library.CsvWrite(first.c_str(), data->c_str()), kWrite, Verdict::Written, options);
    }
    return reportFinancial(library.CsvCheckToXbrl2(first.c_str(), second.c_str()), options);
}
