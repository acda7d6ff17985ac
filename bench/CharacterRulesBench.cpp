// The service's character rule against a plain UTF-8 to UTF-16 conversion of
// the same text with ICU, on 1 MB of mixed Japanese and ASCII text.
#include <string>

#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include "QZCUtility.h"

namespace {

const std::string& mixedText()
{
    static const std::string text = [] {
        const std::string line = "HOI010,0,みずほ銀行,本店営業部,普通預金,1234567,\"12,345,678\",担保差入中（ｶﾅ除く）\r\n";
        std::string result;
        while (result.size() < (1u << 20))
            result += line;
        // Half-width katakana would end the check early; keep the text valid.
        std::string valid;
        for (size_t at = 0;;) {
            size_t kana = result.find("（ｶﾅ除く）", at);
            valid += result.substr(at, kana == std::string::npos ? std::string::npos : kana - at);
            if (kana == std::string::npos)
                break;
            valid += "（注記）";
            at = kana + std::string("（ｶﾅ除く）").size();
        }
        return valid;
    }();
    return text;
}

void IsFylaAvailableString(benchmark::State& state)
{
    const std::string& text = mixedText();
    for (auto _ : state)
        benchmark::DoNotOptimize(QZCUtility::IsFylaAvailableString(text.c_str()));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

void IcuUtf8ToUtf16(benchmark::State& state)
{
    const std::string& text = mixedText();
    std::u16string units(text.size(), u'\0');
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        int32_t length = 0;
        u_strFromUTF8(reinterpret_cast<UChar*>(units.data()), static_cast<int32_t>(units.size()), &length,
                      text.data(), static_cast<int32_t>(text.size()), &status);
        benchmark::DoNotOptimize(length);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

}  // namespace

BENCHMARK(IsFylaAvailableString);
BENCHMARK(IcuUtf8ToUtf16);
