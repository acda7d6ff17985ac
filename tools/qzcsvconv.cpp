// qzcsvconv: runs the library's checks from the command line.
//
//   qzcsvconv [OPTIONS] COMMAND ARGS...
//
// Options may stand before or after the command. The exit status is 0 when
// nothing was found, 1 when anything was found or the operation failed and
// 2 for a usage error; with --json the tool prints one JSON object (see
// qzcsvconv-answer.schema.json).
#include <cstdlib>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "Check.h"
#include "Commands.h"
#include "HtmlReport.h"
#include "ImportCodes.h"
#include "Normalize.h"
#include "QZICsvConvSupport.h"
#include "QZICsvConvXML.h"
#include "TextReport.h"

namespace {

// The language of the locale's messages: Japanese for a Japanese locale.
std::string defaultLanguage()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value && *value)
            return std::strncmp(value, "ja", 2) == 0 ? "ja" : "en";
    }
    return "en";
}

const char* const kFooter = R"(Examples:
  qzcsvconv xbrl examples/financial-statements 3.0
      check a folder of financial statements (or one file of it)
  qzcsvconv detail2 HOI010_4.0.csv 4.0
      check a detail statement of the newer style versions and its conformity
  qzcsvconv detail HOI010_2.0.csv 2.0
      check a detail statement of the oldest style version of its form
  qzcsvconv appended HOB016_6.0.csv 6.0
      check an appended table and its conformity
  qzcsvconv report HOI110_3.0.csv 3.0 -o HOI110.xml
      check a detail statement or appended table and write its report XML
  printf 'HOI010,0,みなと銀行,1200000\r\n' | qzcsvconv write HOI010_4.0.csv -
      write UTF-8 text as a Shift_JIS CSV file
  qzcsvconv --json --lang en --name HOI010_4.0.csv detail2 - 4.0 < bank.csv
      a CSV file on standard input ("-"), checked under the name --name gives
  qzcsvconv check --html filing.html filing/ HOB016_6.0.csv
      check every file and folder of a filing in parallel, each by the command
      its file name belongs to, and show it as a page with the errors marked
  find filing -name '*.csv' | qzcsvconv check -j 4 -
      the paths to check on standard input
  qzcsvconv normalize --fold-accents HOI010_4.0_bank.csv HOI010_4.0.csv
      repair the characters and widths of a file (UTF-8 or Shift_JIS) and
      write it as Shift_JIS; every change is listed

Exit status:
  0  nothing was found: the file can be converted, was written, every
     statements file is complete, or (check) every input is clean
  1  anything was found or the operation failed
  2  usage error

The language defaults to Japanese when LC_ALL, LC_MESSAGES or LANG names a
Japanese locale, else English. The output has no colour (NO_COLOR is
respected by having none).)";

int usageError(const std::string& message)
{
    std::cerr << "qzcsvconv: " << message << "\nRun 'qzcsvconv --help' for the commands and their arguments.\n";
    return 2;
}

int run(int argc, char** argv)
{
    CLI::App app{"Checks CSV files before they become documents of the Fyla e-filing service.", "qzcsvconv"};
    app.set_version_flag("-V,--version", std::string("qzcsvconv ") + QZC_VERSION + "\nlibrary QZCsvConvXml " +
                                             reinterpret_cast<const char*>(QZCsvConvXmlVersionString) +
                                             "\nanswer schema " + kSchemaVersion);
    app.footer(kFooter);
    app.fallthrough();
    app.allow_extras();
    app.require_subcommand(0, 1);

    Invocation call;
    std::string bundle;
    bool json = false;
    std::string lang = defaultLanguage();
    // A later option overrides an earlier one, so that scripts can add to a command line.
    app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    app.add_option("--bundle", bundle, "Resource bundle folder to use instead of the installed one");
    app.add_flag("--json", json, "Print one JSON object: the result's properties, Valid, Summary, Entries, Hints");
    app.add_option("--name", call.inputName,
                   "File name to check a CSV file on standard input under, such as HOI010_4.0_bank.csv");
    app.add_option("--lang", lang, "Language of the report and of the messages (default from the locale)")
        ->check(CLI::IsMember({"ja", "en"}));
    std::string html;
    app.add_option("--html", html, "Also write the answer as a self-contained HTML page to this file");

    std::vector<std::string> arguments(3);
    auto addCommand = [&](const char* name, const char* description, const char* first, const char* firstHelp,
                          const char* second, const char* secondHelp) {
        CLI::App* command = app.add_subcommand(name, description);
        command->add_option(first, arguments[0], firstHelp)->required();
        command->add_option(second, arguments[1], secondHelp)->required();
        return command;
    };
    addCommand("xbrl", "Check a folder of financial statements CSV files (or one file)", "FOLDER",
               "Folder of the statements files, or one of them", "STYLE_VERSION", "Style version, such as 3.0");
    addCommand("detail", "Check a detail statement of the oldest style version of its form", "CSV",
               "CSV file, - for standard input", "STYLE_VERSION", "Style version, such as 2.0");
    addCommand("detail2", "Check a detail statement of a newer style version and tell its conformity", "CSV",
               "CSV file, - for standard input", "STYLE_VERSION", "Style version, such as 4.0");
    addCommand("appended", "Check an appended table and tell its conformity", "CSV",
               "CSV file, - for standard input", "STYLE_VERSION", "Style version, such as 6.0");
    addCommand("write", "Write UTF-8 text as a Shift_JIS CSV file", "OUT", "CSV file to write", "DATA_FILE",
               "File holding the UTF-8 text, - for standard input");
    addCommand("report", "Check a detail statement or appended table and print its report XML", "CSV",
               "CSV file, - for standard input", "STYLE_VERSION", "Style version, such as 4.0")
        ->add_option("-o,--output", call.output, "Write the report XML to this file instead of standard output");
    addCommand("import-codes", "Turn a public account list into a code list of the bundle", "KIND",
               "Statement kind: BS, PL, SC, SS, SE, SR or NT", "PUBLIC_LIST",
               "The public account list saved as CSV (Shift_JIS or UTF-8)")
        ->add_option("OUT", arguments[2], "Code list file to write")
        ->required();
    NormalizeOptions normalize;
    CLI::App* normalizeCommand = app.add_subcommand(
        "normalize", "Rewrite a CSV file into the characters and widths its form accepts, as Shift_JIS");
    normalizeCommand->add_option("IN", normalize.input, "CSV file, Shift_JIS or UTF-8")->required();
    normalizeCommand->add_option("OUT", normalize.output, "File to write");
    normalizeCommand->add_flag("--in-place", normalize.inPlace, "Rewrite IN itself");
    normalizeCommand->add_option("--for", normalize.form, "The form, such as HOI010_4.0 (default: from IN's name)");
    normalizeCommand->add_flag("--fold-accents", normalize.foldAccents, "Write letters with accents as their base letters");

    CheckOptions checkOptions;
    CLI::App* check = app.add_subcommand("check", "Check files and folders of a filing, each by the command its "
                                                  "file name belongs to, in parallel");
    check->add_option("PATH", checkOptions.paths, "Files and folders; - for a list of paths on standard input")
        ->required();
    check->add_option("-j,--jobs", checkOptions.jobs, "Inputs checked at once (default: one per core)")
        ->check(CLI::PositiveNumber);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        return usageError(error.what());
    }
    std::string commands;
    for (const CLI::App* command : app.get_subcommands([](CLI::App*) { return true; }))
        commands += (commands.empty() ? "" : ", ") + command->get_name();
    if (app.get_subcommands().empty()) {
        if (app.remaining().empty())
            return usageError("a command is required: " + commands + ".");
        return usageError("unknown command '" + app.remaining().front() + "'; the commands are " + commands + ".");
    }
    if (!app.remaining().empty())
        return usageError("unexpected argument '" + app.remaining().front() + "'.");

    if (!bundle.empty())
        ::setenv(QZICsvConvSupport::BundleVariable(), bundle.c_str(), 1);
    const Language language = lang == "en" ? Language::English : Language::Japanese;
    auto writeHtml = [&](const Json& answers) {
        if (!html.empty() && !QZICsvConvSupport::WriteFile(html, htmlPage(answers, language)))
            throw std::runtime_error("cannot write " + html);
    };
    if (*check) {
        checkOptions.json = json;
        checkOptions.language = language;
        const Json answer = runCheck(checkOptions);
        if (json)
            printJson(std::cout, answer);
        else
            printCheckSummary(std::cout, answer, language);
        writeHtml(answer["Answers"]);
        return exitStatus(answer);
    }

    call.command = app.get_subcommands().front()->get_name();
    call.language = language;
    if (call.command == "import-codes")
        return ImportCodes(arguments[0], arguments[1], arguments[2], json, language);
    if (call.command == "normalize")
        return Normalize(normalize, json, language);
    call.arguments = {arguments[0], arguments[1]};
    const Json answer = runCommand(call);
    writeHtml(Json::array({answer}));
    if (json) {
        printJson(std::cout, answer);
    } else {
        // The report XML takes standard output unless it goes to a file.
        const bool xmlOut = call.command == "report" && call.output.empty() && !answer["Report"].get<std::string>().empty();
        printAnswer(xmlOut ? std::cerr : std::cout, answer, language);
        if (xmlOut)
            std::cout << answer["Report"].get<std::string>();
    }
    return exitStatus(answer);
}

}  // namespace

int main(int argc, char** argv)
{
    try {
        return run(argc, argv);
    } catch (const UsageError& error) {
        return usageError(error.what());
    } catch (const std::exception& error) {
        std::cerr << "qzcsvconv: " << error.what() << "\n";
    } catch (...) {
        std::cerr << "qzcsvconv: unexpected failure\n";
    }
    return 1;
}
