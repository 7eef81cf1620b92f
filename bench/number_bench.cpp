// The time to convert a number text, for each pair of forms with values of up to twelve digits, and with a
// number that takes 309 digits.
#include "toolkit/numbers/number_text.h"

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

namespace bench {
namespace {

using brixen::zeve::ConvertNumberText;
using brixen::zeve::IsApex;
using brixen::zeve::NumberConversion;
using brixen::zeve::NumberForm;
using brixen::zeve::NumberFormOf;

struct Sample {
    const char* form;
    std::string_view text;
    std::string_view largest;
};

constexpr Sample kSamples[] = {
    {"whole", "123456789012", "1e308"},
    {"decimal", "12345678.9012", "1.5e308"},
    {"fraction", "123456/789012", "1e308/1"},
    {"ratio", "123456:789012", "1e308:1"},
};
constexpr const char* kForms[] = {
    "whole", "decimal", "fraction", "ratio", "apex_aperture", "apex_shutterspeed", "apex_brightness",
};

void Convert(benchmark::State& state, std::string_view text, NumberForm from, NumberForm to) {
    const NumberConversion conversion{from, to, 4, 2, IsApex(to)};
    bool isBeyondScale = false;
    for (auto _ : state) benchmark::DoNotOptimize(ConvertNumberText(text, conversion, isBeyondScale));
    state.SetItemsProcessed(state.iterations());
}

const bool kAreRegistered = [] {
    for (const Sample& sample : kSamples) {
        const NumberForm from = NumberFormOf(sample.form);
        for (const char* const form : kForms) {
            const std::string pair = std::string(sample.form) + "_to_" + form;
            const NumberForm to = NumberFormOf(form);
            benchmark::RegisterBenchmark(("number/" + pair).c_str(), Convert, sample.text, from, to);
            benchmark::RegisterBenchmark(("number_largest/" + pair).c_str(), Convert, sample.largest, from,
                                         to);
        }
    }
    return true;
}();

} // namespace
} // namespace bench
