// The layout alone: direction, measure and place over a tree that lacks only its layout.
#include "bench/sample_views.h"
#include "toolkit/layout/layout.h"
#include "toolkit/layout/view_tree.h"
#include "view/verify_generator.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <initializer_list>
#include <utility>

namespace bench {
namespace {

using namespace brixen::zeve;

// The tree of the sample descriptions.
class SampleTree {
public:
    explicit SampleTree(std::int64_t nodeCount) : left(nodeCount) {
        space.DefineNumber("gSpace"_name, kSampleSpace);
        while (left > 0) root.children.Append(Section());
    }
    ViewProxy& Root() { return root; }

private:
    using Attributes = std::initializer_list<std::pair<ScopeName, std::int64_t>>;

    ViewProxy& View(Attributes attributes) {
        --left;
        CExpressionScope head(&space);
        for (const auto& [name, value] : attributes) head.DefineNumber(name, value);
        return tree.Make("view", head, nullptr, {});
    }
    ViewProxy& Section() {
        ViewProxy& section = View({{"margin"_name, 8}, {"horizontal"_name, kAlignFill}});
        for (int row = 0; row < 4 && left > 0; ++row) section.children.Append(Row());
        return section;
    }
    ViewProxy& Row() {
        ViewProxy& row =
            View({{"placement"_name, kPlaceRow}, {"margin_left"_name, 4}, {"horizontal"_name, kAlignFill}});
        for (int control = 0; control < 3 && left > 0; ++control) row.children.Append(Control());
        return row;
    }
    ViewProxy& Control() {
        return View({{"width"_name, 92},
                     {"height"_name, 16},
                     {"horizontal"_name, kAlignProportional},
                     {"vertical"_name, kAlignCenter}});
    }

    CVerifyGenerator generator;
    ViewTree tree{generator};
    CExpressionScope space;
    std::int64_t left; // views still to be made
    ViewProxy& root = View({{"margin"_name, 12}, {"child_horizontal"_name, kAlignFill}});
};

void Layout(benchmark::State& state) {
    SampleTree tree(state.range(0));
    for (auto _ : state) {
        LayOut(tree.Root(), false);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(Layout)->Name("layout/pavane")->Arg(100)->Arg(1000)->Arg(10000);

} // namespace bench
