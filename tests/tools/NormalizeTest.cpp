// normalize: the repairs people need, the bytes it keeps, what it leaves and
// how the command line answers.
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "Normalize.h"
#include "QZICsvConvSupport.h"
#include "TestSupport.h"
#include "ToolSupport.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

const std::string kBundle = "--bundle " + quoted(QZC_BUNDLE_DIR);
const std::string kBom = "\xEF\xBB\xBF";

// A file typed on other systems, holding every repair: half-width katakana,
// half-width letters, digits, spaces and symbols in full-width columns,
// full-width digits and grouping commas in amounts, look-alikes without a
// Shift_JIS form (wave dash, minus, hyphen, low quotes), a letter with an
// accent and a compatibility character the service refuses (№).
const std::string kTyped = "1,0,ﾎｸﾄｼﾝｷﾝ,ﾊﾟｰｸ通り支店,Savings,0012345,\"１，２００，０００\",No.5 〜 月末\r\n"
                           "1,0,みなと銀行,本店,当座,0023456,−5000,„見込‟ ‐ №7\r\n"
                           "1,0,Café銀行,駅前,定期,0034567,\"3,500\",\r\n"
                           "1,1,,,,,1198500,合計\r\n";
const std::string kRepaired = "1,0,ホクトシンキン,パーク通り支店,Ｓａｖｉｎｇｓ,0012345,\"1200000\",Ｎｏ．５　～　月末\r\n"
                              "1,0,みなと銀行,本店,当座,0023456,-5000,“見込“　‐　Ｎｏ７\r\n"
                              "1,0,Ｃａｆｅ銀行,駅前,定期,0034567,\"3500\",\r\n"
                              "1,1,,,,,1198500,合計\r\n";

std::optional<NormalizeForm> formOf(const std::string& fileName)
{
    const std::optional<QZIFormLayout::Form> form = QZIFormLayout::Recognize(fileName);
    if (!form)
        return std::nullopt;
    std::optional<QZIFormLayout> layout = QZIFormLayout::Load(form->reportId, form->styleVersion);
    return layout ? std::optional<NormalizeForm>(NormalizeForm{*form, std::move(*layout)}) : std::nullopt;
}

TEST(Normalize, EveryRepairOfATypedFileChecksClean)
{
    TempDir dir;
    for (const std::string& prefix : {kBom, std::string()}) {
        const std::string in = dir.file("HOI010_4.0_typed.csv");
        writeBytes(in, prefix + kTyped);
        const ToolRun run =
            runTool(kBundle + " --json --lang en normalize --fold-accents " + quoted(in) + " " + dir.file("out.csv"));
        EXPECT_EQ(run.status, 0) << run.out;
        const json answer = run.json();
        EXPECT_EQ(answer["Encoding"], prefix.empty() ? "UTF-8" : "UTF-8 with byte order mark");
        EXPECT_EQ(answer["Check"]["Verdict"], "clean") << answer["Check"].dump(2);
        EXPECT_EQ(answer["Changes"].size(), 9u);
        EXPECT_EQ(answer["Changes"][0], json({{"Line", 1}, {"Column", 3}, {"Field", "金融機関名"},
                                              {"Before", "ﾎｸﾄｼﾝｷﾝ"}, {"After", "ホクトシンキン"}}));
        EXPECT_EQ(QZICsvConvSupport::ShiftJISToUtf8(readBytes(dir.file("out.csv"))), kRepaired);
    }
}

TEST(Normalize, ListsExactlyWhatIsLeftAndWritesNothingWithoutShiftJis)
{
    TempDir dir;
    const std::string in = dir.file("HOI010_4.0_typed.csv");
    const std::string out = dir.file("out.csv");
    writeBytes(out, "before");
    const struct {
        std::string text;
        std::string options;
        std::vector<std::string> left;  // code points and reason
        bool written;
    } cases[] = {
        // Without --fold-accents é stays, and has no Shift_JIS form.
        {kTyped, "", {"U+00E9 no-shift-jis"}, false},
        {kTyped + "1,0,銀行😀,本店,当座,1,1,\r\n", "--fold-accents", {"U+1F600 no-shift-jis"}, false},
        // The repertoire refuses characters Shift_JIS has; a full-width
        // column takes no control character.
        {"1,0,銀行⌒,本\t店,当座,1,1,\r\n", "", {"U+2312 refused", "U+0009 full-width-only"}, true},
        // An amount column takes no kanji; a field quoting a quote is kept.
        {"1,0,銀行,本店,当座,1,\"百\",\"a\"\"b\"\r\n", "", {"U+767E half-width-only", "U+0061 full-width-only",
                                                           "U+0022 full-width-only", "U+0022 full-width-only",
                                                           "U+0062 full-width-only"}, true},
    };
    for (const auto& c : cases) {
        writeBytes(in, c.text);
        const ToolRun run = runTool(kBundle + " --json normalize " + c.options + " " + quoted(in) + " " + out);
        const json answer = run.json();
        std::vector<std::string> left;
        for (const json& leftover : answer["Left"])
            left.push_back(leftover["CodePoints"].get<std::string>() + " " + leftover["Reason"].get<std::string>());
        EXPECT_EQ(left, c.left) << c.text;
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(answer["Written"], c.written);
        EXPECT_GE(answer["Summary"]["Entries"].get<size_t>(), c.left.size());
        if (!c.written) {
            EXPECT_EQ(readBytes(out), "before");
        }
    }
}

TEST(Normalize, KeepsTheBytesOfWhatItDoesNotChange)
{
    ScopedBundle bundle(QZC_BUNDLE_DIR);
    const std::optional<NormalizeForm> form = formOf("HOI010_4.0.csv");
    ASSERT_TRUE(form);
    // Characters with two Shift_JIS codes (an IBM "¬", the NEC "≒"), quotes,
    // blanks around values, empty fields and every kind of line end stay as
    // they are; only the half-width "ｶﾞ" becomes "ガ".
    const std::string before = "1,0,\"\xFA\x54\x87\x90\",  \x96\x7B\x93\x58 ,,1,\"2\",\r"
                               "1,0,\xB6\xDE,\x96\x7B\x93\x58,,1,2,\n"
                               "1,1,,,,,3,\x8D\x87\x8C\x76";
    std::string after = before;
    after.replace(after.find("\xB6\xDE"), 2, "\x83\x4B");
    const Normalization result = NormalizeCsv(before, &*form, false, Language::English);
    EXPECT_EQ(result.encoding, "Shift_JIS");
    EXPECT_EQ(result.output, after);
    ASSERT_EQ(result.changes.size(), 1u);
    EXPECT_EQ(result.changes[0].line, 2u);
    EXPECT_EQ(result.changes[0].after, "ガ");
}

TEST(Normalize, ChangesNothingInTheShippedExamples)
{
    ScopedBundle bundle(QZC_BUNDLE_DIR);
    size_t files = 0;
    for (const char* folder : {"detail", "detail/earlier-versions"}) {
        for (const fs::directory_entry& entry : fs::directory_iterator(std::string(QZC_SOURCE_DIR) + "/examples/" + folder)) {
            const std::optional<NormalizeForm> form = formOf(entry.path().string());
            if (entry.path().extension() != ".csv" || !form)
                continue;
            const std::string bytes = readBytes(entry.path().string());
            const Normalization result = NormalizeCsv(bytes, &*form, true, Language::English);
            EXPECT_TRUE(result.changes.empty() && result.left.empty()) << entry.path();
            EXPECT_EQ(result.output, bytes) << entry.path();
            ++files;
        }
    }
    EXPECT_GT(files, 20u);
}

TEST(Normalize, CommandLine)
{
    TempDir dir;
    const std::string in = dir.file("bank.csv");
    const struct {
        std::string arguments;
        int status;
        std::string output;  // part of standard output
        std::string file;    // what IN holds afterwards, in UTF-8
    } cases[] = {
        {"normalize " + in, 2, "", "1,0,ﾎｸﾄ\r\n"},
        {"normalize --in-place " + in + " " + dir.file("out.csv"), 2, "", "1,0,ﾎｸﾄ\r\n"},
        {"normalize --for HOI999_1.0 " + in + " " + dir.file("out.csv"), 2, "", "1,0,ﾎｸﾄ\r\n"},
        // Without a form only the characters are repaired.
        {"--lang en normalize --in-place " + in, 0, "line 1, column 3: \"ﾎｸﾄ\" -> \"ホクト\"", "1,0,ホクト\r\n"},
        // With one the form's operation checks the result.
        {"--lang en normalize --for HOI010_4.0 --in-place " + in, 1, "column 3, 金融機関名", "1,0,ホクト\r\n"},
    };
    for (const auto& c : cases) {
        writeBytes(in, "1,0,\xCE\xB8\xC4\r\n");
        const ToolRun run = runTool(kBundle + " " + c.arguments);
        EXPECT_EQ(run.status, c.status) << c.arguments << "\n" << run.out << run.err;
        EXPECT_NE(run.out.find(c.output), std::string::npos) << run.out;
        EXPECT_EQ(QZICsvConvSupport::ShiftJISToUtf8(readBytes(in)), c.file) << c.arguments;
    }
}

}  // namespace
