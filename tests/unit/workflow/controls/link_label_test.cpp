#include "workflow/controls/link_label.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace brixen::pvn::pvn_workflow {
namespace {

using zeve::platform::Rectangle;

// --- Tags ---

struct SplitCase {
    std::u16string label, before, link, after;
};

class LabelTags : public testing::TestWithParam<SplitCase> {};

TEST_P(LabelTags, AreSplit) {
    const LabelParts parts = SplitLabel(GetParam().label);
    EXPECT_EQ(parts.before, GetParam().before);
    EXPECT_EQ(parts.link, GetParam().link);
    EXPECT_EQ(parts.after, GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(OfEveryShape, LabelTags,
                         testing::Values(SplitCase{u"Read <A>more</A> now", u"Read ", u"more", u" now"},
                                         SplitCase{u"Read <a>more</a> now", u"Read ", u"more", u" now"},
                                         SplitCase{u"<A>more</a>", u"", u"more", u""},
                                         SplitCase{u"plain", u"plain", u"", u""},
                                         SplitCase{u"", u"", u"", u""}, SplitCase{u"<A></A>", u"", u"", u""},
                                         // only the first pair counts
                                         SplitCase{u"<A>1</A> <A>2</A>", u"", u"1", u" <A>2</A>"},
                                         // a closing tag without an opening one is text
                                         SplitCase{u"one</A> two", u"one</A> two", u"", u""},
                                         SplitCase{u"one</A> <A>two</A>", u"one</A> ", u"two", u""},
                                         // an opening tag opens only while no link is open
                                         SplitCase{u"x<A>a<A>b</A>c</A>d", u"x", u"a<A>b", u"c</A>d"},
                                         // cut tags
                                         SplitCase{u"x<A>rest", u"x<A>rest", u"", u""},
                                         SplitCase{u"x<A>rest</A", u"x<A>rest</A", u"", u""},
                                         SplitCase{u"x<A", u"x<A", u"", u""}, SplitCase{u"<", u"<", u"", u""},
                                         SplitCase{u"<A >x</A >", u"<A >x</A >", u"", u""},
                                         SplitCase{u"a<b<A>c</A>", u"a<b", u"c", u""}));

TEST(LongLabel, WithManyTagsIsSplitAtTheFirstPair) {
    std::u16string label;
    for (int i = 0; i < 100000; ++i) label += u"<A>";
    EXPECT_EQ(SplitLabel(label).before.size(), label.size());
    label += u"</A>";
    EXPECT_EQ(SplitLabel(label).link.size(), label.size() - 7);
}

// --- Access keys ---

struct AccessCase {
    std::u16string label;
    bool hasKey;
    std::u16string read;
};

class AccessMarks : public testing::TestWithParam<AccessCase> {};

TEST_P(AccessMarks, AreFoundAndRemoved) {
    EXPECT_EQ(HasAccessKey(GetParam().label), GetParam().hasKey);
    EXPECT_EQ(WithoutAccessMarks(GetParam().label), GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryShape, AccessMarks,
    testing::Values(AccessCase{u"&More", true, u"More"}, AccessCase{u"Mo&re", true, u"More"},
                    AccessCase{u"More", false, u"More"}, AccessCase{u"R&&D", false, u"R&D"},
                    AccessCase{u"R&&&D", true, u"R&D"}, AccessCase{u"R&&&&D", false, u"R&&D"},
                    AccessCase{u"More&", false, u"More"}, AccessCase{u"&", false, u""},
                    AccessCase{u"", false, u""}, AccessCase{u"\x6B21\x3078(&N)", true, u"\x6B21\x3078(N)"}));

// --- Places ---

bool Same(const Rectangle& one, const Rectangle& other) {
    return one.left == other.left && one.top == other.top && one.right == other.right &&
           one.bottom == other.bottom;
}

class LabelPlaces : public testing::Test {
protected:
    // Parts of 30, 20 and 10 pixels in a client area of 100.
    LabelAreas Align(LabelAlignment alignment, bool isReadFromRight = false) const {
        return AlignLabel(measured, client, alignment, isReadFromRight);
    }
    const Rectangle client{0, 0, 100, 40};
    const LabelAreas measured{{0, 0, 30, 13}, {30, 0, 50, 13}, {50, 0, 60, 13}};
};

TEST_F(LabelPlaces, AtTheLeftAreAsMeasured) {
    const LabelAreas areas = Align(LabelAlignment::kLeft);
    EXPECT_TRUE(Same(areas.before, {0, 0, 30, 13}));
    EXPECT_TRUE(Same(areas.link, {30, 0, 50, 13}));
    EXPECT_TRUE(Same(areas.after, {50, 0, 60, 13}));
}

TEST_F(LabelPlaces, InTheCenterMoveByHalfOfTheRest) {
    const LabelAreas areas = Align(LabelAlignment::kCenter);
    EXPECT_TRUE(Same(areas.before, {20, 0, 50, 13}));
    EXPECT_TRUE(Same(areas.link, {50, 0, 70, 13}));
    EXPECT_TRUE(Same(areas.after, {70, 0, 80, 13}));
}

TEST_F(LabelPlaces, AtTheRightEndThere) {
    const LabelAreas areas = Align(LabelAlignment::kRight);
    EXPECT_TRUE(Same(areas.before, {40, 0, 70, 13}));
    EXPECT_TRUE(Same(areas.link, {70, 0, 90, 13}));
    EXPECT_TRUE(Same(areas.after, {90, 0, 100, 13}));
}

TEST_F(LabelPlaces, ReadFromTheRightHaveTheFirstPartThere) {
    const LabelAreas right = Align(LabelAlignment::kRight, true);
    EXPECT_TRUE(Same(right.before, {70, 0, 100, 13}));
    EXPECT_TRUE(Same(right.link, {50, 0, 70, 13}));
    EXPECT_TRUE(Same(right.after, {40, 0, 50, 13}));
    const LabelAreas left = Align(LabelAlignment::kLeft, true);
    EXPECT_TRUE(Same(left.after, {0, 0, 10, 13}));
    EXPECT_TRUE(Same(left.before, {30, 0, 60, 13}));
}

TEST_F(LabelPlaces, OfALabelThatIsTooWideBeginAtTheLeft) {
    const Rectangle narrow{0, 0, 50, 40};
    for (const LabelAlignment alignment : {LabelAlignment::kCenter, LabelAlignment::kRight}) {
        EXPECT_TRUE(Same(AlignLabel(measured, narrow, alignment, false).link, {30, 0, 50, 13}));
    }
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
