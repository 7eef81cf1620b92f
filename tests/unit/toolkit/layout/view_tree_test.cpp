// The last pass: final geometry goes into the attributes, and the generator makes the boxes.
#include "toolkit/layout/view_tree.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

namespace brixen::zeve {
namespace {

// Hands out made-up handles, 1 for the first view, none for those called "nothing".
class HandingGenerator : public CGenerator {
public:
    struct Creation {
        std::string keyword;
        std::uintptr_t parent;
        bool operator==(const Creation&) const = default;
    };

    void PrepareView(std::string_view, CExpressionScope&, CExpressionScope&) override {}
    ViewHandle CreateView(std::string_view viewKeyword, CExpressionScope& attributes,
                          ViewHandle parentHandle) override {
        if (viewKeyword == "failing") throw std::logic_error("failing");
        creations.push_back({std::string(viewKeyword), reinterpret_cast<std::uintptr_t>(parentHandle)});
        variableCount = attributes.VariableCount();
        return viewKeyword == "nothing" ? nullptr : HandleOf(creations.size());
    }

    static ViewHandle HandleOf(std::uintptr_t number) { return reinterpret_cast<ViewHandle>(number); }

    std::vector<Creation> creations;
    std::size_t variableCount = 0;
};

class MakingBoxes : public testing::Test {
protected:
    ViewProxy& NewView(std::string_view keyword, std::initializer_list<ViewProxy*> children = {}) {
        CExpressionScope head;
        ViewProxy& view = tree.Make(keyword, head, nullptr, {});
        for (ViewProxy* child : children) view.children.Append(*child);
        return view;
    }

    HandingGenerator generator;
    ViewTree tree{generator};
};

using Creations = std::vector<HandingGenerator::Creation>;

TEST_F(MakingBoxes, ParentsComeFirstAndHandTheirHandlesDown) {
    ViewProxy& a = NewView("a", {&NewView("x"), &NewView("y")});
    ViewProxy& root = NewView("root", {&a, &NewView("b")});
    EXPECT_EQ(tree.Current(), nullptr);
    EXPECT_EQ(tree.LayOutAndMakeBoxes(root), HandingGenerator::HandleOf(1));
    EXPECT_EQ(generator.creations, (Creations{{"root", 0}, {"a", 1}, {"x", 2}, {"y", 2}, {"b", 1}}));
    EXPECT_EQ(tree.Current()->details.viewName, "b");
}

TEST_F(MakingBoxes, TheResultOfTheGeneratorIsHandedDown) {
    tree.LayOutAndMakeBoxes(NewView("root", {&NewView("nothing", {&NewView("x")})}));
    EXPECT_EQ(generator.creations, (Creations{{"root", 0}, {"nothing", 1}, {"x", 0}}));
}

TEST_F(MakingBoxes, AFixedRootIsTheResult) {
    generator.fixedRoot = HandingGenerator::HandleOf(77);
    EXPECT_EQ(tree.LayOutAndMakeBoxes(NewView("root")), HandingGenerator::HandleOf(77));
    EXPECT_EQ(generator.creations.size(), 1u);
}

TEST_F(MakingBoxes, ARootWithoutHandleReturnsNull) {
    EXPECT_EQ(tree.LayOutAndMakeBoxes(NewView("nothing")), nullptr);
}

TEST_F(MakingBoxes, PassesOnWhatCreatingThrows) {
    ViewProxy& failing = NewView("failing");
    EXPECT_THROW(tree.LayOutAndMakeBoxes(NewView("root", {&failing, &NewView("later")})), std::logic_error);
    EXPECT_EQ(generator.creations.size(), 1u);
    EXPECT_EQ(tree.Current(), &failing);
}

TEST_F(MakingBoxes, TheTenFinalNumbersAreInTheAttributes) {
    ViewProxy& view = NewView("root");
    view.height = 1;
    view.width = 2;
    view.top = 3;
    view.left = 4;
    view.details.outset = 5;
    view.topOutset = 6;
    view.leftOutset = 7;
    view.bottomOutset = 8;
    view.rightOutset = 9;
    view.labelWidth = -10;
    tree.LayOutAndMakeBoxes(view);
    EXPECT_EQ(generator.variableCount, 10u);
    const std::string_view names[] = {"height",       "width",      "top",         "left",
                                      "outset",       "top_outset", "left_outset", "bottom_outset",
                                      "right_outset", "label_width"};
    const std::int64_t values[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, -10};
    for (std::size_t place = 0; place < 10; ++place) {
        EXPECT_EQ(view.Attributes().GetLongOr(names[place], 0), values[place]) << names[place];
    }
}

TEST_F(MakingBoxes, TheGeneratorsDirectionDecides) {
    for (const bool rightToLeft : {false, true}) {
        generator.rightToLeft = rightToLeft;
        ViewProxy& child = NewView("a");
        ViewProxy& root = NewView("root", {&child});
        root.width = 100;
        child.width = 20;
        tree.LayOutAndMakeBoxes(root);
        EXPECT_EQ(root.rtl, rightToLeft);
        EXPECT_EQ(child.left, rightToLeft ? 80 : 0);
    }
}

} // namespace
} // namespace brixen::zeve
