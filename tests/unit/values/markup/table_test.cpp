// The table of elements: how large it is, how it grows, and what a copy of it holds.
#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::lyr::gen::markup_test {
namespace {

constexpr std::int32_t kSegment = 65536;

// `count` elements: a root and its children.
std::string Siblings(int count) {
    std::string text = "<r>";
    for (int i = 1; i < count; ++i) text += "<e/>";
    return text + "</r>";
}

TEST(MarkupTable, ADocumentReservesAnEntryForEach64BytesAndEight) {
    EXPECT_EQ(Parsed("<a/>").TableCapacity(), 8);
    EXPECT_EQ(Parsed("").TableCapacity(), 8);
    EXPECT_EQ(Parsed("<a>" + std::string(64 * 10, 'x') + "</a>").TableCapacity(), 18);
    EXPECT_EQ(Parsed("<a>" + std::string(64 * 10 - 8, 'x') + "</a>").TableCapacity(), 17);
}

TEST(MarkupTable, AReserveAddsOneSegmentAtMost) {
    const std::string blanks(64 * 200000, ' ');
    EXPECT_EQ(Parsed("<a>" + blanks + "</a>").TableCapacity(), kSegment);
}

TEST(MarkupTable, GrowthAddsHalfOfWhatIsInUse) {
    // 8 entries, then 12, then 18: each time when the last one has been given out.
    EXPECT_EQ(Parsed(Siblings(6)).TableCapacity(), 8);
    EXPECT_EQ(Parsed(Siblings(10)).TableCapacity(), 12);
    EXPECT_EQ(Parsed(Siblings(13)).TableCapacity(), 18);
    // This text is long enough for 9: then 13, 19, 28.
    EXPECT_EQ(Parsed(Siblings(19)).TableCapacity(), 28);
}

TEST(MarkupTable, SearchingAnEndTagTakesAnEntryForAWhile) {
    // The root and six children take entries 1 to 7; the eighth place is asked for when `</r>` is met.
    EXPECT_EQ(Parsed(Siblings(7)).TableCapacity(), 12);
    EXPECT_EQ(Parsed(Siblings(7)).PosFree(), 8);
}

TEST(MarkupTable, GrowthGoesSegmentBySegment) {
    const CMarkupSTL two = Parsed(Siblings(kSegment + 5));
    EXPECT_GT(two.TableCapacity(), kSegment);
    EXPECT_LE(two.TableCapacity(), 2 * kSegment);
    for (const int count : {3 * kSegment, 6 * kSegment}) {
        const CMarkupSTL many = Parsed(Siblings(count));
        EXPECT_EQ(many.PosFree(), count + 1);
        EXPECT_GT(many.TableCapacity(), many.PosFree());
        EXPECT_LE(many.TableCapacity(), many.PosFree() + kSegment);
    }
}

TEST(MarkupTable, TheArrayOfSegmentsIsReplacedByOneOfTwiceTheSegmentAndFour) {
    EXPECT_EQ(Parsed("<a/>").SegmentCapacity(), 4);
    EXPECT_EQ(Parsed(Siblings(3 * kSegment + 10)).SegmentCapacity(), 4);
    EXPECT_EQ(Parsed(Siblings(4 * kSegment + 10)).SegmentCapacity(), 12);
}

TEST(MarkupTable, EntriesKeepTheirValuesAcrossSegments) {
    const int count = 2 * kSegment + 100;
    const CMarkupSTL markup = Parsed(Siblings(count));
    ASSERT_EQ(markup.PosFree(), count + 1);
    for (std::int32_t index = 2; index <= count; ++index) {
        const std::int32_t left = 3 + (index - 2) * 4;
        ASSERT_EQ(EntryAt(markup, index),
                  (Entry{left, left + 3, left + 2, left + 3, 1, 0, index == count ? 0 : index + 1}));
    }
}

TEST(MarkupTable, MemoryIsKeptWhenTheTextIsReplaced) {
    CMarkupSTL markup = Parsed(Siblings(100));
    const std::int32_t capacity = markup.TableCapacity();
    markup.SetDoc("<a/>");
    EXPECT_EQ(markup.TableCapacity(), capacity);
    EXPECT_EQ(markup.PosFree(), 2);
}

TEST(MarkupTable, AFreshObjectHasRoomForTheElementThatIsAdded) {
    CMarkupSTL markup;
    EXPECT_EQ(markup.TableCapacity(), 0);
    ASSERT_TRUE(markup.AddElem("a"));
    EXPECT_GE(markup.TableCapacity(), 2);
    EXPECT_EQ(Outline(markup), "a");
    for (int i = 0; i < 100; ++i) ASSERT_TRUE(markup.AddChildElem("b"));
    EXPECT_EQ(markup.PosFree(), 102);
    EXPECT_GE(markup.TableCapacity(), 102);
}

TEST(MarkupTable, RemovedEntriesAreNotUsedAgainUntilTheNextParse) {
    CMarkupSTL markup = At("<a><b/><c/></a>", "a");
    ASSERT_TRUE(markup.FindChildElem("b"));
    ASSERT_TRUE(markup.RemoveChildElem());
    EXPECT_EQ(markup.PosFree(), 4);
    ASSERT_TRUE(markup.AddChildElem("d"));
    EXPECT_EQ(markup.PosChild(), 4);
    EXPECT_EQ(markup.PosFree(), 5);
}

TEST(MarkupTable, AnElementKeepsItsIndexThroughEdits) {
    CMarkupSTL markup = At("<a><b/><c/></a>", "a");
    ASSERT_TRUE(markup.FindChildElem("c"));
    const std::int32_t c = markup.PosChild();
    markup.ResetPos();
    ASSERT_TRUE(markup.FindChildElem("b"));
    ASSERT_TRUE(markup.SetChildAttrib("long", "attribute"));
    ASSERT_TRUE(markup.AddChildElem("new", "content"));
    ASSERT_TRUE(markup.FindChildElem("c"));
    EXPECT_EQ(markup.PosChild(), c);
}

TEST(MarkupTable, ACopyHasRoomForTheEntriesInUse) {
    const CMarkupSTL markup = Parsed(Siblings(13));
    ASSERT_GT(markup.TableCapacity(), markup.PosFree());
    const CMarkupSTL copy(markup);
    EXPECT_EQ(copy.TableCapacity(), markup.PosFree());
    EXPECT_EQ(StateOf(copy), StateOf(markup));
}

TEST(MarkupTable, ACopyOfManySegmentsHoldsTheSame) {
    const CMarkupSTL markup = Parsed(Siblings(2 * kSegment + 100));
    const CMarkupSTL copy(markup);
    EXPECT_EQ(copy.TableCapacity(), markup.PosFree());
    EXPECT_EQ(StateOf(copy), StateOf(markup));
    CMarkupSTL grown(copy);
    ASSERT_TRUE(grown.FindElem());
    ASSERT_TRUE(grown.AddChildElem("new"));
    EXPECT_EQ(grown.PosFree(), markup.PosFree() + 1);
    EXPECT_EQ(FreshDifference(grown), "");
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
