// Making one view: what it copies, what it takes over, and what it reads back after the generator had its
// turn.
#include "toolkit/layout/view_proxy.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#define PAVANE_WATCHES_ADDRESSES 1
#elif defined(__has_feature)
#define PAVANE_WATCHES_ADDRESSES __has_feature(address_sanitizer)
#endif

namespace brixen::zeve {
namespace {

class PreparingGenerator : public CGenerator {
public:
    void PrepareView(std::string_view viewKeyword, CExpressionScope& viewAttributes,
                     CExpressionScope& attributes) override {
        keyword = viewKeyword;
        if (prepare) prepare(viewAttributes, attributes);
    }
    ViewHandle CreateView(std::string_view, CExpressionScope&, ViewHandle) override { return nullptr; }

    std::string keyword;
    std::function<void(CExpressionScope& viewAttributes, CExpressionScope& attributes)> prepare;
};

using Numbers = std::vector<std::pair<std::string_view, std::int64_t>>;

class MakingAViewProxy : public testing::Test {
protected:
    // The parameters of the head, in a scope below `block`.
    std::unique_ptr<ViewProxy> Make(const Numbers& parameters, const ViewInheritance& inherited = {}) {
        CExpressionScope head(&block);
        for (const auto& [name, number] : parameters) head.DefineNumber(name, number);
        return std::make_unique<ViewProxy>(generator, "row", head, nullptr, inherited);
    }

    PreparingGenerator generator;
    CExpressionScope root;
    CExpressionScope block{&root};
};

constexpr std::string_view kNumbers[] = {
    "width",       "height",           "inset",          "top_inset",     "outset",       "top_outset",
    "left_outset", "bottom_outset",    "right_outset",   "horizontal",    "vertical",     "spacing",
    "placement",   "child_horizontal", "child_vertical", "margin",        "margin_width", "margin_height",
    "margin_top",  "margin_left",      "margin_right",   "margin_bottom", "left_offset",  "top_offset"};

TEST_F(MakingAViewProxy, CopiesTheNumbersOfTheLayout) {
    for (const auto name : kNumbers) {
        const auto view = Make({{name, 4294967303}});
        EXPECT_EQ(view->attributes.GetLongOr(name, 0), 4294967303) << name << " at its full width";
        EXPECT_EQ(view->attributes.VariableCount(), 1u) << name;
    }
}

TEST_F(MakingAViewProxy, CopiesTheBooleansAsZeroOrOne) {
    for (const std::string_view name : {"alwaysL2R", "reverse"}) {
        EXPECT_EQ(Make({{name, -7}})->attributes.GetLongOr(name, 9), 1) << name;
        EXPECT_EQ(Make({{name, 0}})->attributes.GetLongOr(name, 9), 0) << name;
    }
}

TEST_F(MakingAViewProxy, CopiesNothingElse) {
    const auto view =
        Make({{"name", 1}, {"label_width", 2}, {"gSpace", 3}, {"top", 4}, {"left", 5}, {"rtl", 6}});
    EXPECT_EQ(view->attributes.VariableCount(), 0u);
    EXPECT_FALSE(view->hasLabel);
}

TEST_F(MakingAViewProxy, FindsAttributesAlongTheWholeChain) {
    root.DefineNumber("spacing", 4);
    root.DefineNumber("width", 10);
    block.DefineNumber("width", 20);
    block.DefineNumber("height", 30);
    const auto view = Make({{"height", 40}});
    EXPECT_EQ(view->spacing, 4);
    EXPECT_EQ(view->width, 20);
    EXPECT_EQ(view->height, 40);
}

TEST_F(MakingAViewProxy, StartsWithZeroes) {
    const auto view = Make({});
    EXPECT_EQ(view->viewName, "row");
    EXPECT_EQ(generator.keyword, "row");
    EXPECT_EQ(view->parent, nullptr);
    for (const std::int32_t field : {view->width,
                                     view->height,
                                     view->top,
                                     view->left,
                                     view->inset,
                                     view->outset,
                                     view->leftOutset,
                                     view->topOutset,
                                     view->rightOutset,
                                     view->bottomOutset,
                                     view->labelWidth,
                                     view->topInset,
                                     view->horizontal,
                                     view->vertical,
                                     view->spacing,
                                     view->marginLeft,
                                     view->marginTop,
                                     view->marginRight,
                                     view->marginBottom,
                                     view->leftOffset,
                                     view->topOffset,
                                     view->childHorizontal,
                                     view->childVertical,
                                     view->placement,
                                     view->inheritedHorizontal,
                                     view->inheritedVertical,
                                     view->childWidthSum,
                                     view->childHeightSum}) {
        EXPECT_EQ(field, 0);
    }
    EXPECT_FALSE(view->alwaysL2R || view->reverse || view->hasLabel || view->offscreen || view->rtl);
    EXPECT_TRUE(view->children.empty());
}

TEST_F(MakingAViewProxy, ReadsEachAttributeIntoItsField) {
    const auto view = Make({{"width", 1},           {"height", 2},
                            {"inset", 3},           {"top_inset", 4},
                            {"outset", 5},          {"top_outset", 6},
                            {"left_outset", 7},     {"bottom_outset", 8},
                            {"right_outset", 9},    {"horizontal", 10},
                            {"vertical", 11},       {"spacing", 12},
                            {"placement", 13},      {"child_horizontal", 14},
                            {"child_vertical", 15}, {"margin_top", 16},
                            {"margin_left", 17},    {"margin_right", 18},
                            {"margin_bottom", 19},  {"left_offset", 20},
                            {"top_offset", 21},     {"alwaysL2R", 1},
                            {"reverse", 1}});
    const std::int32_t fields[] = {
        view->width,     view->height,     view->inset,        view->topInset,        view->outset,
        view->topOutset, view->leftOutset, view->bottomOutset, view->rightOutset,     view->horizontal,
        view->vertical,  view->spacing,    view->placement,    view->childHorizontal, view->childVertical,
        view->marginTop, view->marginLeft, view->marginRight,  view->marginBottom,    view->leftOffset,
        view->topOffset};
    for (std::int32_t place = 0; place < 21; ++place) EXPECT_EQ(fields[place], place + 1);
    EXPECT_TRUE(view->alwaysL2R);
    EXPECT_TRUE(view->reverse);
}

TEST_F(MakingAViewProxy, FieldsTakeTheLow32Bits) {
    const auto view = Make({{"width", 4294967301}, {"placement", 4294967298}, {"height", kUndefinedNumber}});
    EXPECT_EQ(view->width, 5);
    EXPECT_EQ(view->placement, kPlaceOffscreen);
    EXPECT_EQ(view->height, std::numeric_limits<std::int32_t>::min());
}

TEST_F(MakingAViewProxy, OutsetIsTheDefaultOfTheFourOutsets) {
    const auto view = Make({{"outset", 5}, {"left_outset", 7}, {"bottom_outset", 0}});
    EXPECT_EQ(view->topOutset, 5);
    EXPECT_EQ(view->leftOutset, 7);
    EXPECT_EQ(view->bottomOutset, 0);
    EXPECT_EQ(view->rightOutset, 5);
    EXPECT_FALSE(view->attributes.HasVariable("top_outset"))
        << "the default is not written to the attributes";
}

TEST_F(MakingAViewProxy, MarginsDefaultFromTheirPairAndThenFromMargin) {
    struct Case {
        Numbers given;
        std::int32_t left, top, right, bottom;
    };
    const Case cases[] = {
        {{}, 0, 0, 0, 0},
        {{{"margin", 3}}, 3, 3, 3, 3},
        {{{"margin_width", 4}}, 4, 0, 4, 0},
        {{{"margin_height", 5}}, 0, 5, 0, 5},
        {{{"margin", 3}, {"margin_width", 4}}, 4, 3, 4, 3},
        {{{"margin", 3}, {"margin_height", 0}}, 3, 0, 3, 0},
        {{{"margin", 3}, {"margin_width", 4}, {"margin_right", 6}, {"margin_top", 7}}, 4, 7, 6, 3},
        {{{"margin_left", 1}, {"margin_top", 2}, {"margin_right", 3}, {"margin_bottom", 4}}, 1, 2, 3, 4},
    };
    for (const Case& c : cases) {
        const auto view = Make(c.given);
        EXPECT_EQ(view->marginLeft, c.left);
        EXPECT_EQ(view->marginTop, c.top);
        EXPECT_EQ(view->marginRight, c.right);
        EXPECT_EQ(view->marginBottom, c.bottom);
    }
}

TEST_F(MakingAViewProxy, SpacingDefaultsToTheSpaceOfTheChain) {
    EXPECT_EQ(Make({})->spacing, 0);
    root.DefineNumber("gSpace", 11);
    EXPECT_EQ(Make({})->spacing, 11);
    EXPECT_EQ(Make({{"gSpace", 12}})->spacing, 12);
    EXPECT_EQ(Make({{"spacing", 0}})->spacing, 0);
}

TEST_F(MakingAViewProxy, OffscreenChildrenFillUnlessToldOtherwise) {
    EXPECT_EQ(Make({{"placement", kPlaceOffscreen}})->childHorizontal, kAlignFill);
    EXPECT_EQ(Make({{"placement", kPlaceOffscreen}, {"child_horizontal", kAlignLeft}})->childHorizontal,
              kAlignLeft);
    EXPECT_EQ(Make({{"placement", kPlaceOffscreen}})->childVertical, kAlignNone);
    EXPECT_EQ(Make({{"placement", kPlaceRow}})->childHorizontal, kAlignNone);
}

TEST_F(MakingAViewProxy, KeepsWhatItIsToldToInherit) {
    const auto view = Make({}, {.horizontal = 3, .vertical = 5, .offscreen = true});
    EXPECT_EQ(view->inheritedHorizontal, 3);
    EXPECT_EQ(view->inheritedVertical, 5);
    EXPECT_TRUE(view->offscreen);
    EXPECT_EQ(view->placement, kPlaceColumn) << "offscreen is where it lies, not how it places";
}

TEST_F(MakingAViewProxy, InheritedAlignmentsBecomeAttributes) {
    const auto view = Make({}, {.horizontal = 3, .vertical = 5});
    EXPECT_EQ(view->horizontal, 3);
    EXPECT_EQ(view->vertical, 5);
    EXPECT_EQ(view->attributes.GetLongOr("horizontal", 0), 3);
    EXPECT_EQ(view->attributes.GetLongOr("vertical", 0), 5);
}

TEST_F(MakingAViewProxy, OwnAlignmentsWinEvenAsZero) {
    const auto view = Make({{"horizontal", 0}, {"vertical", 4}}, {.horizontal = 3, .vertical = 5});
    EXPECT_EQ(view->horizontal, 0);
    EXPECT_EQ(view->vertical, 4);
}

TEST_F(MakingAViewProxy, NothingInheritedDefinesNothing) {
    EXPECT_EQ(Make({})->attributes.VariableCount(), 0u);
}

TEST_F(MakingAViewProxy, TheGeneratorSeesWhatWasCopiedAndInherited) {
    std::int64_t width = 0, vertical = 0, own = 0;
    generator.prepare = [&](CExpressionScope& viewAttributes, CExpressionScope& attributes) {
        width = attributes.GetLongOr("width", 0);
        vertical = attributes.GetLongOr("vertical", 0);
        own = viewAttributes.GetLongOr("own", 0);
    };
    Make({{"width", 7}, {"own", 8}}, {.vertical = 2});
    EXPECT_EQ(width, 7);
    EXPECT_EQ(vertical, 2);
    EXPECT_EQ(own, 8);
}

TEST_F(MakingAViewProxy, WhatTheGeneratorDefinesIsRead) {
    generator.prepare = [](CExpressionScope&, CExpressionScope& attributes) {
        attributes.DefineNumber("width", 70);
        attributes.DefineNumber("height", 20);
        attributes.DefineNumber("margin", 2);
        attributes.DefineNumber("spacing", 1);
        attributes.DefineNumber("label_width", 0);
        attributes.DefineNumber("placement", kPlaceOffscreen);
        attributes.DefineNumber("gSpace", 99);
    };
    const auto view = Make({{"width", 7}});
    EXPECT_EQ(view->width, 70);
    EXPECT_EQ(view->height, 20);
    EXPECT_EQ(view->marginBottom, 2);
    EXPECT_EQ(view->spacing, 1);
    EXPECT_EQ(view->labelWidth, 0);
    EXPECT_TRUE(view->hasLabel) << "found, if as 0";
    EXPECT_EQ(view->childHorizontal, kAlignFill);
    EXPECT_FALSE(view->offscreen) << "known before";
}

TEST_F(MakingAViewProxy, TheDefaultSpaceComesFromTheParametersNotTheAttributes) {
    generator.prepare = [](CExpressionScope&, CExpressionScope& attributes) {
        attributes.DefineNumber("gSpace", 99);
    };
    EXPECT_EQ(Make({})->spacing, 0);
}

TEST_F(MakingAViewProxy, TextsOfAttributesLiveInTheGeneratorsPool) {
    generator.prepare = [](CExpressionScope&, CExpressionScope& attributes) {
        attributes.DefineString("name", "OK");
    };
    auto view = Make({});
    const std::string_view text = view->attributes.GetStringOr("name", "");
    view.reset();
    EXPECT_EQ(text, "OK");
}

TEST_F(MakingAViewProxy, WhatPreparingThrowsComesThrough) {
    generator.prepare = [](CExpressionScope&, CExpressionScope&) { throw std::logic_error("no such view"); };
    EXPECT_THROW(Make({}), std::logic_error);
}

TEST_F(MakingAViewProxy, ViewsComeAndGoInAnyOrder) {
    for (int round = 0; round < 2; ++round) {
        ViewProxyList views;
        for (std::int64_t number = 0; number < 300; ++number) views.push_back(Make({{"width", number}}));
        for (std::size_t place = 0; place < 300; place += 3) views[place].reset();
        for (std::size_t place = 0; place < 300; place += 3) {
            views[place] = Make({{"width", static_cast<std::int64_t>(place)}});
        }
        for (std::size_t place = 0; place < 300; ++place) {
            ASSERT_EQ(views[place]->width, static_cast<std::int32_t>(place));
        }
    }
}

#if PAVANE_WATCHES_ADDRESSES
using MakingAViewProxyDeathTest = MakingAViewProxy;

TEST_F(MakingAViewProxyDeathTest, AViewThatIsGoneIsShut) {
    const auto kept = Make({});
    auto view = Make({{"width", 5}});
    const volatile std::int32_t* const width = &view->width;
    view.reset();
    EXPECT_DEATH(static_cast<void>(*width), "use-after-poison");
    view = Make({{"width", 6}});
    EXPECT_EQ(*width, 6) << "the next view takes its place";
}
#endif

TEST_F(MakingAViewProxy, SplicedChildrenGoToTheEnd) {
    const auto view = Make({});
    ViewProxyList first, second;
    first.push_back(Make({{"width", 1}}));
    second.push_back(Make({{"width", 2}}));
    second.push_back(Make({{"width", 3}}));
    view->SpliceChildren(std::move(first));
    view->SpliceChildren(std::move(second));
    view->SpliceChildren({});
    ASSERT_EQ(view->children.size(), 3u);
    for (std::int32_t place = 0; place < 3; ++place) {
        EXPECT_EQ(view->children[static_cast<std::size_t>(place)]->width, place + 1);
    }
}

} // namespace
} // namespace brixen::zeve
