// The time to convert a number text, for each pair of forms with values of up to twelve digits, and with a
// number that takes 309 digits.
#include "toolkit/numbers/number_text.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

namespace bench {
namespace {

using brixen::zeve::ConvertNumberText;
using brixen::zeve::IsApex;
using brixen::zeve::NumberConversion;
using brixen::zeve::NumberForm;

struct Sample {
    NumberForm form;
    std::string_view text;
    std::string_view largest;
};

constexpr Sample kSamples[] = {
    {NumberForm::kWhole, "123456789012", "1e308"},
    {NumberForm::kDecimal, "12345678.9012", "1.5e308"},
    {NumberForm::kFraction, "123456/789012", "1e308/1"},
    {NumberForm::kRatio, "123456:789012", "1e308:1"},
};
constexpr NumberForm kForms[] = {
    NumberForm::kWhole,        NumberForm::kDecimal,          NumberForm::kFraction,      NumberForm::kRatio,
    NumberForm::kApexAperture, NumberForm::kApexShutterSpeed, NumberForm::kApexBrightness};

void Convert(benchmark::State& state, std::string_view text, NumberForm from, NumberForm to) {
    const NumberConversion conversion{from, to, 4, 2, IsApex(to)};
    bool isBeyondScale = false;
    for (auto _ : state) benchmark::DoNotOptimize(ConvertNumberText(text, conversion, isBeyondScale));
    state.SetItemsProcessed(state.iterations());
}

const bool kAreRegistered = [] {
    for (const Sample& sample : kSamples) {
        for (std::size_t to = 0; to < std::size(kForms); ++to) {
            const auto pair = std::to_string(&sample - kSamples) + "_" + std::to_string(to);
            benchmark::RegisterBenchmark(("number/" + pair).c_str(), Convert, sample.text, sample.form,
                                         kForms[to]);
            benchmark::RegisterBenchmark(("number_largest/" + pair).c_str(), Convert, sample.largest,
                                         sample.form, kForms[to]);
        }
    }
    return true;
}();

} // namespace
} // namespace bench
