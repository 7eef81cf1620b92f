#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace brixen::lyr::gen::markup_test {
namespace {

static_assert(std::has_virtual_destructor_v<CMarkupSTL>);
static_assert(std::is_copy_constructible_v<CMarkupSTL> && std::is_copy_assignable_v<CMarkupSTL>);

CMarkupSTL Edited() {
    CMarkupSTL markup = At("<r><a>1</a><b><c/></b></r>", "r/a");
    markup.SavePos("a");
    markup.AddElem("new", "text");
    markup.FindElem("/r/b");
    markup.FindChildElem("c");
    return markup;
}

TEST(MarkupCopy, ACopyHasTextTreeAndCursor) {
    const CMarkupSTL markup = Edited();
    CMarkupSTL copy(markup);
    EXPECT_EQ(StateOf(copy), StateOf(markup));
    EXPECT_EQ(copy.GetTagName(), "b");
    EXPECT_TRUE(copy.IsWellFormed());
    EXPECT_TRUE(copy.RestorePos("a"));
    EXPECT_EQ(copy.GetData(), "1");
}

TEST(MarkupCopy, AnAssignedCopyReplacesTheOldDocument) {
    const CMarkupSTL markup = Edited();
    CMarkupSTL copy = At("<other><x/><y/></other>", "other/x");
    copy.SavePos("x");
    copy = markup;
    EXPECT_EQ(StateOf(copy), StateOf(markup));
    EXPECT_FALSE(copy.RestorePos("x"));
    copy = CMarkupSTL();
    EXPECT_EQ(StateOf(copy), StateOf(CMarkupSTL()));
    EXPECT_FALSE(copy.IsWellFormed());
    EXPECT_TRUE(copy.AddElem("again"));
}

TEST(MarkupCopy, ACopyOfItselfChangesNothing) {
    CMarkupSTL markup = Edited();
    const State before = StateOf(markup);
    const CMarkupSTL& same = markup;
    markup = same;
    EXPECT_EQ(StateOf(markup), before);
}

TEST(MarkupCopy, OriginalAndCopyAreIndependent) {
    CMarkupSTL markup = Edited();
    CMarkupSTL copy(markup);
    const State before = StateOf(copy);
    ASSERT_TRUE(markup.SetChildAttrib("x", "1"));
    ASSERT_TRUE(markup.RemoveElem());
    EXPECT_EQ(StateOf(copy), before);
    ASSERT_TRUE(copy.AddChildElem("d", "2"));
    EXPECT_EQ(FreshDifference(copy), "");
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupCopy, ACopyHasTheSameCurrentNode) {
    CMarkupSTL markup = At("<r>text<a/></r>", "r");
    markup.IntoElem();
    ASSERT_EQ(markup.FindNode(), kMarkupText);
    CMarkupSTL copy(markup);
    EXPECT_EQ(copy.GetData(), "text");
    EXPECT_EQ(copy.FindNode(), kMarkupElement);
}

TEST(MarkupCopy, MessagesAreCopied) {
    const CMarkupSTL markup = Parsed("<a>");
    const CMarkupSTL copy(markup);
    EXPECT_EQ(copy.GetError(), "End tag of a element not found");
    EXPECT_FALSE(copy.IsWellFormed());
}

TEST(MarkupCopy, AMovedDocumentIsWhole) {
    CMarkupSTL markup = Edited();
    const State before = StateOf(markup);
    CMarkupSTL moved(std::move(markup));
    EXPECT_EQ(StateOf(moved), before);
    CMarkupSTL assigned;
    assigned = std::move(moved);
    EXPECT_EQ(StateOf(assigned), before);
    ASSERT_TRUE(assigned.AddElem("z"));
    EXPECT_EQ(FreshDifference(assigned), "");
}

TEST(MarkupCopy, AMovedFromDocumentCanBeUsedAgain) {
    CMarkupSTL markup = Edited();
    const CMarkupSTL moved(std::move(markup));
    markup.SetDoc("<a/>"); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(markup.IsWellFormed());
    EXPECT_EQ(Outline(markup), "a");
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
