#include "HtmlReport.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "Commands.h"
#include "QZICsvConvSupport.h"
#include "TextReport.h"
#include "Utf8.h"

namespace {

constexpr size_t kMaxRows = 200;
constexpr size_t kContextRows = 3;

const char* const kStyle = R"(
body { font-family: sans-serif; margin: 1.5em; color: #222; }
h1 { font-size: 1.4em; } h2 { font-size: 1.15em; margin-top: 2em; border-bottom: 1px solid #ccc; }
summary { font-weight: bold; margin: 0.8em 0 0.3em; cursor: pointer; }
table { border-collapse: collapse; margin: 0.5em 0; }
th, td { border: 1px solid #ccc; padding: 2px 6px; vertical-align: top; text-align: left; }
th { background: #f3f3f3; }
.clean { color: #176f2c; } .findings { color: #9a5b00; } .failed { color: #b00020; }
td.verdict { font-weight: bold; }
td.bad { background: #ffd6d6; outline: 2px solid #d00; }
tr.bad-row > th { background: #ffd6d6; }
tr.gap td { color: #777; font-style: italic; background: #fafafa; }
.hints li { color: #9a5b00; }
.only:checked ~ table.data tbody tr:not(.bad-row) { display: none; }
)";

std::string escaped(const std::string& text)
{
    std::string out;
    for (char c : validUtf8(text)) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        case '\'': out += "&#39;"; break;
        default: out += c;
        }
    }
    return out;
}

std::string textOf(const Json& value)
{
    return value.is_string() ? value.get<std::string>() : std::string();
}

std::string cell(const std::string& tag, const std::string& text, const std::string& attributes = "")
{
    return "<" + tag + attributes + ">" + text + "</" + tag + ">";
}

// The files whose data an answer shows.
std::vector<std::string> dataFiles(const Json& answer)
{
    const std::string command = textOf(answer["Command"]);
    std::vector<std::string> files;
    if (command == "xbrl") {
        for (size_t i = 0; i < answer["CsvFileNameArray"].size(); ++i)
            files.push_back(statementsFile(answer, i));
    } else if (command != "write" && command != "unknown" && textOf(answer["Arguments"][0]) != "-") {
        files.push_back(textOf(answer["Arguments"][0]));
    }
    return files;
}

// The lines shown of a file of count lines: all of a short file, else
// those with errors and the lines around them, up to kMaxRows.
std::vector<size_t> shownLines(size_t count, const std::set<size_t>& marked)
{
    std::vector<size_t> lines;
    if (count <= kMaxRows) {
        for (size_t line = 1; line <= count; ++line)
            lines.push_back(line);
        return lines;
    }
    std::set<size_t> chosen;
    for (size_t line : marked) {
        for (size_t around = line > kContextRows ? line - kContextRows : 1;
             around <= std::min(count, line + kContextRows) && chosen.size() < kMaxRows; ++around)
            chosen.insert(around);
    }
    for (size_t line = 1; chosen.size() < std::min(kMaxRows, count) && line <= count; ++line)
        chosen.insert(line);  // a file without marked lines shows its start
    return {chosen.begin(), chosen.end()};
}

// The data of a file, open at once when it has findings.
void writeData(std::string& page, const std::string& file, const Json& entries, const std::string& id, bool open,
               Language language)
{
    const std::vector<std::vector<std::string>> records = QZICsvConvSupport::ReadCsvRecords(file);
    if (records.empty())
        return;
    // The messages of each marked cell, and the marked lines.
    std::map<std::pair<size_t, size_t>, std::string> marks;
    std::set<size_t> markedLines;
    for (const Json& entry : entries) {
        const std::string scope = textOf(entry["Scope"]);
        if (textOf(entry["File"]) != file || (scope != "cell" && scope != "line"))
            continue;
        const auto line = entry["Line"].get<size_t>();
        markedLines.insert(line);
        std::string& title = marks[{line, scope == "cell" ? entry["Column"].get<size_t>() : 0}];
        title += (title.empty() ? "" : "\n") + textOf(entry["Code"]) + " " + textOf(entry["Message"]);
        if (entry["Rule"].is_string())
            title += Text{"（規則: ", " (rule: "}(language) + textOf(entry["Rule"]) + Text{"）", ")"}(language);
    }
    size_t columns = 0;
    for (const std::vector<std::string>& record : records)
        columns = std::max(columns, record.size());
    const std::vector<size_t> lines = shownLines(records.size(), markedLines);

    page += std::string("<details class=\"file\"") + (open ? " open" : "") + ">" + cell("summary", escaped(file));
    page += "<input type=\"checkbox\" class=\"only\" id=\"only-" + id + "\"><label for=\"only-" + id + "\">" +
            Text{"誤りのある行だけ表示", "Only the lines with errors"}(language) + "</label>";
    if (lines.size() < records.size())
        page += cell("p", escaped(std::to_string(lines.size()) + " / " + std::to_string(records.size()) +
                                  Text{" 行を表示: 誤りのある行とその前後3行（最大200行）",
                                       " lines shown: the lines with errors and three lines around each (at most 200)"}(
                                      language)));
    page += "<table class=\"data\"><thead><tr><th>" + std::string(Text{"行", "line"}(language)) + "</th>";
    for (size_t column = 1; column <= columns; ++column)
        page += cell("th", std::to_string(column));
    page += "</tr></thead><tbody>";
    size_t previous = 0;
    for (size_t line : lines) {
        if (line > previous + 1)
            page += "<tr class=\"gap\"><td colspan=\"" + std::to_string(columns + 1) + "\">… " +
                    std::to_string(line - previous - 1) + Text{" 行 …", " lines …"}(language) + "</td></tr>";
        previous = line;
        const auto lineMark = marks.find({line, 0});
        page += std::string("<tr") + (markedLines.count(line) ? " class=\"bad-row\"" : "") + ">";
        page += cell("th", std::to_string(line),
                     lineMark != marks.end() ? " title=\"" + escaped(lineMark->second) + "\"" : "");
        const std::vector<std::string>& record = records[line - 1];
        for (size_t column = 1; column <= columns; ++column) {
            const std::string value = column <= record.size() ? escaped(shownValue(record[column - 1])) : "";
            const auto mark = marks.find({line, column});
            page += mark == marks.end()
                        ? cell("td", value)
                        : cell("td", value,
                               " class=\"bad\" data-at=\"" + std::to_string(line) + "," + std::to_string(column) +
                                   "\" title=\"" + escaped(mark->second) + "\"");
        }
        page += "</tr>";
    }
    page += "</tbody></table></details>";
}

void writeAnswer(std::string& page, const Json& answer, size_t index, Language language)
{
    const std::string verdict = textOf(answer["Verdict"]);
    page += "<section id=\"input-" + std::to_string(index) + "\" class=\"input\">";
    page += cell("h2", escaped(textOf(answer["Arguments"][0])));
    page += cell("p", escaped(titleOf(answer, language) + ": " + textOf(answer["Result"])) + " — " +
                          cell("span", escaped(verdictInWords(answer, language)), " class=\"" + verdict + "\""));
    if (!answer["Hints"].empty()) {
        page += "<ul class=\"hints\">";
        for (const Json& hint : answer["Hints"])
            page += cell("li", escaped(textOf(hint)));
        page += "</ul>";
    }
    if (!answer["Entries"].empty()) {
        page += "<table class=\"entries\"><tr>";
        for (const Text& heading : {Text{"ファイル", "File"}, Text{"位置", "Place"}, Text{"項目", "Field"},
                                    Text{"値", "Value"}, Text{"規則", "Rule"}, Text{"メッセージ", "Message"}})
            page += cell("th", heading(language));
        page += "</tr>";
        for (const Json& entry : answer["Entries"]) {
            page += "<tr>" + cell("td", escaped(textOf(entry["File"]))) + cell("td", escaped(placeOf(entry, language))) +
                    cell("td", escaped(textOf(entry["Field"]))) + cell("td", escaped(textOf(entry["Value"]))) +
                    cell("td", escaped(textOf(entry["Rule"]))) +
                    cell("td", escaped(textOf(entry["Code"]) + " " + textOf(entry["Message"]))) + "</tr>";
        }
        page += "</table>";
    }
    const std::vector<std::string> files = dataFiles(answer);
    for (size_t i = 0; i < files.size(); ++i)
        writeData(page, files[i], answer["Entries"], std::to_string(index) + "-" + std::to_string(i), verdict != "clean",
                  language);
    page += "</section>";
}

}  // namespace

std::string htmlPage(const Json& answers, Language language)
{
    std::map<std::string, size_t> verdicts;
    for (const Json& answer : answers)
        ++verdicts[textOf(answer["Verdict"])];
    const std::string title = Text{"CSVチェックの結果", "CSV check report"}(language);
    std::string page = std::string("<!DOCTYPE html>\n<html lang=\"") + Text{"ja", "en"}(language) +
                       "\"><head><meta charset=\"utf-8\"><title>" + title + "</title><style>" + kStyle +
                       "</style></head><body>" + cell("h1", title);
    page += cell("p", std::to_string(answers.size()) + Text{" 件: ", " inputs: "}(language) +
                          cell("span", std::to_string(verdicts["clean"]) + Text{" 件問題なし", " clean"}(language),
                               " class=\"clean\"") +
                          ", " +
                          cell("span", std::to_string(verdicts["findings"]) + Text{" 件指摘あり", " with findings"}(language),
                               " class=\"findings\"") +
                          ", " +
                          cell("span", std::to_string(verdicts["failed"]) + Text{" 件失敗", " failed"}(language),
                               " class=\"failed\""),
                      " class=\"summary\"");

    page += "<table class=\"overview\"><tr>";
    for (const Text& heading : {Text{"#", "#"}, Text{"入力", "Input"}, Text{"コマンド", "Command"},
                                Text{"判定", "Verdict"}, Text{"エラー数", "Entries"}})
        page += cell("th", heading(language));
    page += "</tr>";
    for (size_t i = 0; i < answers.size(); ++i) {
        const Json& answer = answers[i];
        const std::string verdict = textOf(answer["Verdict"]);
        page += "<tr>" + cell("td", std::to_string(i + 1)) +
                cell("td", "<a href=\"#input-" + std::to_string(i + 1) + "\">" +
                               escaped(textOf(answer["Arguments"][0])) + "</a>") +
                cell("td", escaped(textOf(answer["Command"]) + (answer["Arguments"].size() > 1
                                                                     ? " " + textOf(answer["Arguments"].back())
                                                                     : ""))) +
                cell("td", escaped(verdictInWords(answer, language)), " class=\"verdict " + verdict + "\"") +
                cell("td", std::to_string(answer["Entries"].size())) + "</tr>";
    }
    page += "</table>";
    // The inputs that failed first, then those with findings, then the clean ones.
    for (const char* verdict : {"failed", "findings", "clean"}) {
        for (size_t i = 0; i < answers.size(); ++i) {
            if (textOf(answers[i]["Verdict"]) == verdict)
                writeAnswer(page, answers[i], i + 1, language);
        }
    }
    return page + "</body></html>\n";
}
