#include "Normalize.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>

#include <unicode/normalizer2.h>
#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include "Commands.h"
#include "QZICsvConvSupport.h"
#include "TextReport.h"
#include "Utf8.h"

namespace {

namespace fs = std::filesystem;
using icu::UnicodeString;
using Width = QZIFormLayout::Width;

// The ICU transforms, made once.
struct Transforms {
    // ASCII, half-width katakana (sound marks joined) and the half-width
    // symbols to their full-width forms; the same for all but ASCII.
    std::unique_ptr<icu::Transliterator> fullWidth = make("Halfwidth-Fullwidth");
    std::unique_ptr<icu::Transliterator> fullWidthButAscii = make("[:^ASCII:] Halfwidth-Fullwidth");
    // Full-width ASCII and the ideographic space to ASCII; never to a quote
    // or a comma, which would change the fields of the line.
    std::unique_ptr<icu::Transliterator> halfWidth =
        make("[[\\u3000\\uFF01-\\uFF5E]-[\\uFF02\\uFF0C]] Fullwidth-Halfwidth");
    // Letters with accents to their base letters.
    std::unique_ptr<icu::Transliterator> foldAccents = make("NFD; [:Nonspacing Mark:] Remove; NFC");
    const icu::Normalizer2* nfc = normalizer(icu::Normalizer2::getNFCInstance);
    const icu::Normalizer2* nfkc = normalizer(icu::Normalizer2::getNFKCInstance);

    static std::unique_ptr<icu::Transliterator> make(const char* id)
    {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Transliterator> made(
            icu::Transliterator::createInstance(UnicodeString(id, -1, US_INV), UTRANS_FORWARD, status));
        if (U_FAILURE(status) || !made)
            throw std::runtime_error(std::string("ICU has no transform ") + id);
        return made;
    }
    static const icu::Normalizer2* normalizer(const icu::Normalizer2* (*get)(UErrorCode&))
    {
        UErrorCode status = U_ZERO_ERROR;
        const icu::Normalizer2* made = get(status);
        if (U_FAILURE(status))
            throw std::runtime_error("ICU has no normalization data");
        return made;
    }
};

const Transforms& transforms()
{
    static const Transforms made;
    return made;
}

// Look-alikes typed on other systems that ICU does not map, with the
// character a Japanese reader means by them: most have no Shift_JIS form,
// and the hyphens go to the full-width hyphen-minus, which a half-width
// column takes as "-".
constexpr std::pair<char16_t, char16_t> kLookAlikes[] = {
    {0x00A0, 0x0020},  // no-break space
    {0x2010, 0xFF0D},  // hyphen
    {0x2011, 0xFF0D},  // non-breaking hyphen
    {0x2012, 0xFF0D},  // figure dash
    {0x2013, 0xFF0D},  // en dash
    {0x2212, 0xFF0D},  // minus sign
    {0x2014, 0x2015},  // em dash: the horizontal bar
    {0x2016, 0x2225},  // double vertical line: parallel to
    {0x201A, 0x2018},  // low and reversed single quotes
    {0x201B, 0x2018},
    {0x201E, 0x201C},  // low and reversed double quotes
    {0x201F, 0x201C},
    {0x301C, 0xFF5E},  // wave dash: full-width tilde
    {0x301E, 0x301F},  // double prime quotation mark
    {0xFF9E, 0x309B},  // half-width sound marks standing alone
    {0xFF9F, 0x309C},
};

UnicodeString lookAlikes(UnicodeString text)
{
    for (int32_t at = 0; at < text.length(); ++at) {
        for (const auto& [from, to] : kLookAlikes) {
            if (text[at] == from)
                text.setCharAt(at, to);
        }
    }
    return text;
}

std::string utf8(const UnicodeString& text)
{
    std::string out;
    return text.toUTF8String(out);
}

bool fitsWidth(const std::string& text, Width width)
{
    auto ascii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (width == Width::FullWidth)
        return std::none_of(text.begin(), text.end(), ascii);
    if (width == Width::HalfWidth)
        return std::all_of(text.begin(), text.end(), ascii);
    return true;
}

// Whether the service takes the text, it has a Shift_JIS form and its
// characters have the column's width.
bool accepted(const std::string& text, Width width)
{
    return fitsWidth(text, width) && QZICsvConvSupport::IsAvailableString(text) &&
           QZICsvConvSupport::Utf8ToShiftJIS(text).has_value();
}

bool isDigit(UChar32 c)
{
    return (c >= '0' && c <= '9') || (c >= 0xFF10 && c <= 0xFF19);
}

// Marks that belong to the character before them.
bool isMark(UChar32 c)
{
    return (U_GET_GC_MASK(c) & (U_GC_MN_MASK | U_GC_ME_MASK)) != 0 || c == 0xFF9E || c == 0xFF9F;
}

// The accepted equivalent of a character with its marks in a column of the
// width: the first of its forms (as it is, composed, its look-alike, its
// compatibility form, folded) that is accepted once brought to the width.
std::optional<std::string> equivalent(const UnicodeString& character, Width width, bool foldAccents)
{
    const Transforms& icu = transforms();
    UErrorCode status = U_ZERO_ERROR;
    std::vector<UnicodeString> forms = {character, icu.nfc->normalize(character, status), lookAlikes(character),
                                        lookAlikes(icu.nfkc->normalize(character, status))};
    if (foldAccents) {
        UnicodeString folded = character;
        icu.foldAccents->transliterate(folded);
        forms.push_back(lookAlikes(folded));
    }
    if (U_FAILURE(status))
        return std::nullopt;
    const icu::Transliterator& toWidth = width == Width::FullWidth   ? *icu.fullWidth
                                         : width == Width::HalfWidth ? *icu.halfWidth
                                                                     : *icu.fullWidthButAscii;
    for (UnicodeString& form : forms) {
        toWidth.transliterate(form);
        const std::string text = utf8(form);
        if (!text.empty() && accepted(text, width))
            return text;
    }
    return std::nullopt;
}

Leftover::Reason reasonOf(const std::string& character, Width width)
{
    if (!QZICsvConvSupport::Utf8ToShiftJIS(character))
        return Leftover::Reason::NoShiftJis;
    if (!QZICsvConvSupport::IsAvailableString(character))
        return Leftover::Reason::Refused;
    return width == Width::FullWidth ? Leftover::Reason::FullWidthOnly : Leftover::Reason::HalfWidthOnly;
}

// A replacement of bytes [begin, end) of the text.
struct Edit {
    size_t begin;
    size_t end;
    std::string text;
};

// What a value becomes: edits at offsets of the value and the characters left.
struct ValueRepair {
    std::vector<Edit> edits;
    std::vector<std::pair<std::string, Leftover::Reason>> left;
};

ValueRepair repairValue(const std::string& value, Width width, bool foldAccents)
{
    ValueRepair repair;
    const auto* bytes = reinterpret_cast<const uint8_t*>(value.data());
    const auto length = static_cast<int32_t>(value.size());
    UChar32 previous = U_SENTINEL;
    for (int32_t begin = 0; begin < length;) {
        int32_t end = begin;
        UChar32 c;
        U8_NEXT(bytes, end, length, c);
        const UChar32 base = c;
        for (int32_t next = end; next < length;) {
            U8_NEXT(bytes, next, length, c);
            if (!isMark(c))
                break;
            end = next;
        }
        const std::string character = value.substr(static_cast<size_t>(begin), static_cast<size_t>(end - begin));
        UChar32 following = U_SENTINEL;
        if (end < length)
            U8_GET(bytes, 0, end, length, following);

        if (width == Width::HalfWidth && (base == ',' || base == 0xFF0C) && isDigit(previous) && isDigit(following)) {
            repair.edits.push_back({static_cast<size_t>(begin), static_cast<size_t>(end), ""});  // a grouping comma
        } else if (!accepted(character, width)) {
            if (std::optional<std::string> replacement =
                    equivalent(UnicodeString::fromUTF8(character), width, foldAccents))
                repair.edits.push_back({static_cast<size_t>(begin), static_cast<size_t>(end), *replacement});
            else
                repair.left.emplace_back(character, reasonOf(character, width));
        }
        previous = base;
        begin = end;
    }
    return repair;
}

bool hasGroupingComma(const std::string& value)
{
    for (size_t at = value.find(','); at != std::string::npos; at = value.find(',', at + 1)) {
        if (at > 0 && at + 1 < value.size() && isDigit(value[at - 1]) && isDigit(value[at + 1]))
            return true;
    }
    return false;
}

// Whether the text holds only quotes and blanks, as the reader drops
// them around a value.
bool framingOnly(std::string_view text)
{
    const auto* bytes = reinterpret_cast<const uint8_t*>(text.data());
    const auto length = static_cast<int32_t>(text.size());
    for (int32_t at = 0; at < length;) {
        UChar32 c;
        U8_NEXT(bytes, at, length, c);
        if (c != '"' && (c < 0 || !u_isUWhiteSpace(c)))
            return false;
    }
    return true;
}

// Where the value of a field stands in the text: inside its span, with only
// quotes and blanks around it. A value holding a quote of a quoted field
// is not placed, since its quotes could not be told from those around it.
std::optional<size_t> placeOf(const std::string& text, const QZICsvConvSupport::CsvField& field)
{
    const std::string_view span = std::string_view(text).substr(field.begin, field.end - field.begin);
    if (!span.empty() && span.front() == '"' && field.value.find('"') != std::string::npos)
        return std::nullopt;
    const size_t at = span.find(field.value);
    if (at == std::string_view::npos || !framingOnly(span.substr(0, at)) ||
        !framingOnly(span.substr(at + field.value.size())))
        return std::nullopt;
    return field.begin + at;
}

// The Shift_JIS form of the edited text: for Shift_JIS bytes those of every
// character not edited kept as they are (characters with two Shift_JIS
// codes keep theirs), else the whole text converted.
std::optional<std::string> shiftJisOutput(const std::string& original, bool shiftJis, const std::string& text,
                                          const std::vector<Edit>& edits, const std::string& edited)
{
    if (!shiftJis)
        return QZICsvConvSupport::Utf8ToShiftJIS(edited);
    std::string out;
    size_t textAt = 0;
    size_t bytesAt = 0;
    for (const Edit& edit : edits) {
        const auto kept = QZICsvConvSupport::Utf8ToShiftJIS(text.substr(textAt, edit.begin - textAt));
        const auto replaced = QZICsvConvSupport::Utf8ToShiftJIS(text.substr(edit.begin, edit.end - edit.begin));
        const auto replacement = QZICsvConvSupport::Utf8ToShiftJIS(edit.text);
        if (!kept || !replaced || !replacement)
            return QZICsvConvSupport::Utf8ToShiftJIS(edited);
        out.append(original, bytesAt, kept->size()).append(*replacement);
        bytesAt += kept->size() + replaced->size();
        textAt = edit.end;
    }
    out.append(original, std::min(bytesAt, original.size()), std::string::npos);
    // Each character keeps the length of its bytes; should one not, the
    // pieces would not add up to the text.
    if (QZICsvConvSupport::ShiftJISToUtf8(out) != edited)
        return QZICsvConvSupport::Utf8ToShiftJIS(edited);
    return out;
}

std::string encodingOf(const std::string& bytes, const std::string& text)
{
    if (bytes.rfind("\xEF\xBB\xBF", 0) == 0)
        return "UTF-8 with byte order mark";
    const bool ascii =
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return text == bytes && !ascii ? "UTF-8" : "Shift_JIS";
}

}  // namespace

Normalization NormalizeCsv(const std::string& bytes, const NormalizeForm* form, bool foldAccents, Language language)
{
    Normalization result;
    const std::optional<std::string> decoded = QZICsvConvSupport::TextToUtf8(bytes);
    if (!decoded)
        return result;
    const std::string& text = *decoded;
    result.encoding = encodingOf(bytes, text);
    const bool detailStatement = form && form->form.operation != QZIFormLayout::Operation::AppendedTable;

    std::vector<Edit> edits;
    const std::vector<std::vector<QZICsvConvSupport::CsvField>> records = QZICsvConvSupport::SplitDetailCsv(text);
    for (size_t line = 0; line < records.size(); ++line) {
        std::vector<std::string> values;
        for (const QZICsvConvSupport::CsvField& field : records[line])
            values.push_back(field.value);
        const std::vector<Width> widths =
            form ? form->layout.Widths(values) : std::vector<Width>(values.size() + 1, Width::Any);
        for (size_t column = 0; column < values.size(); ++column) {
            const std::string& value = values[column];
            const Width width = widths[column + 1];
            if (accepted(value, width) && !(width == Width::HalfWidth && hasGroupingComma(value)))
                continue;
            ValueRepair repair = repairValue(value, width, foldAccents);
            const std::optional<size_t> place = placeOf(text, records[line][column]);
            std::optional<std::string> field;
            if (form) {
                if (const QZIFormLayout::Field* read = form->layout.Explain(values, static_cast<int>(column + 1)).field)
                    field = read->label;
                else if (const std::string frame = frameColumn(static_cast<int>(column + 1), detailStatement, language);
                         !frame.empty())
                    field = frame;
            }
            if (!place) {
                // Unchanged: every character it would have changed is left.
                for (const Edit& edit : repair.edits) {
                    const std::string character = value.substr(edit.begin, edit.end - edit.begin);
                    repair.left.emplace_back(character, reasonOf(character, width));
                }
                repair.edits.clear();
            }
            for (const auto& [character, reason] : repair.left)
                result.left.push_back({line + 1, column + 1, field, character, reason});
            if (repair.edits.empty())
                continue;
            std::string after = value;
            for (auto edit = repair.edits.rbegin(); edit != repair.edits.rend(); ++edit)
                after.replace(edit->begin, edit->end - edit->begin, edit->text);
            result.changes.push_back({line + 1, column + 1, field, value, after});
            for (Edit& edit : repair.edits)
                edits.push_back({*place + edit.begin, *place + edit.end, std::move(edit.text)});
        }
    }

    std::string edited;
    size_t kept = 0;
    for (const Edit& edit : edits) {
        edited.append(text, kept, edit.begin - kept).append(edit.text);
        kept = edit.end;
    }
    edited.append(text, kept, std::string::npos);
    result.output = shiftJisOutput(bytes, result.encoding == "Shift_JIS", text, edits, edited);
    return result;
}

namespace {

const char* reasonKey(Leftover::Reason reason)
{
    static const char* const kKeys[] = {"refused", "no-shift-jis", "full-width-only", "half-width-only"};
    return kKeys[static_cast<int>(reason)];
}

Text reasonInWords(Leftover::Reason reason)
{
    static const Text kWords[] = {
        {"Fylaで使用できない文字で、使用できる文字に置き換えられません",
         "the service does not accept it, and it has no accepted equivalent"},
        {"Shift_JISにない文字で、置き換える文字がありません", "it has no Shift_JIS form and no equivalent"},
        {"この列は全角文字だけですが、全角の形がありません",
         "the column takes full-width characters only, and it has no full-width form"},
        {"この列は半角文字だけですが、半角の形がありません",
         "the column takes half-width characters only, and it has no half-width form"},
    };
    return kWords[static_cast<int>(reason)];
}

const char* codeOf(Leftover::Reason reason)
{
    switch (reason) {
    case Leftover::Reason::Refused:
        return "HQZ8230E";
    case Leftover::Reason::NoShiftJis:
        return kNoShiftJisForm;
    default:
        return "HQZ9620E";
    }
}

// "U+301C", or the code points of a character with its marks.
std::string codePoints(const std::string& text)
{
    std::string out;
    const UnicodeString units = UnicodeString::fromUTF8(text);
    for (int32_t at = 0; at < units.length(); at = units.moveIndex32(at, 1)) {
        char name[16];
        std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(units.char32At(at)));
        out += (out.empty() ? "" : " ") + std::string(name);
    }
    return out;
}

Json fieldOf(const std::optional<std::string>& field)
{
    return field ? Json(*field) : Json(nullptr);
}

std::string formName(const QZIFormLayout::Form& form)
{
    return form.reportId + "_" + form.styleVersion;
}

// Every text of the answer with the path in it replaced.
void replacePath(Json& value, const std::string& path, const std::string& by)
{
    if (value.is_string()) {
        std::string text = value.get<std::string>();
        for (size_t at = text.find(path); at != std::string::npos; at = text.find(path, at + by.size()))
            text.replace(at, path.size(), by);
        value = text;
    } else if (value.is_structured()) {
        for (Json& element : value)
            replacePath(element, path, by);
    }
}

// A folder of its own, removed with everything in it.
struct ScratchFolder {
    std::string path = (fs::temp_directory_path() / "qzcsvconv.XXXXXX").string();
    bool made = ::mkdtemp(path.data()) != nullptr;
    ~ScratchFolder()
    {
        std::error_code ignored;
        if (made)
            fs::remove_all(path, ignored);
    }
};

// The answer of the form's operation on the output, checked as a copy named
// by the form (the operations judge the file's name too); it names the output.
Json checkOutput(const std::string& output, const std::string& bytes, const QZIFormLayout::Form& form,
                 Language language)
{
    ScratchFolder folder;
    const std::string copy = (fs::path(folder.path) / (formName(form) + ".csv")).string();
    if (!folder.made || !QZICsvConvSupport::WriteFile(copy, bytes))
        return nullptr;
    Invocation call;
    call.command = form.operation == QZIFormLayout::Operation::Detail    ? "detail"
                   : form.operation == QZIFormLayout::Operation::Detail2 ? "detail2"
                                                                         : "appended";
    call.arguments = {copy, form.styleVersion};
    call.language = language;
    Json answer = runCommand(call);
    replacePath(answer, copy, output);
    return answer;
}

std::optional<QZIFormLayout::Form> formOf(const NormalizeOptions& options)
{
    if (options.form.empty())
        return QZIFormLayout::Recognize(options.input);
    std::string name = fs::path(options.form).filename().string();
    std::string extension = fs::path(name).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char c) { return std::tolower(c); });
    std::optional<QZIFormLayout::Form> form = QZIFormLayout::Recognize(extension == ".csv" ? name : name + ".csv");
    if (!form)
        throw UsageError("--for " + options.form + ": no such form and style version (such as HOI010_4.0).");
    return form;
}

}  // namespace

Json runNormalize(const NormalizeOptions& options)
{
    if (options.inPlace == !options.output.empty())
        throw UsageError(options.inPlace ? "normalize takes OUT or --in-place, not both."
                                         : "normalize needs OUT, or --in-place to rewrite IN.");
    const Language language = options.language;
    const std::string& output = options.inPlace ? options.input : options.output;
    const std::optional<QZIFormLayout::Form> form = formOf(options);
    std::optional<NormalizeForm> target;
    if (form) {
        if (std::optional<QZIFormLayout> layout = QZIFormLayout::Load(form->reportId, form->styleVersion))
            target = NormalizeForm{*form, std::move(*layout)};
    }

    Json answer = {{"Command", "normalize"},
                   {"Arguments", options.inPlace ? Json::array({options.input}) : Json::array({options.input, output})},
                   {"Input", options.input},
                   {"Output", output},
                   {"Form", form ? Json(formName(*form)) : Json(nullptr)}};
    std::vector<std::string> hints;
    if (!form)
        hints.push_back(Text{"様式がわからないため、文字だけを直しました。列の全角・半角も直すには --for "
                             "で様式を指定してください（例: --for HOI010_4.0）。",
                             "The form is not known, so only the characters were repaired; to bring each column to "
                             "its width too, name the form with --for (such as --for HOI010_4.0)."}(language));
    Normalization result;
    std::ifstream in(options.input, std::ios::binary);
    if (!in)
        hints.push_back(options.input + Text{" を読み込めません。", " cannot be read."}(language));
    else
        result = NormalizeCsv(std::string(std::istreambuf_iterator<char>(in), {}), target ? &*target : nullptr,
                              options.foldAccents, language);
    if (in && result.encoding.empty())
        hints.push_back(options.input + Text{" はUTF-8でもShift_JISでもありません。", " is neither UTF-8 nor Shift_JIS."}(language));
    const bool written = result.output && QZICsvConvSupport::WriteFile(output, *result.output);
    if (result.output && !written)
        hints.push_back(output + Text{" に書き込めません。", " cannot be written."}(language));
    else if (!result.encoding.empty() && !result.output)
        hints.push_back(output + Text{" は書き込んでいません。Shift_JISにない文字が残っています。",
                                      " was not written: characters without a Shift_JIS form are left."}(language));

    Json changes = Json::array();
    for (const CellChange& change : result.changes)
        changes.push_back({{"Line", change.line},
                           {"Column", change.column},
                           {"Field", fieldOf(change.field)},
                           {"Before", shownValue(change.before)},
                           {"After", shownValue(change.after)}});
    Json left = Json::array();
    std::vector<Json> entries;
    const std::string& file = written ? output : options.input;
    for (const Leftover& leftover : result.left) {
        left.push_back({{"Line", leftover.line},
                        {"Column", leftover.column},
                        {"Field", fieldOf(leftover.field)},
                        {"Value", shownValue(leftover.text)},
                        {"CodePoints", codePoints(leftover.text)},
                        {"Reason", reasonKey(leftover.reason)}});
        Json entry = makeEntry(file, static_cast<int64_t>(leftover.line), static_cast<int64_t>(leftover.column),
                               codeOf(leftover.reason), language);
        entry["Field"] = fieldOf(leftover.field);
        entry["Value"] = shownValue(leftover.text) + " (" + codePoints(leftover.text) + ")";
        entry["Rule"] = reasonInWords(leftover.reason)(language);
        entries.push_back(std::move(entry));
    }
    const Json check = written && form ? checkOutput(output, *result.output, *form, language) : Json(nullptr);
    if (check.is_object()) {
        // What the check finds at a place and with a code already listed is not listed again.
        for (const Json& entry : check["Entries"]) {
            if (std::none_of(entries.begin(), entries.end(), [&](const Json& listed) {
                    return listed["Line"] == entry["Line"] && listed["Column"] == entry["Column"] &&
                           listed["Code"] == entry["Code"];
                }))
                entries.push_back(entry);
        }
    }

    const std::string verdict = !written ? "failed"
                                : !result.left.empty() || (check.is_object() && !check["Valid"].get<bool>())
                                    ? "findings"
                                    : "clean";
    int64_t blocking = 0;
    for (const Json& entry : entries)
        blocking += entry["BlocksConversion"].get<bool>() ? 1 : 0;
    answer["Encoding"] = result.encoding.empty() ? Json(nullptr) : Json(result.encoding);
    answer["Written"] = written;
    answer["Changes"] = std::move(changes);
    answer["Left"] = std::move(left);
    answer["Check"] = check;
    answer["Verdict"] = verdict;
    answer["Valid"] = verdict == "clean";
    answer["Summary"] = {{"Entries", entries.size()},
                         {"Blocking", blocking},
                         {"Files", 1},
                         {"FilesWithFindings", verdict == "clean" ? 0 : 1}};
    answer["Entries"] = std::move(entries);
    answer["Hints"] = std::move(hints);
    return answer;
}

void printNormalizeAnswer(std::ostream& out, const Json& answer, Language language)
{
    auto text = [](const Json& value) { return value.is_string() ? value.get<std::string>() : std::string(); };
    auto place = [&](const Json& item) {
        std::string words = placeOf({{"Scope", "cell"}, {"Line", item["Line"]}, {"Column", item["Column"]}}, language);
        return item["Field"].is_string() ? words + ", " + text(item["Field"]) : words;
    };
    const Text open{"「", "\""};
    const Text close{"」", "\""};
    for (const Json& hint : answer["Hints"])
        out << Text{"注意: ", "Note: "}(language) << text(hint) << "\n";
    out << Text{"正規化: ", "Normalize: "}(language) << text(answer["Input"]);
    if (answer["Encoding"].is_string())
        out << " (" << text(answer["Encoding"]) << ")";
    out << " -> " << text(answer["Output"]);
    if (answer["Form"].is_string())
        out << Text{"、様式 ", ", form "}(language) << text(answer["Form"]);
    out << "\n";
    if (!answer["Changes"].empty())
        out << (answer["Written"].get<bool>() ? Text{"変更", "Changes"} : Text{"変更（書き込んでいません）", "Changes, not written"})(
                   language)
            << " (" << answer["Changes"].size() << "):\n";
    for (const Json& change : answer["Changes"])
        out << "  " << place(change) << ": " << open(language) << text(change["Before"]) << close(language) << " -> "
            << open(language) << text(change["After"]) << close(language) << "\n";
    if (!answer["Left"].empty())
        out << Text{"そのままの文字", "Left as they are"}(language) << " (" << answer["Left"].size() << "):\n";
    for (const Json& leftover : answer["Left"]) {
        std::string words;
        for (auto reason : {Leftover::Reason::Refused, Leftover::Reason::NoShiftJis, Leftover::Reason::FullWidthOnly,
                            Leftover::Reason::HalfWidthOnly}) {
            if (leftover["Reason"] == reasonKey(reason))
                words = reasonInWords(reason)(language);
        }
        out << "  " << place(leftover) << ": " << open(language) << text(leftover["Value"]) << close(language) << " ("
            << text(leftover["CodePoints"]) << "): " << words << "\n";
    }
    out << (answer["Written"].get<bool>() ? Text{"書き込みました: ", "Written: "} : Text{"書き込んでいません: ", "Not written: "})(
               language)
        << text(answer["Output"]) << "\n";
    if (answer["Check"].is_object()) {
        out << "\n";
        printAnswer(out, answer["Check"], language);
    }
}

int Normalize(NormalizeOptions options, bool json, Language language)
{
    options.language = language;
    const Json answer = runNormalize(options);
    if (json)
        printJson(std::cout, answer);
    else
        printNormalizeAnswer(std::cout, answer, language);
    return exitStatus(answer);
}
