// The worst descriptions of one megabyte: each must end in under ten seconds and 512 MB. A row has the time
// of one run, and another one the peak of the process in megabytes. Ten texts are only read; the others make
// a dialog in the window system without a screen. bench/run_windows has real ones.
#include "bench/bar_table.h"
#include "bench/hostile_views.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/headless/headless.h"
#include "view/express_view_scope.h"
#include "view/reader/run_definition.h"
#include "view/verify_generator.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace bench {
namespace {

using namespace brixen::zeve;

constexpr std::size_t kTextSize = 1000000;

// Copies texts as boxes do.
class CopyingGenerator : public CVerifyGenerator {
    void PrepareView(std::string_view, CExpressionScope& parameters, CExpressionScope& attributes) override {
        for (const ScopeName& name : {"name"_name, "alt_name"_name, "class_name"_name, "items"_name}) {
            CopyString(attributes, parameters, name);
        }
    }
};

std::string Repeated(std::string_view piece, std::size_t size) {
    std::string text;
    while (text.size() + piece.size() <= size) text += piece;
    return text;
}

std::string Times(std::size_t count, std::string_view piece) { return Repeated(piece, count * piece.size()); }

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

// Returns `before`, then `macro` evaluated sixteen times.
std::string Evaluated(const std::string& before, const std::string& macro) {
    return before + "m = " + Quoted(macro) + ";" + Times(16, "eval(m);") + "d();";
}

// One big text that every view inherits.
std::string InheritedText() {
    return "name = " + Quoted(std::string(kTextSize * 8 / 10, 'x')) +
           "; items = name; alt_name = name; d() {" + Repeated("v();", kTextSize * 2 / 10) + "}";
}

std::string NamesOfOneScope() {
    std::string text;
    for (std::size_t n = 0; text.size() < kTextSize; ++n) text += "a" + std::to_string(n) + "=1;";
    return text + "d();";
}

// Every block of the deepest nesting defines the same names again.
std::string NamesInEveryBlock() {
    std::string names;
    for (std::size_t n = 0; names.size() < 60000; ++n) names += "a" + std::to_string(n) + "=1;";
    return "m = " + Quoted(names) + ";" + Times(240, "v(){eval(m);") + Repeated("}", 240);
}

// Names that no scope of the deepest chain has, so that every scope is searched.
std::string MissingNamesInADeepChain(std::string_view piece, std::size_t namesOfABlock) {
    std::string names;
    for (std::size_t n = 0; n < namesOfABlock; ++n) names += "b" + std::to_string(n) + "=1;";
    const std::string search = "x=1" + Repeated(piece, kTextSize - 60000) + ";";
    return "n = " + Quoted(names) + "; m = " + Quoted(search) + ";" + Times(240, "v(){eval(n);") +
           Times(14, "eval(m);") + Repeated("}", 240);
}

std::string ManyViewsInADeepChain() {
    std::string names;
    for (std::size_t n = 0; n < 500; ++n) names += "b" + std::to_string(n) + "=1;";
    return "n = " + Quoted(names) + ";" + Times(240, "v(){eval(n);") + Times(32500, "v(a:q+0);") +
           Repeated("}", 240);
}

std::string DigitsOfABigText() {
    return "t = " + Quoted(std::string(kTextSize / 2, '0')) + ";" +
           Repeated("set_number(&n,t);", kTextSize / 2) + "d();";
}

std::string CopiesOfABigText() {
    return Evaluated("t = " + Quoted(std::string(kTextSize / 2, 'x')) + ";", Repeated("y=t;", kTextSize / 2));
}

std::string TextsThatRunTextsTwice() {
    std::string text = "t0 = 'n = 1;';";
    for (int n = 1; n < 60; ++n) {
        const std::string inner = "eval(t" + std::to_string(n - 1) + ");";
        text += "t" + std::to_string(n) + " = " + Quoted(inner + inner) + ";";
    }
    return text + "d() {" + Repeated("eval(t59);", kTextSize - text.size()) + "}";
}

// Makes the peak of the process begin again.
void ForgetPeak() { std::ofstream("/proc/self/clear_refs") << 5; }

double PeakMegabytes() {
    std::ifstream status("/proc/self/status");
    std::string word;
    double kilobytes = 0;
    while (status >> word) {
        if (word == "VmHWM:") status >> kilobytes;
    }
    return kilobytes / 1024;
}

void Run(benchmark::State& state, const std::string& text) {
    ForgetPeak();
    for (auto _ : state) {
        CopyingGenerator generator;
        const auto scope = CreateViewScope(nullptr, &generator, nullptr, nullptr, true);
        try {
            RunDefinition(*scope, text.c_str());
        } catch (const std::logic_error&) {
            // A text that passes a limit is refused.
        }
    }
    state.counters[kPeakMegabytes] = PeakMegabytes();
    state.SetItemsProcessed(state.iterations());
}

std::uint64_t Hear(std::int32_t, EventRecord&, void*) { return kAnswerDefault; }

void MakeDialog(benchmark::State& state, const HostileView& view) {
    ZeveInitialize();
    const std::string text = view.text();
    headless::State().keepsCalls = false;
    ForgetPeak();
    for (auto _ : state) {
        ZeveInitRecord record;
        record.callback = Hear;
        ZeveDialog* const dialog = ZeveNew(&record);
        try {
            ZeveAddViewText(dialog, text.c_str());
            static_cast<void>(ZeveMakeDialog(dialog, nullptr));
        } catch (const std::logic_error&) {
            // A view that passes a limit is refused.
        }
        ZeveDelete(dialog);
    }
    state.counters[kPeakMegabytes] = PeakMegabytes();
    state.SetItemsProcessed(state.iterations());
    headless::Reset();
}

// Registers a benchmark for each of the views that make boxes.
[[maybe_unused]] const bool gRegistered = [] {
    for (const HostileView& view : HostileViews()) {
        benchmark::RegisterBenchmark((std::string("hostile/boxes/") + view.name).c_str(), MakeDialog, view)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(1);
    }
    return true;
}();

} // namespace

#define PAVANE_HOSTILE(name, text)                                                                           \
    BENCHMARK_CAPTURE(Run, name, text)->Name("hostile/" #name)->Unit(benchmark::kMillisecond)->Iterations(1)

PAVANE_HOSTILE(inherited_text, InheritedText());
PAVANE_HOSTILE(names_of_one_scope, NamesOfOneScope());
PAVANE_HOSTILE(names_in_every_block, NamesInEveryBlock());
PAVANE_HOSTILE(missing_sums, MissingNamesInADeepChain("+q", 500));
PAVANE_HOSTILE(missing_few, MissingNamesInADeepChain("+q", 60));
PAVANE_HOSTILE(missing_statements, MissingNamesInADeepChain(";y=q+0", 500));
PAVANE_HOSTILE(views_in_a_deep_chain, ManyViewsInADeepChain());
PAVANE_HOSTILE(digits, DigitsOfABigText());
PAVANE_HOSTILE(copies, CopiesOfABigText());
PAVANE_HOSTILE(texts_twice, TextsThatRunTextsTwice());

} // namespace bench
