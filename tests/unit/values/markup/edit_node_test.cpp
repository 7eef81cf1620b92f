// Adding and removing nodes of every kind, and whole pieces of markup.
#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::lyr::gen::markup_test {
namespace {

struct NodeCase {
    int kind;
    const char* text;
    const char* written;
};

constexpr NodeCase kNodes[] = {
    {kMarkupElement, "e", "<e/>\r\n"},
    {kMarkupText, "1 < 2", "1 &lt; 2"},
    {kMarkupWhiteSpace, " \t ", " \t "},
    {kMarkupCData, "<x>&", "<![CDATA[<x>&]]>"},
    {kMarkupProcessingInstruction, "go now", "<?go now?>\r\n"},
    {kMarkupComment, " c ", "<!-- c -->\r\n"},
};

TEST(MarkupEditNode, NodesOfEveryKindAreWrittenInTheirFences) {
    for (const NodeCase& node : kNodes) {
        SCOPED_TRACE(node.written);
        CMarkupSTL markup = At("<r><a/><b/></r>", "r/a");
        ASSERT_TRUE(markup.AddNode(node.kind, node.text));
        EXPECT_EQ(markup.GetDoc(), "<r><a/>" + std::string(node.written) + "<b/></r>");
        EXPECT_EQ(markup.NodeType(), node.kind);
        if (node.kind != kMarkupElement) {
            EXPECT_EQ(markup.GetData(), node.text);
        }
        EXPECT_EQ(FreshDifference(markup), "");
        ASSERT_TRUE(markup.FindElem());
        EXPECT_EQ(markup.GetTagName(), "b");

        CMarkupSTL inFront = At("<r><a/><b/></r>", "r/b");
        ASSERT_TRUE(inFront.InsertNode(node.kind, node.text));
        EXPECT_EQ(inFront.GetDoc(), markup.GetDoc());
        EXPECT_EQ(inFront.NodeType(), node.kind);
        EXPECT_EQ(FreshDifference(inFront), "");
    }
}

TEST(MarkupEditNode, ATextHasTheKindOfItsBytes) {
    CMarkupSTL markup = At("<r><a/><b/></r>", "r/a");
    ASSERT_TRUE(markup.AddNode(kMarkupText, " \n"));
    EXPECT_EQ(markup.NodeType(), kMarkupWhiteSpace);
    ASSERT_TRUE(markup.FindElem("/r/b"));
    ASSERT_TRUE(markup.AddNode(kMarkupWhiteSpace, "x"));
    EXPECT_EQ(markup.NodeType(), kMarkupText);
    EXPECT_EQ(markup.GetDoc(), "<r><a/> \n<b/>x</r>");
}

TEST(MarkupEditNode, WithoutACurrentNodeNodesAreAddedAtTheEndsOfTheParent) {
    for (const NodeCase& node : kNodes) {
        SCOPED_TRACE(node.written);
        CMarkupSTL atEnd = At("<r>x<a/></r>", "r");
        atEnd.IntoElem();
        ASSERT_TRUE(atEnd.AddNode(node.kind, node.text));
        EXPECT_EQ(atEnd.GetDoc(), "<r>x<a/>" + std::string(node.written) + "</r>");
        EXPECT_EQ(FreshDifference(atEnd), "");
        CMarkupSTL atStart = At("<r><a/>x</r>", "r");
        atStart.IntoElem();
        ASSERT_TRUE(atStart.InsertNode(node.kind, node.text));
        EXPECT_EQ(atStart.GetDoc(), "<r>" + std::string(node.written) + "<a/>x</r>");
        EXPECT_EQ(FreshDifference(atStart), "");
    }
}

TEST(MarkupEditNode, AProloguePrecedesTheRoot) {
    CMarkupSTL markup = Parsed("<r/>");
    ASSERT_TRUE(markup.InsertNode(kMarkupProcessingInstruction, "xml version=\"1.0\""));
    EXPECT_EQ(markup.GetDoc(), "<?xml version=\"1.0\"?>\r\n<r/>");
    EXPECT_EQ(markup.GetAttrib("version"), "1.0");
    EXPECT_EQ(FreshDifference(markup), "");
    ASSERT_TRUE(markup.AddNode(kMarkupComment, "c"));
    EXPECT_EQ(FreshDifference(markup), "");
    EXPECT_EQ(Outline(markup), "r");
}

TEST(MarkupEditNode, ADocumentTypeCanBeAdded) {
    CMarkupSTL markup = Parsed("<r/>");
    ASSERT_TRUE(markup.InsertNode(kMarkupDocumentType, "DOCTYPE r"));
    EXPECT_EQ(markup.NodeType(), kMarkupDocumentType);
    EXPECT_EQ(markup.GetTagName(), "DOCTYPE");
    EXPECT_EQ(markup.GetDoc(), "<!DOCTYPE r>\r\n<r/>");
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupEditNode, OtherKindsAreRefused) {
    CMarkupSTL markup = At("<r><a/></r>", "r/a");
    const State before = StateOf(markup);
    for (const int kind : {0, 3, 5, 128, -1, 256, 66}) {
        EXPECT_FALSE(markup.AddNode(kind, "x")) << kind;
        EXPECT_FALSE(markup.InsertNode(kind, "x")) << kind;
    }
    EXPECT_EQ(StateOf(markup), before);
}

TEST(MarkupEditNode, ANodeOpensAShortForm) {
    CMarkupSTL markup = At("<r/>", "r");
    markup.IntoElem();
    ASSERT_TRUE(markup.AddNode(kMarkupText, "text"));
    EXPECT_EQ(FreshDifference(markup), "");
    EXPECT_EQ(markup.GetData(), "text");
    EXPECT_NE(markup.GetDoc().find("text</r>"), std::string::npos) << markup.GetDoc();
}

TEST(MarkupEditNode, RemoveNodeRemovesAnyKind) {
    const struct {
        const char* before;
        int kind;
        const char* after;
    } kRemovals[] = {
        {"<r><a/>text<b/></r>", kMarkupText, "<r><a/><b/></r>"},
        {"<r><a/><!--c--><b/></r>", kMarkupComment, "<r><a/><b/></r>"},
        {"<r><a/><?go?><b/></r>", kMarkupProcessingInstruction, "<r><a/><b/></r>"},
        {"<r><a/><![CDATA[x]]><b/></r>", kMarkupCData, "<r><a/><b/></r>"},
        {"<r><a/> <b/></r>", kMarkupWhiteSpace, "<r><a/><b/></r>"},
        {"<r><a/><b/></r>", kMarkupElement, "<r><b/></r>"},
    };
    for (const auto& removal : kRemovals) {
        CMarkupSTL markup = At(removal.before, "r");
        markup.IntoElem();
        ASSERT_EQ(markup.FindNode(removal.kind), removal.kind) << removal.before;
        ASSERT_TRUE(markup.RemoveNode()) << removal.before;
        EXPECT_EQ(markup.GetDoc(), removal.after);
        EXPECT_EQ(FreshDifference(markup), "") << removal.before;
        EXPECT_EQ(markup.NodeLength(), 0);
        EXPECT_EQ(markup.GetTagName(), removal.kind == kMarkupElement ? "" : "a")
            << "the cursor is before it";
        ASSERT_EQ(markup.FindNode(), kMarkupElement);
        EXPECT_EQ(markup.GetTagName(), "b");
    }
}

TEST(MarkupEditNode, RemoveElemIsRefusedOnANode) {
    CMarkupSTL markup = At("<r><a/>text<b/></r>", "r");
    markup.IntoElem();
    ASSERT_EQ(markup.FindNode(kMarkupText), kMarkupText);
    const State before = StateOf(markup);
    EXPECT_FALSE(markup.RemoveElem()) << "the element before the text is not the current node";
    EXPECT_FALSE(markup.RemoveChildElem());
    EXPECT_EQ(StateOf(markup), before);
}

TEST(MarkupEditNode, ASubDocumentIsAddedAsItIs) {
    CMarkupSTL after = At("<r><a/><b/></r>", "r/a");
    ASSERT_TRUE(after.AddSubDoc("<n x='1'><m/>t</n>"));
    EXPECT_EQ(after.GetDoc(), "<r><a/><n x='1'><m/>t</n><b/></r>");
    EXPECT_EQ(after.GetTagName(), "n");
    EXPECT_EQ(FreshDifference(after), "");
    CMarkupSTL inFront = At("<r><a/><b/></r>", "r/b");
    ASSERT_TRUE(inFront.InsertSubDoc("<n/>"));
    EXPECT_EQ(inFront.GetDoc(), "<r><a/><n/><b/></r>");
    EXPECT_EQ(inFront.GetTagName(), "n");
    EXPECT_EQ(FreshDifference(inFront), "");
    CMarkupSTL fresh;
    ASSERT_TRUE(fresh.AddSubDoc("<n><m/></n>"));
    EXPECT_EQ(fresh.GetDoc(), "<n><m/></n>");
    EXPECT_EQ(Outline(fresh), "n(m)");
    CMarkupSTL atEnd = At("<r>\n<a/>\n</r>", "r");
    atEnd.IntoElem();
    ASSERT_TRUE(atEnd.AddSubDoc("<n/>"));
    EXPECT_EQ(atEnd.GetDoc(), "<r>\n<a/>\n<n/></r>");
    EXPECT_EQ(FreshDifference(atEnd), "");
}

TEST(MarkupEditNode, ASubDocumentOpensAShortForm) {
    CMarkupSTL markup = At("<r><p/></r>", "r/p");
    markup.IntoElem();
    ASSERT_TRUE(markup.AddSubDoc("<n/>"));
    EXPECT_EQ(Outline(markup), "r(p(n))");
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupEditNode, APieceThatIsNotOneWholeElementIsRefused) {
    for (const char* const piece :
         {"", " ", "text", "<n", "<n>", "<n></m>", "</r>", "<n/></r>", "<n></n></r><r>", "<n/><m/>",
          "<!--c-->", "<!-- <n/>", "</r><r>", "<n></n", "<n x='>"}) {
        CMarkupSTL markup = At("<r><a/><b/></r>", "r/a");
        const State before = StateOf(markup);
        EXPECT_FALSE(markup.AddSubDoc(piece)) << piece;
        EXPECT_EQ(StateOf(markup), before) << piece;
        EXPECT_FALSE(markup.InsertSubDoc(piece)) << piece;
        EXPECT_EQ(StateOf(markup), before) << piece;
    }
}

TEST(MarkupEditNode, ARefusedPieceLeavesAShortFormClosed) {
    CMarkupSTL markup = At("<r/>", "r");
    markup.IntoElem();
    const State before = StateOf(markup);
    EXPECT_FALSE(markup.AddSubDoc("<n>"));
    EXPECT_EQ(StateOf(markup), before);
}

TEST(MarkupEditNode, ACurrentNodeMovesWithAnEditBeforeIt) {
    CMarkupSTL markup = At("<r><a/>text<b/></r>", "r/a");
    ASSERT_EQ(markup.FindNode(), kMarkupText);
    EXPECT_FALSE(markup.SetAttrib("x", "1")) << "a text has no attributes";
    EXPECT_EQ(markup.GetData(), "text");
    ASSERT_TRUE(markup.AddChildElem("c", "1"));
    EXPECT_EQ(markup.GetDoc(), "<r><a>\r\n<c>1</c>\r\n</a>\r\ntext<b/></r>");
    EXPECT_EQ(markup.GetData(), "text");
    ASSERT_TRUE(markup.SetChildAttrib("x", "1"));
    EXPECT_EQ(markup.GetData(), "text");
    ASSERT_TRUE(markup.RemoveChildElem());
    EXPECT_EQ(markup.GetData(), "text");
    EXPECT_EQ(markup.FindNode(), kMarkupElement);
    EXPECT_EQ(markup.GetTagName(), "b");
    EXPECT_EQ(FreshDifference(markup), "");
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
