#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::lyr::gen::markup_test {
namespace {

using Cursor = std::array<std::int32_t, 6>;

Cursor CursorOf(const CMarkupSTL& markup) { return StateOf(markup).cursor; }

TEST(MarkupNavigation, FindElemStepsThroughSiblingsWithoutAPath) {
    for (const char* const path : {static_cast<const char*>(nullptr), ""}) {
        CMarkupSTL markup = Parsed("<r><a/>text<b/><!-- c --><c/></r>");
        ASSERT_TRUE(markup.FindElem(path));
        EXPECT_EQ(markup.GetTagName(), "r");
        EXPECT_FALSE(markup.FindElem(path));
        ASSERT_TRUE(markup.IntoElem());
        std::string names;
        while (markup.FindElem(path)) names += markup.GetTagName();
        EXPECT_EQ(names, "abc");
        EXPECT_EQ(markup.GetTagName(), "c") << "a search that fails leaves the cursor";
    }
}

TEST(MarkupNavigation, FindElemSetsTheCursor) {
    CMarkupSTL markup = Parsed("<r><a><b/></a></r>");
    ASSERT_TRUE(markup.FindElem("r"));
    EXPECT_EQ(CursorOf(markup), (Cursor{0, 1, 0, kMarkupElement, 0, 0}));
    ASSERT_TRUE(markup.FindChildElem("a"));
    EXPECT_EQ(CursorOf(markup), (Cursor{0, 1, 2, kMarkupElement, 0, 0}));
    ASSERT_TRUE(markup.IntoElem());
    EXPECT_EQ(CursorOf(markup), (Cursor{1, 2, 0, kMarkupElement, 0, 0}));
    ASSERT_TRUE(markup.IntoElem());
    EXPECT_EQ(CursorOf(markup), (Cursor{2, 0, 0, kMarkupNone, 0, 0}));
    EXPECT_FALSE(markup.IntoElem()) << "there is no element to go into";
    ASSERT_TRUE(markup.OutOfElem());
    EXPECT_EQ(CursorOf(markup), (Cursor{1, 2, 0, kMarkupElement, 0, 0}));
    ASSERT_TRUE(markup.OutOfElem());
    EXPECT_EQ(CursorOf(markup), (Cursor{0, 1, 2, kMarkupElement, 0, 0}));
    EXPECT_FALSE(markup.OutOfElem()) << "there is nothing around the root";
    EXPECT_EQ(CursorOf(markup), (Cursor{0, 1, 2, kMarkupElement, 0, 0}));
    markup.ResetPos();
    EXPECT_EQ(CursorOf(markup), Cursor{});
}

TEST(MarkupNavigation, OutOfElemKeepsTheElementLeftAsTheChild) {
    CMarkupSTL markup = Parsed("<r><a/><b/><c/></r>");
    markup.FindElem();
    markup.IntoElem();
    ASSERT_TRUE(markup.FindElem("b"));
    ASSERT_TRUE(markup.OutOfElem());
    EXPECT_EQ(markup.GetTagName(), "r");
    ASSERT_TRUE(markup.FindChildElem());
    ASSERT_TRUE(markup.IntoElem());
    EXPECT_EQ(markup.GetTagName(), "c");
}

TEST(MarkupNavigation, FindElemOfAFoundPathMovesTheParentToo) {
    CMarkupSTL markup = Parsed("<r><a><b><c/></b></a></r>");
    ASSERT_TRUE(markup.FindElem("r/a/b"));
    EXPECT_EQ(CursorOf(markup), (Cursor{2, 3, 0, kMarkupElement, 0, 0}));
    ASSERT_TRUE(markup.OutOfElem());
    EXPECT_EQ(markup.GetTagName(), "a");
}

struct PathCase {
    const char* path;
    const char* found; // the attribute `id` of what is found; null for nothing
};

// From before the root of one document.
TEST(MarkupNavigation, PathsFromBeforeTheRoot) {
    constexpr char kText[] = "<r id='0'><a id='1'><b id='2'/><c id='3'/></a><a id='4'><d id='5'/></a>"
                             "<x id='6'><y id='7'><z id='8'/></y></x></r>";
    for (const PathCase& path : {
             PathCase{"r", "0"},
             PathCase{"*", "0"},
             PathCase{"r/a", "1"},
             PathCase{"r/*", "1"},
             PathCase{"r/a/c", "3"},
             PathCase{"r/a/b", "2"},
             PathCase{"r/a/d", nullptr}, // the second `a` is not tried
             PathCase{"r/x/y/z", "8"},
             PathCase{"r/x/*/z", "8"},
             PathCase{"*/x", "6"},
             PathCase{"*/*/c", "3"},
             PathCase{"*/*/d", nullptr},
             PathCase{"*/*/*", "2"},
             PathCase{"r/x/y/z/q", nullptr},
             PathCase{"a", nullptr},
             PathCase{"R", nullptr},
             PathCase{"rr", nullptr},
             PathCase{"r/xx", nullptr},
             PathCase{"/r/x", "6"},
             PathCase{"/r", "0"},
             PathCase{"/*/x/y", "7"},
             PathCase{"/", "0"},
             PathCase{"/x", nullptr},
             PathCase{"r=anything", "0"},
             PathCase{"r anything", "0"},
             PathCase{"r[1]", "0"},
             PathCase{"r/a[2]", "1"},
         }) {
        CMarkupSTL markup = Parsed(kText);
        EXPECT_EQ(markup.FindElem(path.path), path.found != nullptr) << path.path;
        EXPECT_EQ(markup.GetAttrib("id"), path.found ? path.found : "") << path.path;
        if (!path.found) {
            EXPECT_EQ(CursorOf(markup), Cursor{}) << path.path;
        }
    }
}

TEST(MarkupNavigation, TheSearchBeginsAfterTheCurrentElement) {
    CMarkupSTL markup = Parsed("<r><a id='1'/><b/><a id='2'><c/></a><a id='3'/></r>");
    markup.FindElem();
    markup.IntoElem();
    std::string ids;
    while (markup.FindElem("a")) ids += markup.GetAttrib("id");
    EXPECT_EQ(ids, "123");
    EXPECT_FALSE(markup.FindElem("b")) << "earlier elements are not searched";
    EXPECT_TRUE(markup.FindElem("/r/a")) << "an absolute path begins at the root";
    EXPECT_EQ(markup.GetAttrib("id"), "1");
    EXPECT_TRUE(markup.FindElem("a/c"));
    EXPECT_EQ(markup.GetTagName(), "c");
}

TEST(MarkupNavigation, FindElemWithoutBacktracking) {
    CMarkupSTL markup = Parsed("<r><a><x/></a><a><b/></a></r>");
    markup.FindElem();
    markup.IntoElem();
    const State before = StateOf(markup);
    EXPECT_FALSE(markup.FindElem("a/b"));
    EXPECT_EQ(StateOf(markup), before);
}

TEST(MarkupNavigation, FindChildElemStepsOntoTheFirstElement) {
    CMarkupSTL markup = Parsed("<r><a/><b/></r>");
    ASSERT_TRUE(markup.FindChildElem("b"));
    EXPECT_EQ(markup.GetTagName(), "r");
    EXPECT_EQ(CursorOf(markup), (Cursor{0, 1, 3, kMarkupElement, 0, 0}));
    EXPECT_FALSE(markup.FindChildElem("a")) << "it is before the current child";
    EXPECT_EQ(CursorOf(markup), (Cursor{0, 1, 3, kMarkupElement, 0, 0}));
}

TEST(MarkupNavigation, AStepOntoTheFirstElementForgetsTheOldChild) {
    CMarkupSTL markup = Parsed("<a><x/><y/></a>");
    ASSERT_TRUE(markup.FindChildElem("/"));
    EXPECT_EQ(CursorOf(markup), (Cursor{0, 0, 1, kMarkupNone, 0, 0})) << "the root is the child of none";
    ASSERT_TRUE(markup.FindChildElem("x"));
    EXPECT_EQ(CursorOf(markup), (Cursor{0, 1, 2, kMarkupElement, 0, 0}));
}

TEST(MarkupNavigation, AFailedFindChildElemDoesNotStep) {
    CMarkupSTL markup = Parsed("<r><a/></r>");
    EXPECT_FALSE(markup.FindChildElem("x"));
    EXPECT_EQ(CursorOf(markup), Cursor{});
    CMarkupSTL empty;
    EXPECT_FALSE(empty.FindChildElem());
    EXPECT_FALSE(empty.FindElem());
    EXPECT_FALSE(empty.FindElem("/"));
}

TEST(MarkupNavigation, FindChildElemByPathMovesTheElementToo) {
    CMarkupSTL markup = Parsed("<r><a><b id='1'/><b id='2'/></a></r>");
    ASSERT_TRUE(markup.FindChildElem("a/b"));
    EXPECT_EQ(markup.GetTagName(), "a");
    EXPECT_EQ(markup.GetChildAttrib("id"), "1");
    EXPECT_EQ(CursorOf(markup), (Cursor{1, 2, 3, kMarkupElement, 0, 0}));
    ASSERT_TRUE(markup.FindChildElem("b"));
    EXPECT_EQ(markup.GetChildAttrib("id"), "2");
    ASSERT_TRUE(markup.FindChildElem("/r/a"));
    EXPECT_EQ(markup.GetTagName(), "r");
}

TEST(MarkupNavigation, PositionsAreSavedByName) {
    CMarkupSTL markup = Parsed("<r><a><b/></a><c/></r>");
    ASSERT_TRUE(markup.FindElem("r/a"));
    ASSERT_TRUE(markup.FindChildElem("b"));
    const State saved = StateOf(markup);
    EXPECT_TRUE(markup.SavePos("here"));
    EXPECT_TRUE(markup.SavePos());
    markup.ResetPos();
    EXPECT_TRUE(markup.SavePos("start"));
    EXPECT_TRUE(markup.RestorePos("here"));
    EXPECT_EQ(StateOf(markup), saved);
    EXPECT_FALSE(markup.RestorePos("nowhere"));
    EXPECT_EQ(StateOf(markup), saved);
    EXPECT_TRUE(markup.RestorePos("start"));
    EXPECT_EQ(CursorOf(markup), Cursor{});
    EXPECT_TRUE(markup.RestorePos(""));
    EXPECT_EQ(StateOf(markup), saved);
}

TEST(MarkupNavigation, ANullNameSavesAndRestoresNothing) {
    CMarkupSTL markup = Parsed("<r/>");
    EXPECT_FALSE(markup.SavePos(nullptr));
    EXPECT_FALSE(markup.RestorePos(nullptr));
    EXPECT_FALSE(markup.RestorePos(""));
}

TEST(MarkupNavigation, ANameSavedAgainIsMoved) {
    CMarkupSTL markup = Parsed("<r><a/></r>");
    markup.FindElem();
    markup.SavePos("x");
    markup.FindElem("/r/a");
    markup.SavePos("x");
    markup.ResetPos();
    ASSERT_TRUE(markup.RestorePos("x"));
    EXPECT_EQ(markup.GetTagName(), "a");
}

TEST(MarkupNavigation, RestoringLeavesANodeThatIsNoElement) {
    CMarkupSTL markup = Parsed("<r>text<a/></r>");
    markup.FindElem("r");
    markup.SavePos("root");
    markup.IntoElem();
    markup.SavePos("inside");
    ASSERT_EQ(markup.FindNode(), kMarkupText);
    ASSERT_TRUE(markup.RestorePos("inside"));
    EXPECT_EQ(CursorOf(markup), (Cursor{1, 0, 0, kMarkupNone, 0, 0}));
    ASSERT_TRUE(markup.RestorePos("root"));
    EXPECT_EQ(CursorOf(markup), (Cursor{0, 1, 0, kMarkupElement, 0, 0}));
}

TEST(MarkupNavigation, SavedPositionsSurviveEditsButNotTheElementsRemoval) {
    CMarkupSTL markup = Parsed("<r><a/><b><c/></b></r>");
    markup.FindElem("/r/b/c");
    markup.SavePos("c");
    markup.FindElem("/r/a");
    markup.SavePos("a");
    ASSERT_TRUE(markup.SetData("long content <before>"));
    ASSERT_TRUE(markup.RestorePos("c"));
    EXPECT_EQ(markup.GetTagName(), "c");
    ASSERT_TRUE(markup.FindElem("/r/b"));
    ASSERT_TRUE(markup.RemoveElem());
    const State before = StateOf(markup);
    EXPECT_FALSE(markup.RestorePos("c")) << "it went with its parent";
    EXPECT_EQ(StateOf(markup), before);
    EXPECT_TRUE(markup.RestorePos("a"));
    EXPECT_EQ(markup.GetTagName(), "a");
}

TEST(MarkupNavigation, ASavedPositionWhoseChildWasRemovedIsRefused) {
    CMarkupSTL markup = Parsed("<r><a/></r>");
    ASSERT_TRUE(markup.FindChildElem("a"));
    ASSERT_TRUE(markup.SavePos("child"));
    ASSERT_TRUE(markup.RemoveChildElem());
    EXPECT_FALSE(markup.RestorePos("child"));
}

TEST(MarkupNavigation, FindGetDataFindsAndReads) {
    CMarkupSTL markup = Parsed("<r><a>1 &lt; 2</a><b/></r>");
    EXPECT_EQ(markup.FindGetData("r/a"), "1 < 2");
    EXPECT_EQ(markup.GetTagName(), "a");
    EXPECT_EQ(markup.FindGetData("x"), "");
    EXPECT_EQ(markup.GetTagName(), "a");
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
