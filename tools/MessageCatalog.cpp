#include "MessageCatalog.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "QZICsvConvSupport.h"

namespace {

struct Message {
    const char* code;
    const char* japanese;  // null: the library's own message table has it
    const char* english;
};

constexpr const char* kFormatStopJa = "財務諸表CSVの形式に誤りがあるため、このファイルの内容はこれ以上チェックされていません。";
constexpr const char* kFormatStopEn = "The statements file has a structural error; its content was not checked further.";

const Message kMessages[] = {
    // Detail statements, appended tables and the common checks.
    {"HQZ9210E", nullptr, "The file name is empty."},
    {"HQZ9220E", nullptr, "The file extension is wrong: choose a .txt or .csv file."},
    {"HQZ9230E", nullptr, "The file does not exist, cannot be read or is empty."},
    {"HQZ9240E", nullptr, "The folder does not exist."},
    {"HQZ9250E", nullptr, "This version of the module cannot handle the given style version."},
    {"HQZ9990E", nullptr, "The creator name must be at most 30 characters."},
    {"HQZ9270E", nullptr, "The creator name is not set."},
    {"HQZ9920E", nullptr, "The error list exceeds 2 MB; further errors are not listed."},
    {"HQZ9930E", nullptr, "The file name is wrong."},
    {"HQZ9940E", nullptr, "The file cannot be written."},
    {"HQZ9950E", nullptr, "The folder of the property files is empty."},
    {"HQZ9300E", nullptr, "A line of the CSV file has the wrong number of columns."},
    {"HQZ9310E", nullptr, "The CSV file contains characters that the e-filing service does not accept."},
    {"HQZ9560E", nullptr, "An unexpected error occurred."},
    {"HQZ9570E", nullptr, "The format kubun (first column) is missing."},
    {"HQZ9580E", nullptr, "The format kubun (first column) is wrong, or a page has too many rows."},
    {"HQZ9590E", nullptr, "The row kind (second column) is missing."},
    {"HQZ9600E", nullptr, "The row kind (second column) is wrong."},
    {"HQZ9610E", nullptr, "A total row must not carry detail values."},
    {"HQZ9620E", nullptr, "A value of the CSV file is wrong."},
    {"HQZ9630E", nullptr, "The converted file would exceed 1 MB."},
    {"HQZ9350E", nullptr, "The file name does not follow the naming rule (for example HOI010_1.0.csv)."},
    {"HQZ9660E", nullptr, "The file name is longer than 125 characters."},
    {"HQZ9670E", nullptr, "The page number is wrong."},
    {"HQZ9370E", nullptr, "The file extension is wrong: choose a .csv file."},
    {"HQZ8230E", nullptr, "The CSV file contains characters that the e-filing service does not accept."},
    // Financial statements.
    {"HQZ8020E", "株主資本等変動計算書、社員資本等変動計算書、損益金の処分表のうち2種類以上のファイルがあります。",
     "The folder holds files of two or more of the kinds SS, SE and SR."},
    {"HQZ8030E", "財務諸表の表題が財務諸表の種類と一致しません。", "The statement title does not match the statement kind."},
    {"HQZ8040E", "株主資本等変動計算書、社員資本等変動計算書、損益金の処分表は同時に設定できません。",
     "Changes in shareholders' equity, changes in members' equity and appropriation of profit exclude one another."},
    {"HQZ8050E", "同じ種類の財務諸表が1つのファイルに複数あります。", "The same statement kind starts twice in the file."},
    {"HQZ8060E", "事業年度（自）が他の財務諸表CSVと一致しません。", "The fiscal year start differs from the other statements files."},
    {"HQZ8070E", "事業年度（至）が他の財務諸表CSVと一致しません。", "The fiscal year end differs from the other statements files."},
    {"HQZ8080E", "法人名が他の財務諸表CSVと一致しません。", "The corporate name differs from the other statements files."},
    {"HQZ8090E", "同じ勘定科目コードが同じ財務諸表の中で重複しています。", "The same account code occurs twice in one statement."},
    {"HQZ8210E", kFormatStopJa, kFormatStopEn},
    {"HQZ8220E", "表題行の位置に法人名の行（B）があります。", "A corporate name line (B) stands where the statement title belongs."},
    {"HQZ8240E", kFormatStopJa, kFormatStopEn},
    {"HQZ8250E", "同じ勘定科目コードに異なる科目名が設定されています。", "The same account code carries different account names."},
    {"HQZ8260E", "勘定科目の親子関係または繰返しの構成が科目コードリストと一致しません。",
     "The parent or the repeated group of the account does not match the account code list."},
    {"HQZ8270E", "階層番号が親の階層番号の次の番号になっていません。", "The layer number skips a level below its parent."},
    {"HQZ8280E", "ファイルとフォルダの両方が指定されています。", "Both a file and a folder were given."},
    {"HQZ9000E", "ファイルまたはフォルダが指定されていません。", "Neither a file nor a folder was given."},
    {"HQZ9040E", "見出し科目に金額または文字の項目区分が設定されています。", "A heading account carries a value item type."},
    {"HQZ9060E", "ファイル名に使用できない文字が含まれています。", "The file name contains characters that are not allowed."},
    {"HQZ9080E", kFormatStopJa, kFormatStopEn},
    {"HQZ9130E", "同じ種類の財務諸表のファイルが複数あります。", "Two or more files hold the same kind of statement."},
    {"HQZ9160E", kFormatStopJa, kFormatStopEn},
    {"HQZ9290E", "行のカラム数が5ではありません。", "A line does not have five columns."},
    {"HQZ9400E", kFormatStopJa, kFormatStopEn},
    {"HQZ9450E", "金額の桁数が範囲を超えています（整数部15桁、小数部2桁まで）。",
     "The amount has too many digits (at most 15 before and 2 after the point)."},
    {"HQZ9680E", "金額が数値ではありません。", "The amount is not a number."},
    {"HQZ9700E", "勘定科目コードが科目コードリストにありません。", "The account code is not in the account code list."},
    {"HQZ9710E", "財務諸表の表題行がないか、正しい位置にありません。", "The statement title line is missing or misplaced."},
    {"HQZ9720E", "財務諸表の種類が正しくありません（BS、PL、SC、SS、SE、SR、NTのいずれかです）。",
     "The statement kind is wrong (BS, PL, SC, SS, SE, SR or NT)."},
    {"HQZ9740E", "種類のないファイル名のファイルが他のファイルと一緒にあります。",
     "A file whose name carries no statement kind stands beside other files."},
    {"HQZ9750E", "財務諸表の種類がファイル名と一致しないか、1つのファイルに複数の財務諸表があります。",
     "The statement kind differs from the file name, or the file holds several statements."},
    {"HQZ9760E", "1行目が財務諸表の開始行（A）ではありません。", "Line 1 is not a statement start line (A)."},
    {"HQZ9770E", "2行目が法人名の行（B）ではありません。", "Line 2 is not the corporate name line (B)."},
    {"HQZ9780E", "3行目が事業年度（自）の行（C1）ではありません。", "Line 3 is not the fiscal year start line (C1)."},
    {"HQZ9790E", "4行目が事業年度（至）の行（C2）ではありません。", "Line 4 is not the fiscal year end line (C2)."},
    {"HQZ9810E", "見出し科目に値が設定されています。", "A heading carries a value."},
    {"HQZ9820E", "項目区分が勘定科目に合いません。", "The item type does not fit the account."},
    {"HQZ9830E", "項目区分が正しくありません（1、2、Tのいずれかです）。", "The item type is wrong (1, 2 or T)."},
    {"HQZ9840E", kFormatStopJa, kFormatStopEn},
    {"HQZ9850E", "表題行の位置に事業年度（自）の行（C1）があります。", "A fiscal year start line (C1) stands where the statement title belongs."},
    {"HQZ9860E", kFormatStopJa, kFormatStopEn},
    {"HQZ9870E", "表題行の位置に事業年度（至）の行（C2）があります。", "A fiscal year end line (C2) stands where the statement title belongs."},
    {"HQZ9890E", kFormatStopJa, kFormatStopEn},
    {"HQZ9900E", "財務諸表CSVの行数が合計で5000行を超えています。", "The statements files hold more than 5000 lines in all."},
    {"HQZ9970E", "指定されたフォルダにファイルがありません。", "The folder holds no file."},
    // The tool's own findings about what the library's answer leaves silent.
    {kReportNotWellFormed, "作成した帳票XMLが整形式のXMLではないため、出力しませんでした。",
     "The report XML produced is not a well-formed XML document, so none was written."},
    {kNotShiftJis, "Shift_JISのテキストではありません（この位置のバイトはShift_JISの文字になりません）。ライブラリはこのファイルを空として読みます。",
     "The file is not Shift_JIS text (the byte here is no Shift_JIS character); the library reads such a file as empty."},
    {kNulByte, "NULバイトがあります。ライブラリはその手前までしか読まないため、この行から後はチェックされていません。",
     "The file holds a NUL byte; the library reads the text only up to it, so this line and the rest were not checked."},
    {kEmptyFile, "ファイルが空です。", "The file is empty."},
    {kUnreadableFile, "ファイルを読み込めません。", "The file cannot be read."},
    {kSpecialFile, "通常のファイルではありません（フォルダ、FIFO、デバイスなど）。", "This is not a regular file (a folder, FIFO, device or the like)."},
    {kTooLargeFile, "ファイルが大きすぎます。ライブラリは読み込める大きさ（約682MiB）を超えるファイルを、読み込めないファイルとして扱います。",
     "The file is too large: the library takes a file over the size it can hold (about 682 MiB) as one it cannot read."},
    {kNoShiftJisForm, "この文字にはShift_JISの形がないため、書き込めません。", "This character has no Shift_JIS form, so the data cannot be written."},
    {kNotUtf8, "書き込むデータがUTF-8のテキストではありません。", "The data to write is not UTF-8 text."},
    {kUnknownForm, "ファイル名から様式（帳票IDとバージョン）を判別できません。",
     "The file name names no form and style version that the tool knows (report id, \"_\", version, \".csv\")."},
    {kNoAnswer, "この入力のチェックは応答なしで終了しました。", "The check of this input ended without an answer."},
};

const Message* find(const std::string& code)
{
    for (const Message& message : kMessages)
        if (code == message.code)
            return &message;
    return nullptr;
}

std::string libraryText(const std::string& code)
{
    std::optional<QZICsvConvSupport::DetailMessage> message = QZICsvConvSupport::FindDetailMessage(code);
    return message ? message->text : std::string();
}

}  // namespace

bool hasMessage(const std::string& code)
{
    return find(code) != nullptr;
}

std::string messageFor(const std::string& code, Language language)
{
    const Message* message = find(code);
    if (!message)
        return language == Language::Japanese ? "不明なエラーです。" : "Unknown error.";
    std::string text = language == Language::English ? message->english
                       : message->japanese             ? message->japanese
                                                       : libraryText(code);
    // Message texts may span lines; a report line holds one entry.
    for (size_t at; (at = text.find('\n')) != std::string::npos;)
        text.replace(at, 1, " ");
    return text;
}

namespace {

std::string fill(std::string text, const std::string& first, const std::string& second = "")
{
    const std::pair<const char*, const std::string*> marks[] = {{"{1}", &first}, {"{2}", &second}};
    for (const auto& [mark, value] : marks) {
        for (size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += value->size())
            text.replace(at, std::strlen(mark), *value);
    }
    return text;
}

// The length rule of a "length" check: an exact byte count, or a maximum N
// (N.M for decimals) where a value of exactly N characters before the point
// needs a sign when the limit has a point or is 16.
std::string lengthInWords(const QZIFormLayout::Rule& rule, Language language)
{
    if (!rule.value.empty())
        return fill(Text{"半角{1}文字ちょうど", "exactly {1} half-width characters"}(language), rule.value);
    const size_t point = rule.max.find('.');
    const long before = std::atol(rule.max.c_str());
    if (point != std::string::npos) {
        const long after = std::atol(rule.max.c_str() + point + 1);
        return fill(Text{"整数部{1}桁以内（符号付きは{2}桁）、", "at most {1} digits before the point ({2} with a sign), "}(
                        language),
                    std::to_string(before - 1), std::to_string(before)) +
               fill(Text{"小数部{1}桁以内", "{1} after it"}(language), std::to_string(after));
    }
    if (before == 16)
        return fill(Text{"{1}桁以内（符号付きは{2}文字）", "at most {1} digits ({2} characters with a sign)"}(language),
                    std::to_string(before - 1), std::to_string(before));
    return fill(Text{"半角{1}文字以内", "at most {1} half-width characters"}(language), rule.max);
}

std::string listInWords(const std::string& list, Language language)
{
    std::string words;
    size_t start = 0;
    while ((start = list.find_first_not_of(' ', start)) != std::string::npos) {
        const size_t end = std::min(list.find(' ', start), list.size());
        words += (words.empty() ? "" : Text{"、", ", "}(language)) + list.substr(start, end - start);
        start = end;
    }
    return words;
}

}  // namespace

std::string ruleInWords(const QZIFormLayout::Rule& rule, Language language)
{
    const std::string& keyword = rule.keyword;
    if (keyword == "exist")
        return Text{"入力が必要", "required"}(language);
    if (keyword == "empty")
        return Text{"空欄であること", "must be empty"}(language);
    if (keyword == "charlength")
        return fill(Text{"{1}文字以内", "at most {1} characters"}(language), rule.max);
    if (keyword == "length")
        return lengthInWords(rule, language);
    if (keyword == "alnum")
        return Text{"半角数字のみ", "half-width digits only"}(language);
    if (keyword == "alnum2")
        return Text{"半角の英数字・記号のみ", "half-width letters, digits and symbols only"}(language);
    if (keyword == "alnum3")
        return Text{"半角数字（ハイフンは1つまで）", "half-width digits with at most one hyphen"}(language);
    if (keyword == "number")
        return Text{"半角数字の整数（先頭に符号可）", "a whole number in half-width digits (a leading sign allowed)"}(
            language);
    if (keyword == "decimal")
        return Text{"半角数字と小数点の数値（先頭に符号可）",
                    "a number in half-width digits and a point (a leading sign allowed)"}(language);
    if (keyword == "range" || keyword == "range2")
        return fill(Text{"{1}以上{2}以下の数値", "a number from {1} to {2}"}(language), rule.min, rule.max);
    if (keyword == "contain")
        return fill(Text{"次のいずれか: {1}", "one of: {1}"}(language), listInWords(rule.value, language));
    if (keyword == "multibyte")
        return Text{"全角文字のみ", "full-width characters only"}(language);
    if (keyword == "fylstring")
        return Text{"Fylaで使用できる文字のみ", "only characters the Fyla service accepts"}(language);
    if (keyword == "existdate")
        return Text{"元号・年・月・日がその元号の期間に実在する日付", "an existing date within its era (era, year, month, day)"}(
            language);
    if (keyword == "existmonth")
        return Text{"元号・年・月がその元号の期間に実在する年月", "an existing month within its era (era, year, month)"}(
            language);
    if (keyword == "existyear")
        return Text{"元号・年がその元号の期間内の年", "a year within its era (era, year)"}(language);
    return keyword;
}

std::string conditionInWords(const QZIFormLayout::Rule& condition, const std::string& label, Language language)
{
    if (condition.keyword == "exist")
        return fill(Text{"{1}が入力されている場合", "when {1} is given"}(language), label);
    return fill(Text{"{1}が「{2}」の場合", "when {1} is {2}"}(language), label, ruleInWords(condition, language));
}

std::string statementsColumn(const std::vector<std::string>& line, int column, Language language)
{
    const std::string kind = line.empty() ? std::string() : line[0];
    const bool lineKind = kind == "A" || kind == "B" || kind == "C1" || kind == "C2";
    if (lineKind && column == 1)
        return Text{"行の種類", "line kind"}(language);
    if (lineKind && column == 2) {
        return kind == "A"    ? Text{"財務諸表の種類", "statement kind"}(language)
               : kind == "B"  ? Text{"法人名", "corporate name"}(language)
               : kind == "C1" ? Text{"事業年度（自）", "fiscal year start"}(language)
                              : Text{"事業年度（至）", "fiscal year end"}(language);
    }
    if (lineKind)
        return "";
    bool title = true;
    for (size_t field = 1; field < line.size() && field < 5; ++field)
        title = title && line[field].empty();
    if (title)
        return column == 1 ? Text{"表題", "statement title"}(language) : "";
    static const Text kAccountColumns[] = {
        {"科目名", "account name"}, {"金額", "amount"},  {"項目区分", "item type"},
        {"階層", "layer"},          {"勘定科目コード", "account code"},
    };
    return column >= 1 && column <= 5 ? kAccountColumns[column - 1](language) : "";
}

std::string argumentName(int64_t number, Language language)
{
    static const Text kArguments[] = {
        {"CSVファイル", "CSV file"}, {"定義体フォルダ", "definition folder"}, {"様式バージョン", "style version"}};
    return number >= 1 && number <= 3 ? kArguments[number - 1](language) : "";
}

std::string frameColumn(int column, bool detailStatement, Language language)
{
    if (column == 1)
        return Text{"フォーマット区分", "format kubun"}(language);
    if (column == 2 && detailStatement)
        return Text{"行区分", "row kind"}(language);
    return "";
}
