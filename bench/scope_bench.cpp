// One lookup of a name through the chain of scopes of a view: parameters, three blocks, the root.
#include "bench/sample_views.h"
#include "view/scope/expression_scope.h"

#include <benchmark/benchmark.h>

#include <cstdint>

namespace bench {
namespace {

using namespace brixen::zeve;

struct Chain {
    CExpressionScope root, empty{&root}, outer{&empty}, inner{&outer}, parameters{&inner};

    Chain() {
        root.DefineConstants(true);
        root.DefineNumber("gSpace"_name, kSampleSpace);
        outer.DefineNumber("columnWidth"_name, 120);
        inner.DefineNumber("child_vertical"_name, 2);
        for (const ScopeName& name :
             {"name"_name, "width"_name, "height"_name, "horizontal"_name, "view_id"_name}) {
            parameters.DefineNumber(name, 1);
        }
    }
};

void Lookup(benchmark::State& state, const ScopeName& name) {
    const Chain chain;
    std::int64_t value = 0;
    for (auto _ : state) benchmark::DoNotOptimize(chain.parameters.GetLong(name, &value));
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK_CAPTURE(Lookup, own, "width"_name)->Name("lookup/own");
BENCHMARK_CAPTURE(Lookup, root, "gSpace"_name)->Name("lookup/root");
BENCHMARK_CAPTURE(Lookup, miss, "margin_height"_name)->Name("lookup/miss");

} // namespace bench
