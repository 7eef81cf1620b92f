// Nodes of every kind: walking over them, their names, their content.
#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace brixen::lyr::gen::markup_test {
namespace {

constexpr char kEveryKind[] = "<?xml version=\"1.0\"?>\n<!DOCTYPE r [ <!ELEMENT r ANY> ]><!--first-->"
                              "<r> t&amp;x <a>in<b/></a><![CDATA[<&>]]><?go now?><!-- c --></r>\n<!--last-->";

// Kind and name of each node that a walk meets under the current parent, as "16:xml 4:#text".
std::string Nodes(CMarkupSTL& markup, int mask = 0) {
    std::string nodes;
    for (int kind = markup.FindNode(mask); kind != 0; kind = markup.FindNode(mask)) {
        EXPECT_EQ(markup.NodeType(), kind);
        nodes += (nodes.empty() ? "" : " ") + std::to_string(kind) + ":" + markup.GetTagName();
    }
    return nodes;
}

CMarkupSTL Inside(std::string_view text) {
    CMarkupSTL markup = Parsed(text);
    markup.FindElem();
    markup.IntoElem();
    return markup;
}

TEST(MarkupNode, AWalkMeetsEveryKind) {
    CMarkupSTL markup = Parsed(kEveryKind);
    EXPECT_EQ(Nodes(markup), "16:xml 4:#text 64:DOCTYPE 32:#comment 1:r 4:#text 32:#comment");
    ASSERT_TRUE(markup.FindElem("/r"));
    ASSERT_TRUE(markup.IntoElem());
    EXPECT_EQ(Nodes(markup), "2:#text 1:a 8:#cdata-section 16:go 32:#comment");
}

TEST(MarkupNode, AMaskSelectsKinds) {
    CMarkupSTL markup = Parsed(kEveryKind);
    EXPECT_EQ(Nodes(markup, kMarkupComment | kMarkupProcessingInstruction), "16:xml 32:#comment 32:#comment");
    markup.ResetPos();
    EXPECT_EQ(Nodes(markup, kMarkupDocumentType), "64:DOCTYPE");
    markup.ResetPos();
    EXPECT_EQ(Nodes(markup, kMarkupElement), "1:r");
    ASSERT_TRUE(markup.FindElem("/r"));
    ASSERT_TRUE(markup.IntoElem());
    EXPECT_EQ(Nodes(markup, kMarkupText | kMarkupCData), "2:#text 8:#cdata-section");
}

TEST(MarkupNode, ContentIsTheTextBetweenTheFences) {
    CMarkupSTL markup = Parsed(kEveryKind);
    const struct {
        int kind;
        const char* content;
    } kOutside[] = {{16, "xml version=\"1.0\""},
                    {4, "\n"},
                    {64, "<!DOCTYPE r [ <!ELEMENT r ANY> ]>"},
                    {32, "first"},
                    {1, ""},
                    {4, "\n"},
                    {32, "last"}},
      kInside[] = {{2, " t&x "}, {1, ""}, {8, "<&>"}, {16, "go now"}, {32, " c "}};
    for (const auto& node : kOutside) {
        EXPECT_EQ(markup.FindNode(), node.kind);
        EXPECT_EQ(markup.GetData(), node.content);
    }
    markup.FindElem("/r");
    markup.IntoElem();
    for (const auto& node : kInside) {
        EXPECT_EQ(markup.FindNode(), node.kind);
        EXPECT_EQ(markup.GetData(), node.content);
    }
}

TEST(MarkupNode, OffsetAndLengthAreThePlaceOfANode) {
    CMarkupSTL markup = Inside("<r>text<!--c--><a/></r>");
    ASSERT_EQ(markup.FindNode(), kMarkupText);
    EXPECT_EQ(markup.NodeOffset(), 3);
    EXPECT_EQ(markup.NodeLength(), 4);
    ASSERT_EQ(markup.FindNode(), kMarkupComment);
    EXPECT_EQ(markup.NodeOffset(), 7);
    EXPECT_EQ(markup.NodeLength(), 8);
    ASSERT_EQ(markup.FindNode(), kMarkupElement);
    EXPECT_EQ(markup.NodeLength(), 0);
}

TEST(MarkupNode, TheEndOfAWalkLeavesTheCursorOnTheLastNode) {
    CMarkupSTL markup = Inside("<r><a/><!--c--></r>");
    EXPECT_EQ(Nodes(markup), "1:a 32:#comment");
    const State last = StateOf(markup);
    EXPECT_EQ(markup.FindNode(), 0);
    EXPECT_EQ(StateOf(markup), last);
    EXPECT_EQ(markup.GetData(), "c");
}

TEST(MarkupNode, AKindThatIsNotFoundLeavesTheCursor) {
    CMarkupSTL markup = Inside("<r><a/>text<b/></r>");
    ASSERT_EQ(markup.FindNode(), kMarkupElement);
    const State before = StateOf(markup);
    EXPECT_EQ(markup.FindNode(kMarkupComment), 0);
    EXPECT_EQ(StateOf(markup), before);
}

TEST(MarkupNode, ElementsAreSteppedOverWhole) {
    CMarkupSTL markup = Inside("<r><a><!--in--><b/></a><!--out--></r>");
    EXPECT_EQ(markup.FindNode(kMarkupComment), kMarkupComment);
    EXPECT_EQ(markup.GetData(), "out");
}

TEST(MarkupNode, AnElementAfterANodeIsFound) {
    CMarkupSTL markup = Inside("<r><a/>text<b/><!--c--><d/></r>");
    ASSERT_EQ(markup.FindNode(kMarkupText), kMarkupText);
    ASSERT_TRUE(markup.FindElem());
    EXPECT_EQ(markup.GetTagName(), "b");
    ASSERT_EQ(markup.FindNode(kMarkupComment), kMarkupComment);
    ASSERT_TRUE(markup.FindElem());
    EXPECT_EQ(markup.GetTagName(), "d");
}

TEST(MarkupNode, AnEmptyElementHasNoNodes) {
    for (const char* const text : {"<r/>", "<r></r>", "<r b='c'/>tail"}) {
        CMarkupSTL markup = Inside(text);
        EXPECT_EQ(markup.FindNode(), 0) << text;
    }
}

TEST(MarkupNode, WhiteSpaceAndTextAreOneNodeUpToTheNextTag) {
    CMarkupSTL markup = Inside("<r> \t\r\n<a/> x <b/>y\n</r>");
    EXPECT_EQ(Nodes(markup), "4:#text 1:a 2:#text 1:b 2:#text");
}

TEST(MarkupNode, MarkupThatIsNotInTheTableEndsAWalk) {
    CMarkupSTL markup = Parsed("<a/> <b/><!--c-->");
    EXPECT_EQ(Nodes(markup), "1:a 4:#text");
    CMarkupSTL broken = Parsed("text<a>");
    ASSERT_FALSE(broken.IsWellFormed());
    EXPECT_EQ(Nodes(broken), "2:#text");
    CMarkupSTL open = Parsed("<a/><!-- open");
    EXPECT_EQ(Nodes(open), "1:a");
    EXPECT_EQ(Parsed("").FindNode(), 0);
}

// Such nodes only occur beside the root, where the text is not parsed.
TEST(MarkupNode, ANodeThatWouldRunOverTheNextElementIsNone) {
    const struct {
        const char* open;
        int closing; // the kind of a node that holds the missing end
        const char* content;
    } kCases[] = {{"<!--", kMarkupComment, "c"},
                  {"<?x", kMarkupProcessingInstruction, "go"},
                  {"<![", kMarkupCData, "c"},
                  {"<!D [", kMarkupComment, "]"},
                  {"<!D '", kMarkupComment, "'"}};
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.open);
        CMarkupSTL markup = Parsed("<a/>" + std::string(one.open));
        ASSERT_TRUE(markup.AddElem("b"));
        ASSERT_TRUE(markup.AddNode(one.closing, one.content));
        ASSERT_TRUE(markup.FindElem("/a"));
        const State before = StateOf(markup);
        EXPECT_EQ(markup.FindNode(), 0);
        EXPECT_EQ(StateOf(markup), before);
        ASSERT_TRUE(markup.FindElem());
        EXPECT_EQ(markup.GetTagName(), "b");
        EXPECT_EQ(markup.FindNode(one.closing), one.closing) << "a whole node after the element";
    }
}

TEST(MarkupNode, AnUnclosedNodeBesideTheRootIsNotRemoved) {
    CMarkupSTL markup = Parsed("<a/><!--");
    ASSERT_TRUE(markup.AddElem("b"));
    ASSERT_TRUE(markup.AddNode(kMarkupComment, "c"));
    markup.ResetPos();
    EXPECT_EQ(markup.FindNode(kMarkupComment), 0);
    EXPECT_FALSE(markup.RemoveNode());
    EXPECT_TRUE(markup.FindElem());
    EXPECT_EQ(markup.GetTagName(), "a");
    EXPECT_EQ(markup.GetDoc(), "<a/><!--<b/>\r\n<!--c-->\r\n");
}

TEST(MarkupNode, OverlappingFencesHoldNothing) {
    for (const char* const node : {"<!-->", "<!--->", "<!---->", "<![]]>", "<![CDATA[]]>", "<![x]]>"}) {
        CMarkupSTL markup = Inside("<r>" + std::string(node) + "</r>");
        ASSERT_TRUE(markup.IsWellFormed()) << node;
        EXPECT_NE(markup.FindNode(kMarkupComment | kMarkupCData), 0) << node;
        EXPECT_EQ(markup.NodeLength(), static_cast<std::int32_t>(std::string(node).size())) << node;
        EXPECT_EQ(markup.GetData(), "") << node;
    }
}

TEST(MarkupNode, NamesOfElementsAreTheirTags) {
    CMarkupSTL markup = Parsed("<\n a:b.c-d\tx='1'><e/></ a:b.c-d>");
    EXPECT_EQ(markup.GetTagName(), "");
    markup.FindElem();
    EXPECT_EQ(markup.GetTagName(), "a:b.c-d");
    markup.IntoElem();
    EXPECT_EQ(markup.GetTagName(), "");
}

TEST(MarkupNode, AnInstructionHasAttributes) {
    CMarkupSTL markup = Parsed("<?xml version=\"1.0\" encoding='UTF-8'?><r/>");
    ASSERT_EQ(markup.FindNode(), kMarkupProcessingInstruction);
    EXPECT_EQ(markup.GetAttrib("version"), "1.0");
    EXPECT_EQ(markup.GetAttrib("encoding"), "UTF-8");
    EXPECT_EQ(markup.GetAttrib("standalone"), "");
    EXPECT_EQ(markup.GetAttribName(0), "version");
    EXPECT_EQ(markup.GetAttribName(1), "encoding");
    EXPECT_EQ(markup.GetAttribName(2), "");
}

TEST(MarkupNode, OtherNodesHaveNoAttributes) {
    CMarkupSTL markup = Inside("<r>a='1'<!--x a='1'--></r>");
    ASSERT_EQ(markup.FindNode(), kMarkupText);
    EXPECT_EQ(markup.GetAttrib("a"), "");
    ASSERT_EQ(markup.FindNode(), kMarkupComment);
    EXPECT_EQ(markup.GetAttrib("a"), "");
}

TEST(MarkupNode, NavigationLeavesTheNode) {
    const auto OnText = [] {
        CMarkupSTL markup = Inside("<r>text<a/></r>");
        markup.FindNode();
        return markup;
    };
    const auto IsOffNode = [](const CMarkupSTL& markup) {
        return markup.NodeOffset() == 0 && markup.NodeLength() == 0;
    };
    CMarkupSTL found = OnText();
    ASSERT_TRUE(found.FindElem());
    EXPECT_TRUE(IsOffNode(found));
    CMarkupSTL out = OnText();
    ASSERT_TRUE(out.OutOfElem());
    EXPECT_TRUE(IsOffNode(out));
    EXPECT_EQ(out.NodeType(), kMarkupElement);
    CMarkupSTL reset = OnText();
    reset.ResetPos();
    EXPECT_TRUE(IsOffNode(reset));
    EXPECT_EQ(reset.NodeType(), kMarkupNone);
    CMarkupSTL into = OnText();
    EXPECT_FALSE(into.IntoElem()) << "a text has no inside";
    EXPECT_EQ(into.GetData(), "text") << "what fails leaves the node too";
    EXPECT_FALSE(into.FindElem("x"));
    EXPECT_EQ(into.GetData(), "text");
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
