// Adding and removing, one operation at a time: the text to the letter, the tree, the cursor.
#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace brixen::lyr::gen::markup_test {
namespace {

// An edit at an element (or, with a null path, before the first one) and the text that results.
struct EditCase {
    const char* before;
    const char* path;
    std::function<bool(CMarkupSTL&)> edit;
    const char* after;
    const char* current; // the name of the current element afterward
};

void Check(const EditCase& change) {
    SCOPED_TRACE(change.before + std::string(" at ") + (change.path ? change.path : "the start"));
    CMarkupSTL markup = Parsed(change.before);
    if (change.path) {
        ASSERT_TRUE(markup.FindElem(change.path));
    }
    ASSERT_TRUE(change.edit(markup));
    EXPECT_EQ(markup.GetDoc(), change.after);
    EXPECT_EQ(markup.GetTagName(), change.current);
    EXPECT_EQ(FreshDifference(markup), "");
}

auto Add(const char* name, const char* content = nullptr) {
    return [=](CMarkupSTL& markup) { return markup.AddElem(name, content); };
}
auto Insert(const char* name, const char* content = nullptr) {
    return [=](CMarkupSTL& markup) { return markup.InsertElem(name, content); };
}
auto AddChild(const char* name, const char* content = nullptr) {
    return [=](CMarkupSTL& markup) { return markup.AddChildElem(name, content); };
}
auto InsertChild(const char* name, const char* content = nullptr) {
    return [=](CMarkupSTL& markup) { return markup.InsertChildElem(name, content); };
}
// At the end or the start of the element that the path found.
auto Inside(const std::function<bool(CMarkupSTL&)>& edit) {
    return [=](CMarkupSTL& markup) { return markup.IntoElem() && edit(markup); };
}

TEST(MarkupEdit, AddElemAddsAfterTheCurrentElement) {
    for (const EditCase& change : {
             EditCase{"<r><a/></r>", "r/a", Add("b"), "<r><a/><b/>\r\n</r>", "b"},
             EditCase{"<r><a/></r>", "r/a", Add("b", "t<"), "<r><a/><b>t&lt;</b>\r\n</r>", "b"},
             EditCase{"<r><a/></r>", "r/a", Add("b", ""), "<r><a/><b/>\r\n</r>", "b"},
             EditCase{"<r><a/><c/></r>", "r/a", Add("b"), "<r><a/><b/>\r\n<c/></r>", "b"},
             EditCase{"<r><a/>\r\n  <c/></r>", "r/a", Add("b"), "<r><a/>\r\n  <b/>\r\n<c/></r>", "b"},
             EditCase{"<r><a/>text<c/></r>", "r/a", Add("b"), "<r><a/><b/>\r\ntext<c/></r>", "b"},
             EditCase{"<r><a/> text<c/></r>", "r/a", Add("b"), "<r><a/><b/>\r\n text<c/></r>", "b"},
             EditCase{"<r>\n<a>x</a>\n</r>", "r/a", Add("b"), "<r>\n<a>x</a>\n<b/>\r\n</r>", "b"},
             EditCase{"<r><a/> <!--c--></r>", "r/a", Add("b"), "<r><a/> <b/>\r\n<!--c--></r>", "b"},
         }) {
        Check(change);
    }
}

TEST(MarkupEdit, InsertElemAddsBeforeTheCurrentElement) {
    for (const EditCase& change : {
             EditCase{"<r><b/></r>", "r/b", Insert("a"), "<r><a/>\r\n<b/></r>", "a"},
             EditCase{"<r><a/><c/></r>", "r/c", Insert("b"), "<r><a/><b/>\r\n<c/></r>", "b"},
             EditCase{"<r><a/> \n <c/></r>", "r/c", Insert("b"), "<r><a/> \n <b/>\r\n<c/></r>", "b"},
             EditCase{"<r>\n<b/>\n</r>", "r/b", Insert("a", "x"), "<r>\n<a>x</a>\r\n<b/>\n</r>", "a"},
         }) {
        Check(change);
    }
}

TEST(MarkupEdit, WithoutACurrentElementTheEndsOfTheParentAreUsed) {
    for (const EditCase& change : {
             EditCase{"<r></r>", "r", Inside(Add("a")), "<r><a/>\r\n</r>", "a"},
             EditCase{"<r><a/><b/></r>", "r", Inside(Add("c")), "<r><a/><b/><c/>\r\n</r>", "c"},
             EditCase{"<r>\n<a/>\n</r>", "r", Inside(Add("b")), "<r>\n<a/>\n<b/>\r\n</r>", "b"},
             EditCase{"<r><b/></r>", "r", Inside(Insert("a")), "<r><a/>\r\n<b/></r>", "a"},
             EditCase{"<r>\n  <b/></r>", "r", Inside(Insert("a")), "<r>\n  <a/>\r\n<b/></r>", "a"},
             EditCase{"<r>text</r>", "r", Inside(Add("a")), "<r>text<a/>\r\n</r>", "a"},
             EditCase{"<r>text</r>", "r", Inside(Insert("a")), "<r><a/>\r\ntext</r>", "a"},
         }) {
        Check(change);
    }
}

TEST(MarkupEdit, AnEmptyDocumentTakesARoot) {
    CMarkupSTL markup;
    ASSERT_TRUE(markup.AddElem("r"));
    EXPECT_EQ(markup.GetDoc(), "<r/>\r\n");
    EXPECT_TRUE(markup.IsWellFormed());
    EXPECT_EQ(markup.GetTagName(), "r");
    EXPECT_EQ(markup.At(0).endTagLeft, 6) << "the end of the document";
    EXPECT_EQ(FreshDifference(markup), "");
    CMarkupSTL inserted;
    ASSERT_TRUE(inserted.InsertElem("r", "x"));
    EXPECT_EQ(inserted.GetDoc(), "<r>x</r>\r\n");
    CMarkupSTL after = Parsed("<!--c-->");
    ASSERT_TRUE(after.AddElem("r"));
    EXPECT_EQ(after.GetDoc(), "<!--c--><r/>\r\n");
    EXPECT_EQ(FreshDifference(after), "");
}

TEST(MarkupEdit, ARootIsRefusedWhereNoParseWouldFindIt) {
    for (const char* const text : {"<!-- open", "<b>", "<", "</b>", "<!--c--><b></c>"}) {
        CMarkupSTL markup = Parsed(text);
        const State before = StateOf(markup);
        EXPECT_FALSE(markup.AddElem("r")) << text;
        EXPECT_FALSE(markup.AddSubDoc("<r/>")) << text;
        EXPECT_EQ(StateOf(markup), before) << text;
        EXPECT_TRUE(markup.InsertElem("r")) << "before everything else it is found";
        EXPECT_EQ(FreshDifference(markup), "") << text;
    }
}

TEST(MarkupEdit, AnAddedTextMayBePartOfTheDocumentItself) {
    CMarkupSTL markup = At("<r><a/></r>", "r/a");
    // Room for all of it, so that the text is changed in place.
    ASSERT_TRUE(markup.AddElem("b"));
    const std::string_view text = markup.GetDoc();
    ASSERT_TRUE(markup.InsertElem(text.substr(1, 1), text.substr(3, 4)));
    EXPECT_EQ(markup.GetDoc(), "<r><a/><r>&lt;a/&gt;</r>\r\n<b/>\r\n</r>");
    EXPECT_EQ(markup.GetData(), "<a/>");
    ASSERT_TRUE(markup.InsertSubDoc(markup.GetDoc()));
    EXPECT_EQ(Outline(markup), "r(a r(a r b) r b)");
    ASSERT_TRUE(markup.SetAttrib("room", std::string(1000, 'x')));
    ASSERT_TRUE(markup.SetAttrib("room", ""));
    ASSERT_TRUE(markup.FindElem("/r/a"));
    ASSERT_TRUE(markup.InsertElem(std::string_view(markup.GetDoc()).substr(4, 1), "text"));
    EXPECT_TRUE(markup.GetDoc().starts_with("<r><a>text</a>\r\n<a/>")) << "the name alone";
    ASSERT_TRUE(markup.SetAttrib("x", markup.GetDoc()));
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupEdit, AnElementBesideTheRootIsThereUntilTheNextParse) {
    CMarkupSTL markup = At("<a/>", "a");
    ASSERT_TRUE(markup.AddElem("b", "t"));
    EXPECT_EQ(markup.GetDoc(), "<a/><b>t</b>\r\n");
    EXPECT_EQ(Outline(markup), "a b");
    EXPECT_EQ(markup.GetData(), "t");
    ASSERT_TRUE(markup.SetAttrib("x", "1"));
    markup.ResetPos();
    ASSERT_TRUE(markup.FindElem("b"));
    ASSERT_TRUE(markup.RemoveElem());
    EXPECT_EQ(markup.GetTagName(), "a");
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupEdit, AddChildElemAddsAtTheEndOfTheElement) {
    for (const EditCase& change : {
             EditCase{"<p></p>", "p", AddChild("c"), "<p><c/>\r\n</p>", "p"},
             EditCase{"<p>text</p>", "p", AddChild("c"), "<p>text<c/>\r\n</p>", "p"},
             EditCase{"<p><b/></p>", "p", AddChild("c", "x"), "<p><b/><c>x</c>\r\n</p>", "p"},
             EditCase{"<p>\n  <b/>\n</p>", "p", AddChild("c"), "<p>\n  <b/>\n<c/>\r\n</p>", "p"},
             EditCase{"<p></p>", "p", InsertChild("c"), "<p><c/>\r\n</p>", "p"},
             EditCase{"<p>text</p>", "p", InsertChild("c"), "<p><c/>\r\ntext</p>", "p"},
             EditCase{"<p><d/></p>", "p", InsertChild("c"), "<p><c/>\r\n<d/></p>", "p"},
             EditCase{"<p>\n <d/></p>", "p", InsertChild("c"), "<p>\n <c/>\r\n<d/></p>", "p"},
         }) {
        Check(change);
    }
}

TEST(MarkupEdit, ANewChildIsTheCurrentChild) {
    CMarkupSTL markup = At("<p><a/><d/></p>", "p");
    ASSERT_TRUE(markup.FindChildElem("a"));
    ASSERT_TRUE(markup.AddChildElem("b", "1"));
    EXPECT_EQ(markup.GetChildData(), "1");
    ASSERT_TRUE(markup.AddChildElem("c", "2"));
    EXPECT_EQ(markup.GetChildData(), "2");
    ASSERT_TRUE(markup.InsertChildElem("x", "3"));
    EXPECT_EQ(markup.GetDoc(), "<p><a/><b>1</b>\r\n<x>3</x>\r\n<c>2</c>\r\n<d/></p>");
    EXPECT_EQ(FreshDifference(markup), "");
    ASSERT_TRUE(markup.FindChildElem());
    ASSERT_TRUE(markup.IntoElem());
    EXPECT_EQ(markup.GetTagName(), "c");
}

TEST(MarkupEdit, AShortFormIsOpenedForAChild) {
    for (const EditCase& change : {
             EditCase{"<p/>", "p", AddChild("c"), "<p>\r\n<c/>\r\n</p>\r\n", "p"},
             EditCase{"<p/>", "p", InsertChild("c", "x"), "<p>\r\n<c>x</c>\r\n</p>\r\n", "p"},
             EditCase{"<p/>", "p", Inside(Add("c")), "<p>\r\n<c/>\r\n</p>\r\n", "c"},
             EditCase{"<r><p b='1'/><q/></r>", "r/p", AddChild("c"),
                      "<r><p b='1'>\r\n<c/>\r\n</p>\r\n<q/></r>", "p"},
         }) {
        Check(change);
    }
}

TEST(MarkupEdit, ADocumentIsBuiltFromNothing) {
    CMarkupSTL markup;
    ASSERT_TRUE(markup.AddElem("p"));
    ASSERT_TRUE(markup.AddChildElem("c", "1<2"));
    ASSERT_TRUE(markup.AddChildElem("d"));
    EXPECT_EQ(markup.GetDoc(), "<p>\r\n<c>1&lt;2</c>\r\n<d/>\r\n</p>\r\n\r\n");
    ASSERT_TRUE(markup.SetAttrib("x", "\""));
    ASSERT_TRUE(markup.SetChildAttrib("y", "2"));
    EXPECT_EQ(markup.GetAttrib("x"), "\"");
    EXPECT_EQ(markup.GetChildAttrib("y"), "2");
    ASSERT_TRUE(markup.IntoElem());
    ASSERT_TRUE(markup.RemoveElem());
    EXPECT_EQ(markup.GetData(), "1<2");
    EXPECT_EQ(markup.GetDoc(), "<p x=\"&quot;\">\r\n<c>1&lt;2</c>\r\n</p>\r\n\r\n");
}

TEST(MarkupEdit, ATagThatWouldStillBeShortIsNotOpened) {
    // Without its `/>` and with a `>` this tag would end in `/>` again.
    const std::function<bool(CMarkupSTL&)> kEdits[] = {
        AddChild("c"),
        InsertChild("c"),
        Inside(Add("c")),
        [](CMarkupSTL& markup) { return markup.SetData("text"); },
        [](CMarkupSTL& markup) { return markup.IntoElem() && markup.AddNode(kMarkupText, "text"); },
        [](CMarkupSTL& markup) { return markup.IntoElem() && markup.AddSubDoc("<c/>"); },
    };
    for (const auto& edit : kEdits) {
        CMarkupSTL markup = At("<r><p//></r>", "r/p");
        EXPECT_FALSE(edit(markup));
        EXPECT_EQ(markup.GetDoc(), "<r><p//></r>");
        EXPECT_EQ(FreshDifference(markup), "");
    }
}

TEST(MarkupEdit, AnOpenedElementKeepsItsIndex) {
    CMarkupSTL markup = At("<p/>", "p");
    ASSERT_TRUE(markup.AddChildElem("c"));
    EXPECT_EQ(markup.Pos(), 1);
    EXPECT_EQ(markup.PosChild(), 2);
    EXPECT_EQ(EntryAt(markup, 1), (Entry{0, 2, 11, 14, 0, 2, 0}));
    EXPECT_EQ(EntryAt(markup, 2), (Entry{5, 8, 7, 8, 1, 0, 0}));
}

TEST(MarkupEdit, AChildNeedsAnElement) {
    CMarkupSTL markup = Parsed("<p/>");
    const State before = StateOf(markup);
    EXPECT_FALSE(markup.AddChildElem("c"));
    EXPECT_FALSE(markup.InsertChildElem("c"));
    EXPECT_FALSE(markup.RemoveChildElem());
    EXPECT_FALSE(markup.RemoveElem());
    EXPECT_FALSE(markup.RemoveNode());
    EXPECT_EQ(StateOf(markup), before);
    markup.FindElem();
    EXPECT_FALSE(markup.RemoveChildElem()) << "there is no current child";
}

TEST(MarkupEdit, AnElementNeedsAName) {
    CMarkupSTL markup = At("<p/>", "p");
    const State before = StateOf(markup);
    EXPECT_FALSE(markup.AddElem(""));
    EXPECT_FALSE(markup.AddChildElem(nullptr));
    EXPECT_EQ(StateOf(markup), before);
}

TEST(MarkupEdit, ANameIsOneToken) {
    CMarkupSTL markup = At("<r><p/></r>", "r/p");
    const State before = StateOf(markup);
    for (const char* const name :
         {"a b", " a", "a ", "a\t", "a/", "/a", "a>", "<a", "?a", "!a", "a=", "a\\", "'a", "\"a"}) {
        EXPECT_FALSE(markup.AddElem(name)) << name;
        EXPECT_FALSE(markup.InsertElem(name, "text")) << name;
        EXPECT_FALSE(markup.AddChildElem(name)) << name;
        EXPECT_FALSE(markup.InsertChildElem(name)) << name;
        EXPECT_FALSE(markup.AddNode(kMarkupElement, name)) << name;
        EXPECT_EQ(StateOf(markup), before) << name;
    }
    EXPECT_TRUE(markup.AddElem("a'\"[.:-")) << "a quote in its middle is a sign like any other";
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupEdit, RemoveElemAlsoRemovesTheWhiteSpaceAfterIt) {
    const auto Remove = [](CMarkupSTL& markup) { return markup.RemoveElem(); };
    for (const EditCase& change : {
             EditCase{"<r><a/><b/></r>", "r/a", Remove, "<r><b/></r>", ""},
             EditCase{"<r><a/><b/></r>", "r/b", Remove, "<r><a/></r>", "a"},
             EditCase{"<r>\n<a/>\n<b/>\n</r>", "r/b", Remove, "<r>\n<a/>\n</r>", "a"},
             EditCase{"<r><a>x<c/></a> <b/></r>", "r/a", Remove, "<r><b/></r>", ""},
             EditCase{"<r><a/> text<b/></r>", "r/a", Remove, "<r> text<b/></r>", ""},
             EditCase{"<r><a/><b/><c/></r>", "r/c", Remove, "<r><a/><b/></r>", "b"},
             EditCase{"<r><a/></r>", "r/a", Remove, "<r></r>", ""},
         }) {
        Check(change);
    }
}

TEST(MarkupEdit, RemovingTheRootLeavesADocumentWithoutOne) {
    CMarkupSTL markup = At("<!--c--><r><a/></r> \n", "r");
    ASSERT_TRUE(markup.RemoveElem());
    EXPECT_EQ(markup.GetDoc(), "<!--c-->");
    EXPECT_FALSE(markup.IsWellFormed());
    EXPECT_EQ(markup.Pos(), 0);
    ASSERT_TRUE(markup.AddElem("s"));
    EXPECT_EQ(Outline(markup), "s");
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupEdit, RemoveChildElemKeepsTheElement) {
    CMarkupSTL markup = At("<r><a/><b/><c/></r>", "r");
    ASSERT_TRUE(markup.FindChildElem("c"));
    ASSERT_TRUE(markup.RemoveChildElem());
    EXPECT_EQ(markup.GetDoc(), "<r><a/><b/></r>");
    EXPECT_EQ(markup.GetTagName(), "r");
    EXPECT_EQ(markup.PosChild(), 3) << "the sibling before it is the child now";
    ASSERT_TRUE(markup.RemoveChildElem());
    ASSERT_TRUE(markup.RemoveChildElem());
    EXPECT_EQ(markup.PosChild(), 0);
    EXPECT_FALSE(markup.RemoveChildElem());
    EXPECT_EQ(markup.GetDoc(), "<r></r>");
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupEdit, AnEditMovesThePositionsAfterIt) {
    CMarkupSTL markup = At("<r><a/>  <b><c x='1'/></b><d/></r>tail", "r/a");
    ASSERT_TRUE(markup.SetAttrib("y", "2"));
    ASSERT_TRUE(markup.AddElem("n", "new"));
    ASSERT_TRUE(markup.FindElem("b/c"));
    EXPECT_EQ(markup.GetAttrib("x"), "1");
    ASSERT_TRUE(markup.AddElem("m"));
    ASSERT_TRUE(markup.FindElem("/r/d"));
    ASSERT_TRUE(markup.AddChildElem("e"));
    EXPECT_EQ(markup.GetDoc(),
              "<r><a y=\"2\"/>  <n>new</n>\r\n<b><c x='1'/><m/>\r\n</b><d>\r\n<e/>\r\n</d>\r\n"
              "</r>tail");
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupEdit, ARemovalMovesThePositionsAfterIt) {
    CMarkupSTL markup = At("<r><a><x/><y/></a>\n<b><c x='1'/></b></r>", "r/b/c");
    markup.SavePos();
    ASSERT_TRUE(markup.FindElem("/r/a"));
    ASSERT_TRUE(markup.RemoveElem());
    EXPECT_EQ(markup.GetDoc(), "<r><b><c x='1'/></b></r>");
    ASSERT_TRUE(markup.RestorePos());
    EXPECT_EQ(markup.GetAttrib("x"), "1");
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupEdit, AnElementIsAddedBesideANodeThatIsNoElement) {
    const auto At2 = [](int kind) {
        CMarkupSTL markup = At("<r><a/>text<!--c--><b/></r>", "r");
        markup.IntoElem();
        EXPECT_EQ(markup.FindNode(kind), kind);
        return markup;
    };
    CMarkupSTL after = At2(kMarkupComment);
    ASSERT_TRUE(after.AddElem("n"));
    EXPECT_EQ(after.GetDoc(), "<r><a/>text<!--c--><n/>\r\n<b/></r>");
    EXPECT_EQ(after.GetTagName(), "n");
    EXPECT_EQ(FreshDifference(after), "");
    CMarkupSTL inFront = At2(kMarkupComment);
    ASSERT_TRUE(inFront.InsertElem("n"));
    EXPECT_EQ(inFront.GetDoc(), "<r><a/>text<n/>\r\n<!--c--><b/></r>");
    EXPECT_EQ(FreshDifference(inFront), "");
    CMarkupSTL behindBlanks = At("<r><!--c-->\n  <b/></r>", "r");
    behindBlanks.IntoElem();
    ASSERT_EQ(behindBlanks.FindNode(kMarkupComment), kMarkupComment);
    ASSERT_TRUE(behindBlanks.AddElem("n"));
    EXPECT_EQ(behindBlanks.GetDoc(), "<r><!--c-->\n  <n/>\r\n<b/></r>");
    EXPECT_EQ(FreshDifference(behindBlanks), "");
    CMarkupSTL beforeText = At2(kMarkupText);
    ASSERT_TRUE(beforeText.InsertElem("n"));
    EXPECT_EQ(beforeText.GetDoc(), "<r><a/><n/>\r\ntext<!--c--><b/></r>");
    EXPECT_EQ(FreshDifference(beforeText), "");
}

TEST(MarkupEdit, ASmallBufferGrowsToTwoHundredBytes) {
    CMarkupSTL markup;
    ASSERT_TRUE(markup.AddElem("a", "more than fits into a short string"));
    EXPECT_GE(markup.GetDoc().capacity(), 200U);
}

TEST(MarkupEdit, ABigBufferIsNotCopiedForASmallEdit) {
    CMarkupSTL markup = Parsed("<r>" + std::string(1000, 'x') + "<a/></r>");
    ASSERT_TRUE(markup.FindElem("r/a"));
    ASSERT_TRUE(markup.SetAttrib("b", "1"));
    const char* const text = markup.GetDoc().data();
    for (int i = 0; i < 20; ++i)
        ASSERT_TRUE(markup.SetAttrib("b", std::string(static_cast<std::size_t>(i), 'y')));
    EXPECT_EQ(markup.GetDoc().data(), text) << "the first edit left room for half as much again";
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
