// Arbitrary bytes as a CSV file to normalize, with the form of a detail
// statement and without one. Whatever the bytes, what is written is
// Shift_JIS, and normalizing it again changes nothing more.
#include <cstdlib>

#include "FuzzSupport.h"
#include "Normalize.h"
#include "QZICsvConvSupport.h"

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

const NormalizeForm& Form()
{
    static const NormalizeForm* form = [] {
        ::setenv(QZICsvConvSupport::BundleVariable(), QZC_BUNDLE_DIR, 1);
        std::optional<QZIFormLayout> layout = QZIFormLayout::Load("HOI010", "4.0");
        std::optional<QZIFormLayout::Form> recognized = QZIFormLayout::Recognize("HOI010_4.0.csv");
        if (!layout || !recognized)
            std::abort();
        return new NormalizeForm{*recognized, std::move(*layout)};
    }();
    return *form;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string bytes = Bytes(data, size);
    for (const NormalizeForm* form : {static_cast<const NormalizeForm*>(nullptr), &Form()}) {
        const Normalization once = NormalizeCsv(bytes, form, true, Language::English);
        if (!once.output)
            continue;
        const std::optional<std::string> text = QZICsvConvSupport::ShiftJISToUtf8(*once.output);
        Require(text.has_value());
        // Shift_JIS bytes that happen to be UTF-8 as well are read as UTF-8.
        if (QZICsvConvSupport::TextToUtf8(*once.output) != text)
            continue;
        const Normalization twice = NormalizeCsv(*once.output, form, true, Language::English);
        Require(twice.changes.empty() && twice.output == once.output);
    }
    return 0;
}
