#include "ImportCodes.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "Commands.h"
#include "QZICsvConvSupport.h"
#include "QZICsvConvXML.h"

namespace {

// The statement of each kind; the title of a public list begins with it.
const std::map<std::string, std::string> kStatements = {
    {"BS", "貸借対照表"},           {"PL", "損益計算書"},     {"SC", "製造原価報告書"},
    {"SS", "株主資本等変動計算書"}, {"SE", "社員資本等変動計算書"}, {"SR", "損益金の処分表"},
    {"NT", "個別注記表"},
};

// Columns of the public list that the code list takes over.
enum PublicColumn : size_t {
    kLabel = 2,
    kElementName = 9,
    kSubstitutionGroup = 11,
    kPeriodType = 12,
    kBalance = 13,
    kAbstract = 14,
    kDepth = 15,
    kCode = 19,
    kAccountName = 20,
    kPublicColumns = 23,
};

std::string pick(Language language, const std::string& ja, const std::string& en)
{
    return language == Language::English ? en : ja;
}

// Letters and digits only: the check reads a "-" in an account code as the
// start of a suffix of the filer's own.
bool isKey(const std::string& text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0;
    });
}

bool isTrue(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return std::tolower(c); });
    return text == "true";  // a spreadsheet writes TRUE
}

// A field of the code list; quoted when it holds a separator, which only a
// label can.
std::string csvField(const std::string& value)
{
    if (value.find_first_of(",\"\r\n") == std::string::npos)
        return value;
    std::string quoted = "\"";
    for (char c : value) {
        quoted += c;
        if (c == '"')
            quoted += '"';
    }
    return quoted + "\"";
}

}  // namespace

ImportedCodeList ConvertPublicAccountList(const std::string& kind, const std::string& bytes, Language language)
{
    ImportedCodeList list;
    auto refuse = [&](size_t line, const std::string& ja, const std::string& en) {
        list = ImportedCodeList();
        list.refusal = (line ? pick(language, "行 ", "line ") + std::to_string(line) + ": " : "") + pick(language, ja, en);
        return list;
    };
    std::optional<std::string> text = QZICsvConvSupport::TextToUtf8(bytes);
    if (!text)
        return refuse(0, "UTF-8 でも Shift_JIS でもありません。", "neither UTF-8 nor Shift_JIS");
    const std::vector<std::vector<std::string>> lines = QZICsvConvSupport::ParseCsv(*text);

    // Row 1 is the title, row 2 numbers the columns 0 to 22, row 3 heads them.
    bool numbered = lines.size() > 1 && lines[1].size() >= kPublicColumns;
    for (size_t column = 0; numbered && column < kPublicColumns; ++column)
        numbered = lines[1][column] == std::to_string(column);
    if (!numbered)
        return refuse(2, "公開の勘定科目コード表の列番号 0 から 22 がありません。",
                      "no column numbers 0 to 22 of the public account list");
    const std::string title = lines[0].empty() ? "" : lines[0][0];
    for (const auto& [other, statement] : kStatements) {
        if (other != kind && title.compare(0, statement.size(), statement) == 0)
            return refuse(1, statement + "の表です。" + kind + " の表ではありません。",
                          "a list of " + other + " (" + statement + "), not of " + kind);
    }

    std::vector<std::pair<long, std::string>> above;  // depth and key of the rows the next may belong to
    std::set<std::string> written;
    for (size_t i = 3; i < lines.size(); ++i) {
        const std::vector<std::string>& row = lines[i];
        const size_t line = i + 1;
        if (std::all_of(row.begin(), row.end(), [](const std::string& field) { return field.empty(); }))
            continue;  // the empty rows a spreadsheet leaves below a table
        if (row.size() <= kCode)
            return refuse(line, "列が " + std::to_string(row.size()) + " しかありません。",
                          "only " + std::to_string(row.size()) + " columns");
        const std::string& depthText = row[kDepth];
        if (depthText.empty() || depthText.size() > 4 || !std::all_of(depthText.begin(), depthText.end(), [](char c) {
                return std::isdigit(static_cast<unsigned char>(c)) != 0;
            }))
            return refuse(line, "階層（15列）が数値ではありません: " + depthText,
                          "the depth (column 15) is not a number: " + depthText);
        const long depth = std::stol(depthText);

        // A row without a code is a heading, keyed by its element name.
        const std::string& code = row[kCode];
        const bool heading = code.empty() || code == "-";
        const std::string& key = heading ? row[kElementName] : code;
        if (!isKey(key))
            return refuse(line,
                          (heading ? "要素名（9列）" : "勘定科目コード（19列）") + std::string("が英数字ではありません: ") + key,
                          (heading ? "the element name (column 9)" : "the account code (column 19)") +
                              std::string(" is not letters and digits: ") + key);
        const bool abstract = heading || isTrue(row[kAbstract]);
        std::string period = row[kPeriodType];
        if (abstract && (period.empty() || period == "-"))
            period = "duration";
        if (period != "instant" && period != "duration")
            return refuse(line, "期間時点区分（12列）が instant でも duration でもありません: " + period,
                          "the period type (column 12) is neither instant nor duration: " + period);
        const std::string balance = row[kBalance] == "-" ? "" : row[kBalance];
        if (!balance.empty() && balance != "debit" && balance != "credit")
            return refuse(line, "貸借区分（13列）が debit でも credit でもありません: " + balance,
                          "the balance (column 13) is neither debit nor credit: " + balance);
        const std::string& group = row[kSubstitutionGroup];
        const bool tuple = group == "xbrli:tuple";

        while (!above.empty() && above.back().first >= depth)
            above.pop_back();
        const std::string parent = above.empty() ? "" : above.back().second;
        above.emplace_back(depth, key);
        if (!written.insert(key).second)
            continue;  // a heading repeated, as in the list of all industries

        const std::string label =
            row.size() > kAccountName && !row[kAccountName].empty() && row[kAccountName] != "-" ? row[kAccountName]
                                                                                               : row[kLabel];
        const std::string context = abstract || tuple                ? ""
                                    : period == "instant" ? "CurrentYearNonConsolidatedInstant"
                                                          : "CurrentYearNonConsolidatedDuration";
        const std::string fields[] = {key,    period,     balance, abstract ? "true" : "", tuple ? "tuple" : "",
                                      parent, label,      group,   row[kElementName],      context};
        std::string out = csvField(fields[0]);
        for (size_t column = 1; column < std::size(fields); ++column)
            out += "," + csvField(fields[column]);
        if (!QZICsvConvSupport::Utf8ToShiftJIS(out))
            return refuse(line, "Shift_JIS で書けない文字があります。", "characters without a Shift_JIS form");
        list.text += out + "\r\n";
        ++list.rows;
    }
    if (list.rows == 0)
        return refuse(0, "勘定科目の行がありません。", "no account rows");
    return list;
}

int ImportCodes(const std::string& kind, const std::string& publicList, const std::string& output, bool json,
                Language language)
{
    if (!kStatements.count(kind)) {
        std::cerr << "qzcsvconv: " << pick(language, "財務諸表の種類は BS, PL, SC, SS, SE, SR, NT のいずれかです: ",
                                           "the statement kind is one of BS, PL, SC, SS, SE, SR, NT: ")
                  << kind << "\n";
        return 2;
    }
    ImportedCodeList list;
    std::string problem;  // what went wrong, naming the file
    std::ifstream in(publicList, std::ios::binary);
    if (!in)
        problem = publicList + pick(language, ": 読み込めません。", ": cannot be read");
    else if (list = ConvertPublicAccountList(kind, std::string(std::istreambuf_iterator<char>(in), {}), language);
             !list.refusal.empty())
        problem = publicList + ": " + list.refusal;
    else if (!QZICsvConvSupport::WriteFile(output, *QZICsvConvSupport::Utf8ToShiftJIS(list.text)))
        problem = output + pick(language, ": 書き込めません。", ": cannot be written");

    if (json) {
        nlohmann::json out = {{"Command", "import-codes"},
                              {"Arguments", {kind, publicList, output}},
                              {"Result", problem.empty() ? PROCESS_OK : PROCESS_FAIL},
                              {"Rows", problem.empty() ? list.rows : 0},
                              {"Message", problem}};
        printJson(std::cout, out);
    } else if (problem.empty()) {
        std::cout << output << ": "
                  << pick(language, kind + " の科目コードリストを書き込みました（" + std::to_string(list.rows) + " 行）",
                          "wrote the " + kind + " code list (" + std::to_string(list.rows) + " rows)")
                  << "\n";
    } else {
        std::cerr << "qzcsvconv: " << problem << "\n";
    }
    return problem.empty() ? 0 : 1;
}
