// The layout alone: direction, measure and place over a tree that is finished but for it.
#include "bench/sample_views.h"
#include "toolkit/layout/layout.h"
#include "toolkit/layout/view_proxy.h"
#include "view/verify_generator.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <utility>

namespace bench {
namespace {

using namespace brixen::zeve;

// The tree of the sample descriptions.
class SampleTree {
public:
    explicit SampleTree(std::int64_t nodeCount) : left(nodeCount) {
        space.DefineNumber("gSpace"_name, kSampleSpace);
        root = View({{"margin"_name, 12}, {"child_horizontal"_name, kAlignFill}});
        while (left > 0) root->children.push_back(Section());
    }
    ViewProxy& Root() { return *root; }

private:
    using Attributes = std::initializer_list<std::pair<ScopeName, std::int64_t>>;

    std::unique_ptr<ViewProxy> View(Attributes attributes) {
        --left;
        CExpressionScope head(&space);
        for (const auto& [name, value] : attributes) head.DefineNumber(name, value);
        return std::make_unique<ViewProxy>(generator, "view", head, nullptr, ViewInheritance{});
    }
    std::unique_ptr<ViewProxy> Section() {
        auto section = View({{"margin"_name, 8}, {"horizontal"_name, kAlignFill}});
        for (int row = 0; row < 4 && left > 0; ++row) section->children.push_back(Row());
        return section;
    }
    std::unique_ptr<ViewProxy> Row() {
        auto row =
            View({{"placement"_name, kPlaceRow}, {"margin_left"_name, 4}, {"horizontal"_name, kAlignFill}});
        for (int control = 0; control < 3 && left > 0; ++control) row->children.push_back(Control());
        return row;
    }
    std::unique_ptr<ViewProxy> Control() {
        return View({{"width"_name, 92},
                     {"height"_name, 16},
                     {"horizontal"_name, kAlignProportional},
                     {"vertical"_name, kAlignCenter}});
    }

    CVerifyGenerator generator;
    CExpressionScope space;
    std::int64_t left; // views still to be made
    std::unique_ptr<ViewProxy> root;
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
