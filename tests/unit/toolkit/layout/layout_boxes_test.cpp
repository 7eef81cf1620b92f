// The last pass: final geometry goes into the attributes, and the generator makes the boxes.
#include "toolkit/layout/view_proxy.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
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

std::unique_ptr<ViewProxy> NewView(CGenerator& generator, std::string_view keyword,
                                   ViewProxyList children = {}) {
    CExpressionScope head;
    auto view = std::make_unique<ViewProxy>(generator, keyword, head, nullptr, ViewInheritance{});
    view->SpliceChildren(std::move(children));
    return view;
}

template <class... Views>
ViewProxyList Block(Views... views) {
    ViewProxyList list;
    (list.push_back(std::move(views)), ...);
    return list;
}

TEST(MakingBoxes, ParentsComeFirstAndHandTheirHandlesDown) {
    HandingGenerator g;
    auto root =
        NewView(g, "root", Block(NewView(g, "a", Block(NewView(g, "x"), NewView(g, "y"))), NewView(g, "b")));
    EXPECT_EQ(root->LayOutAndMakeBoxes(g), HandingGenerator::HandleOf(1));
    const std::vector<HandingGenerator::Creation> expected{
        {"root", 0}, {"a", 1}, {"x", 2}, {"y", 2}, {"b", 1}};
    EXPECT_EQ(g.creations, expected);
}

TEST(MakingBoxes, WhateverTheGeneratorAnswersIsHandedDown) {
    HandingGenerator g;
    auto root = NewView(g, "root", Block(NewView(g, "nothing", Block(NewView(g, "x")))));
    root->LayOutAndMakeBoxes(g);
    const std::vector<HandingGenerator::Creation> expected{{"root", 0}, {"nothing", 1}, {"x", 0}};
    EXPECT_EQ(g.creations, expected);
}

TEST(MakingBoxes, AFixedRootIsTheResult) {
    HandingGenerator g;
    g.fixedRoot = HandingGenerator::HandleOf(77);
    EXPECT_EQ(NewView(g, "root")->LayOutAndMakeBoxes(g), HandingGenerator::HandleOf(77));
    EXPECT_EQ(g.creations.size(), 1u);
}

TEST(MakingBoxes, ARootWithoutHandleGivesNone) {
    HandingGenerator g;
    EXPECT_EQ(NewView(g, "nothing")->LayOutAndMakeBoxes(g), nullptr);
}

TEST(MakingBoxes, WhatCreatingThrowsComesThrough) {
    HandingGenerator g;
    auto root = NewView(g, "root", Block(NewView(g, "failing"), NewView(g, "later")));
    EXPECT_THROW(root->LayOutAndMakeBoxes(g), std::logic_error);
    EXPECT_EQ(g.creations.size(), 1u);
}

TEST(MakingBoxes, TheTenFinalNumbersAreInTheAttributes) {
    HandingGenerator g;
    const auto view = NewView(g, "root");
    view->height = 1;
    view->width = 2;
    view->top = 3;
    view->left = 4;
    view->outset = 5;
    view->topOutset = 6;
    view->leftOutset = 7;
    view->bottomOutset = 8;
    view->rightOutset = 9;
    view->labelWidth = -10;
    view->LayOutAndMakeBoxes(g);
    EXPECT_EQ(g.variableCount, 10u);
    const std::string_view names[] = {"height",       "width",      "top",         "left",
                                      "outset",       "top_outset", "left_outset", "bottom_outset",
                                      "right_outset", "label_width"};
    const std::int64_t values[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, -10};
    for (std::size_t place = 0; place < 10; ++place) {
        EXPECT_EQ(view->attributes.GetLongOr(names[place], 0), values[place]) << names[place];
    }
}

TEST(MakingBoxes, TheGeneratorsDirectionDecides) {
    for (const bool rightToLeft : {false, true}) {
        HandingGenerator g;
        g.rightToLeft = rightToLeft;
        auto root = NewView(g, "root", Block(NewView(g, "a")));
        root->width = 100;
        root->children[0]->width = 20;
        root->LayOutAndMakeBoxes(g);
        EXPECT_EQ(root->rtl, rightToLeft);
        EXPECT_EQ(root->children[0]->left, rightToLeft ? 80 : 0);
    }
}

} // namespace
} // namespace brixen::zeve
