// Making one view: what it copies, what it takes over, and what it reads back after the generator had its
// turn.
#include "toolkit/layout/view_tree.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

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
    ViewProxy& Make(const Numbers& parameters, const ViewInheritance& inherited = {}) {
        CExpressionScope head(&block);
        for (const auto& [name, number] : parameters) head.DefineNumber(name, number);
        return tree.Make("row", head, nullptr, inherited);
    }

    PreparingGenerator generator;
    ViewTree tree{generator};
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
        const ViewProxy& view = Make({{name, 4294967303}});
        EXPECT_EQ(view.Attributes().GetLongOr(name, 0), 4294967303) << name << " at its full width";
        EXPECT_EQ(view.Attributes().VariableCount(), 1u) << name;
    }
}

TEST_F(MakingAViewProxy, CopiesTheBooleansAsZeroOrOne) {
    for (const std::string_view name : {"alwaysL2R", "reverse"}) {
        EXPECT_EQ(Make({{name, -7}}).Attributes().GetLongOr(name, 9), 1) << name;
        EXPECT_EQ(Make({{name, 0}}).Attributes().GetLongOr(name, 9), 0) << name;
    }
}

TEST_F(MakingAViewProxy, CopiesNothingElse) {
    const ViewProxy& view =
        Make({{"name", 1}, {"label_width", 2}, {"gSpace", 3}, {"top", 4}, {"left", 5}, {"rtl", 6}});
    EXPECT_EQ(view.Attributes().VariableCount(), 0u);
    EXPECT_FALSE(view.hasLabel);
}

TEST_F(MakingAViewProxy, FindsAttributesAlongTheWholeChain) {
    root.DefineNumber("spacing", 4);
    root.DefineNumber("width", 10);
    block.DefineNumber("width", 20);
    block.DefineNumber("height", 30);
    const ViewProxy& view = Make({{"height", 40}});
    EXPECT_EQ(view.spacing, 4);
    EXPECT_EQ(view.width, 20);
    EXPECT_EQ(view.height, 40);
}

TEST_F(MakingAViewProxy, StartsWithZeroes) {
    const ViewProxy& view = Make({});
    EXPECT_EQ(view.details.viewName, "row");
    EXPECT_EQ(generator.keyword, "row");
    EXPECT_EQ(view.details.parent, nullptr);
    for (const std::int32_t field : {view.width,
                                     view.height,
                                     view.top,
                                     view.left,
                                     view.inset,
                                     view.details.outset,
                                     view.leftOutset,
                                     view.topOutset,
                                     view.rightOutset,
                                     view.bottomOutset,
                                     view.labelWidth,
                                     view.topInset,
                                     view.horizontal,
                                     view.vertical,
                                     view.spacing,
                                     view.marginLeft,
                                     view.marginTop,
                                     view.marginRight,
                                     view.marginBottom,
                                     view.details.leftOffset,
                                     view.details.topOffset,
                                     view.details.childHorizontal,
                                     view.details.childVertical,
                                     view.placement,
                                     view.details.inheritedHorizontal,
                                     view.details.inheritedVertical,
                                     view.childWidthSum,
                                     view.childHeightSum}) {
        EXPECT_EQ(field, 0);
    }
    EXPECT_FALSE(view.alwaysL2R || view.reverse || view.hasLabel || view.offscreen || view.rtl);
    EXPECT_TRUE(view.children.IsEmpty());
}

TEST_F(MakingAViewProxy, ReadsEachAttributeIntoItsField) {
    const ViewProxy& view = Make({{"width", 1},           {"height", 2},
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
    const std::int32_t fields[] = {view.width,
                                   view.height,
                                   view.inset,
                                   view.topInset,
                                   view.details.outset,
                                   view.topOutset,
                                   view.leftOutset,
                                   view.bottomOutset,
                                   view.rightOutset,
                                   view.horizontal,
                                   view.vertical,
                                   view.spacing,
                                   view.placement,
                                   view.details.childHorizontal,
                                   view.details.childVertical,
                                   view.marginTop,
                                   view.marginLeft,
                                   view.marginRight,
                                   view.marginBottom,
                                   view.details.leftOffset,
                                   view.details.topOffset};
    for (std::int32_t place = 0; place < 21; ++place) EXPECT_EQ(fields[place], place + 1);
    EXPECT_TRUE(view.alwaysL2R);
    EXPECT_TRUE(view.reverse);
}

TEST_F(MakingAViewProxy, FieldsTakeTheLow32Bits) {
    const ViewProxy& view =
        Make({{"width", 4294967301}, {"placement", 4294967298}, {"height", kUndefinedNumber}});
    EXPECT_EQ(view.width, 5);
    EXPECT_EQ(view.placement, kPlaceOffscreen);
    EXPECT_EQ(view.height, std::numeric_limits<std::int32_t>::min());
}

TEST_F(MakingAViewProxy, OutsetIsTheDefaultOfTheFourOutsets) {
    const ViewProxy& view = Make({{"outset", 5}, {"left_outset", 7}, {"bottom_outset", 0}});
    EXPECT_EQ(view.topOutset, 5);
    EXPECT_EQ(view.leftOutset, 7);
    EXPECT_EQ(view.bottomOutset, 0);
    EXPECT_EQ(view.rightOutset, 5);
    EXPECT_FALSE(view.Attributes().HasVariable("top_outset"))
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
        const ViewProxy& view = Make(c.given);
        EXPECT_EQ(view.marginLeft, c.left);
        EXPECT_EQ(view.marginTop, c.top);
        EXPECT_EQ(view.marginRight, c.right);
        EXPECT_EQ(view.marginBottom, c.bottom);
    }
}

TEST_F(MakingAViewProxy, SpacingDefaultsToTheSpaceOfTheChain) {
    EXPECT_EQ(Make({}).spacing, 0);
    root.DefineNumber("gSpace", 11);
    EXPECT_EQ(Make({}).spacing, 11);
    EXPECT_EQ(Make({{"gSpace", 12}}).spacing, 12);
    EXPECT_EQ(Make({{"spacing", 0}}).spacing, 0);
}

TEST_F(MakingAViewProxy, OffscreenChildrenFillByDefault) {
    EXPECT_EQ(Make({{"placement", kPlaceOffscreen}}).details.childHorizontal, kAlignFill);
    EXPECT_EQ(
        Make({{"placement", kPlaceOffscreen}, {"child_horizontal", kAlignLeft}}).details.childHorizontal,
        kAlignLeft);
    EXPECT_EQ(Make({{"placement", kPlaceOffscreen}}).details.childVertical, kAlignNone);
    EXPECT_EQ(Make({{"placement", kPlaceRow}}).details.childHorizontal, kAlignNone);
}

TEST_F(MakingAViewProxy, StoresTheAlignmentsOfItsParent) {
    const ViewProxy& view = Make({}, {.horizontal = 3, .vertical = 5, .offscreen = true});
    EXPECT_EQ(view.details.inheritedHorizontal, 3);
    EXPECT_EQ(view.details.inheritedVertical, 5);
    EXPECT_TRUE(view.offscreen);
    EXPECT_EQ(view.placement, kPlaceColumn) << "offscreen is where it lies, not how it places";
}

TEST_F(MakingAViewProxy, InheritedAlignmentsBecomeAttributes) {
    const ViewProxy& view = Make({}, {.horizontal = 3, .vertical = 5});
    EXPECT_EQ(view.horizontal, 3);
    EXPECT_EQ(view.vertical, 5);
    EXPECT_EQ(view.Attributes().GetLongOr("horizontal", 0), 3);
    EXPECT_EQ(view.Attributes().GetLongOr("vertical", 0), 5);
}

TEST_F(MakingAViewProxy, OwnAlignmentsWinEvenAsZero) {
    const ViewProxy& view = Make({{"horizontal", 0}, {"vertical", 4}}, {.horizontal = 3, .vertical = 5});
    EXPECT_EQ(view.horizontal, 0);
    EXPECT_EQ(view.vertical, 4);
}

TEST_F(MakingAViewProxy, NothingInheritedDefinesNothing) {
    EXPECT_EQ(Make({}).Attributes().VariableCount(), 0u);
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
    const ViewProxy& view = Make({{"width", 7}});
    EXPECT_EQ(view.width, 70);
    EXPECT_EQ(view.height, 20);
    EXPECT_EQ(view.marginBottom, 2);
    EXPECT_EQ(view.spacing, 1);
    EXPECT_EQ(view.labelWidth, 0);
    EXPECT_TRUE(view.hasLabel) << "found, if as 0";
    EXPECT_EQ(view.details.childHorizontal, kAlignFill);
    EXPECT_FALSE(view.offscreen) << "known before";
}

TEST_F(MakingAViewProxy, TheDefaultSpaceComesFromTheParametersNotTheAttributes) {
    generator.prepare = [](CExpressionScope&, CExpressionScope& attributes) {
        attributes.DefineNumber("gSpace", 99);
    };
    EXPECT_EQ(Make({}).spacing, 0);
}

TEST_F(MakingAViewProxy, TextsOfAttributesLiveInTheGeneratorsPool) {
    generator.prepare = [](CExpressionScope&, CExpressionScope& attributes) {
        attributes.DefineString("name", "OK");
    };
    std::string_view text;
    {
        ViewTree shortLived(generator);
        CExpressionScope head;
        text = shortLived.Make("row", head, nullptr, {}).Attributes().GetStringOr("name", "");
    }
    EXPECT_EQ(text, "OK");
}

TEST_F(MakingAViewProxy, PassesOnWhatPreparingThrows) {
    generator.prepare = [](CExpressionScope&, CExpressionScope&) { throw std::logic_error("no such view"); };
    EXPECT_THROW(Make({}), std::logic_error);
}

TEST_F(MakingAViewProxy, ViewsKeepTheirPlacesWhenMoreAreMade) {
    std::vector<ViewProxy*> views;
    for (std::int32_t number = 0; number < 300; ++number) views.push_back(&Make({{"width", number}}));
    EXPECT_EQ(tree.Count(), 300u);
    for (std::size_t place = 0; place < 300; ++place) {
        ASSERT_EQ(views[place]->width, static_cast<std::int32_t>(place));
    }
}

TEST_F(MakingAViewProxy, AViewThatCannotBePreparedIsNotCounted) {
    generator.prepare = [](CExpressionScope&, CExpressionScope&) { throw std::logic_error("no such view"); };
    EXPECT_THROW(Make({}), std::logic_error);
    generator.prepare = nullptr;
    Make({});
    EXPECT_EQ(tree.Count(), 1u);
}

class AViewList : public MakingAViewProxy {
protected:
    void Fill(ViewList& filled, std::int32_t from, std::int32_t to) {
        for (std::int32_t number = from; number < to; ++number) filled.Append(Make({{"width", number}}));
    }
    static std::vector<std::int32_t> WidthsOf(const ViewList& views) {
        std::vector<std::int32_t> widths;
        for (const ViewProxy& view : views) widths.push_back(view.width);
        return widths;
    }
    ViewList list;
};

TEST_F(AViewList, KeepsTheOrderOfAppending) {
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.Count(), 0u);
    Fill(list, 0, 3);
    EXPECT_FALSE(list.IsEmpty());
    EXPECT_EQ(list.Count(), 3u);
    EXPECT_EQ(WidthsOf(list), (std::vector<std::int32_t>{0, 1, 2}));
    EXPECT_EQ(list.Front().width, 0);
    EXPECT_EQ(list.Back().width, 2);
}

TEST_F(AViewList, SplicesAtItsEnd) {
    ViewList first, second, none;
    Fill(first, 1, 2);
    Fill(second, 2, 4);
    list.Splice(none);
    list.Splice(first);
    list.Splice(none);
    list.Splice(second);
    EXPECT_EQ(WidthsOf(list), (std::vector<std::int32_t>{1, 2, 3}));
    EXPECT_EQ(list.Back().width, 3);
    EXPECT_TRUE(first.IsEmpty());
    EXPECT_TRUE(second.IsEmpty());
    Fill(list, 4, 5);
    EXPECT_EQ(WidthsOf(list), (std::vector<std::int32_t>{1, 2, 3, 4}));
}

TEST_F(AViewList, ReversesInPlace) {
    list.Reverse();
    EXPECT_TRUE(list.IsEmpty());
    Fill(list, 0, 1);
    list.Reverse();
    EXPECT_EQ(WidthsOf(list), (std::vector<std::int32_t>{0}));
    Fill(list, 1, 4);
    list.Reverse();
    EXPECT_EQ(WidthsOf(list), (std::vector<std::int32_t>{3, 2, 1, 0}));
    EXPECT_EQ(list.Front().width, 3);
    EXPECT_EQ(list.Back().width, 0);
    Fill(list, 9, 10);
    EXPECT_EQ(WidthsOf(list), (std::vector<std::int32_t>{3, 2, 1, 0, 9}));
}

} // namespace
} // namespace brixen::zeve
