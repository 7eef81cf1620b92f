// Content: reading and replacing it, and the references in it.
#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::lyr::gen::markup_test {
namespace {

using namespace std::string_literals;

struct Pair {
    std::string from;
    std::string to;
};

TEST(MarkupData, ContentOfAnElement) {
    const Pair kContents[] = {
        {"<a>text</a>", "text"},
        {"<a></a>", ""},
        {"<a/>", ""},
        {"<a> \n text \t</a>", " \n text \t"},
        {"<a>   </a>", "   "},
        {"<a>1 &lt; 2 &amp;&amp; &quot;x&quot;</a>", "1 < 2 && \"x\""},
        {"<a>text<b/></a>", ""},
        {"<a><b/></a>", ""},
        {"<a><![CDATA[<b>&amp;]]></a>", "<b>&amp;"},
        {"<a> \r\n<![CDATA[x]]> tail</a>", "x"},
        {"<a><![CDATA[]]></a>", ""},
        {"<a><![CDATA[a]]><![CDATA[b]]></a>", "a"},
        {"<a>t<![CDATA[x]]></a>", "t<![CDATA[x]]>"},
        {"<a><![cdata[x&lt;]]></a>", "<![cdata[x<]]>"},
        {"<a><!-- c -->t</a>", "<!-- c -->t"},
        {"<a><?go?></a>", "<?go?>"},
        {"<a>\0</a>"s, "\0"s},
    };
    for (const Pair& content : kContents) {
        CMarkupSTL markup = At(content.from, "a");
        ASSERT_EQ(markup.GetTagName(), "a") << content.from;
        EXPECT_EQ(markup.GetData(), content.to) << content.from;
        CMarkupSTL outer = Parsed("<r>" + content.from + "</r>");
        ASSERT_TRUE(outer.FindChildElem("a")) << content.from;
        EXPECT_EQ(outer.GetChildData(), content.to) << content.from;
    }
}

TEST(MarkupData, WithoutACurrentElementNothingIsRead) {
    CMarkupSTL markup = Parsed("<a>text</a>");
    EXPECT_EQ(markup.GetData(), "");
    EXPECT_EQ(markup.GetChildData(), "");
    markup.FindElem();
    EXPECT_EQ(markup.GetChildData(), "");
}

TEST(MarkupData, References) {
    const Pair kTexts[] = {
        {"", ""},
        {"plain", "plain"},
        {"&lt;&amp;&gt;&apos;&quot;", "<&>'\""},
        {"&#65;", "A"},
        {"&#x41;", "A"},
        {"&#X41;", "&#X41;"},
        {"&#x4a;&#x4A;", "JJ"},
        {"&#0065;", "A"},
        {"&#00065;", "A"},
        {"&#127;", "\x7F"},
        {"&#128;", "\xC2\x80"},
        {"&#2047;", "\xDF\xBF"},
        {"&#2048;", "\xE0\xA0\x80"},
        {"&#x20AC;", "\xE2\x82\xAC"},
        {"&#65535;", "\xEF\xBF\xBF"},
        {"&#x1F600;", "\xEF\x98\x80"}, // cut to 16 bits, not encoded in four bytes
        {"&#65601;", "\xE0\x81\x81"},  // above 2047, so three bytes of what is left
        {"&#xD800;", "\xED\xA0\x80"},
        {"&#0;", "\0"s},
        {"&#;", "&#;"},
        {"&#x;", "&#x;"},
        {"&#zz;", "&#zz;"},
        {"&#xg;", "&#xg;"},
        {"&#65", "&#65"},
        {"&#000065;", "A"}, // the `;` is the seventh byte
        {"&#x000041;", "A"},
        {"&#0000065;", "&#0000065;"}, // no `;` in reach
        {"&#x0000041;", "&#x0000041;"},
        {"&#00000000065;", "&#00000000065;"},
        {"&#65z;", "A"}, // numbers are read as the C library does
        {"&# 65;", "A"},
        {"&#+65;", "A"},
        {"&#x0x41;", "A"},
        {"&foo;", "&foo;"},
        {"&foo;&lt;", "&foo;<"},
        {"&", "&"},
        {"&&lt;", "&<"},
        {"&lt", "&lt"},
        {"&LT;", "&LT;"},
        {"& lt;", "& lt;"},
        {"&amp;lt;", "&lt;"},
        {"&#38;#65;", "&#65;"},
        {"a&\0;"s, "a&\0;"s},
    };
    for (const Pair& text : kTexts) {
        EXPECT_EQ(CMarkupSTL::UnescapeText(text.from), text.to) << text.from;
        EXPECT_EQ(At("<a>" + text.from + "</a>", "a").GetData(), text.to) << text.from;
        EXPECT_EQ(At("<a b=\"" + text.from + "\"/>", "a").GetAttrib("b"), text.to) << text.from;
    }
}

TEST(MarkupData, AReferenceMustFitIntoItsRange) {
    EXPECT_EQ(At("<a>&lt</a>;", "a").GetData(), "&lt");
    EXPECT_EQ(At("<a b='&#65'/>;", "a").GetAttrib("b"), "&#65");
}

TEST(MarkupData, NegativeNumbersAreMasked) {
    EXPECT_EQ(CMarkupSTL::UnescapeText("&#-1;"), "\xEF\xBF\xBF");
    EXPECT_EQ(CMarkupSTL::UnescapeText("&#x-1;"), "\xEF\xBF\xBF");
}

TEST(MarkupData, EscapingForContentAndForAttributes) {
    const struct {
        std::string text, content, attribute;
    } kTexts[] = {
        {"", "", ""},
        {"plain", "plain", "plain"},
        {"<&>'\"", "&lt;&amp;&gt;'\"", "&lt;&amp;&gt;&apos;&quot;"},
        {"&lt;", "&amp;lt;", "&amp;lt;"},
        {"\xC3\xA4\n\t", "\xC3\xA4\n\t", "\xC3\xA4\n\t"},
        {"a\0b"s, "a\0b"s, "a\0b"s},
    };
    for (const auto& text : kTexts) {
        EXPECT_EQ(CMarkupSTL::EscapeText(text.text), text.content);
        EXPECT_EQ(CMarkupSTL::EscapeText(text.text, true), text.attribute);
        EXPECT_EQ(CMarkupSTL::UnescapeText(text.content), text.text);
        EXPECT_EQ(CMarkupSTL::UnescapeText(text.attribute), text.text);
    }
    EXPECT_EQ(CMarkupSTL::EscapeText(nullptr), "");
}

TEST(MarkupData, EveryByteSurvivesEscaping) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(CMarkupSTL::UnescapeText(CMarkupSTL::EscapeText(all, false)), all);
    EXPECT_EQ(CMarkupSTL::UnescapeText(CMarkupSTL::EscapeText(all, true)), all);
}

struct SetCase {
    const char* before;
    const char* text;
    bool asCData;
    const char* after;
};

// Texts are escaped in blocks, which may begin and end anywhere in them.
TEST(MarkupData, EveryByteIsEscapedAtEveryPlace) {
    for (std::size_t length = 1; length < 50; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            const std::string front(at, 'x');
            const std::string after(length - at - 1, 'y');
            EXPECT_EQ(CMarkupSTL::EscapeText(front + "&" + after), front + "&amp;" + after);
            EXPECT_EQ(CMarkupSTL::EscapeText(front + "'" + after), front + "'" + after);
            EXPECT_EQ(CMarkupSTL::EscapeText(front + "'" + after, true), front + "&apos;" + after);
            CMarkupSTL markup;
            markup.AddElem("a", front + "<" + after);
            EXPECT_EQ(markup.GetDoc(), "<a>" + front + "&lt;" + after + "</a>\r\n");
        }
    }
}

TEST(MarkupData, SetDataReplacesTheContentBetweenTheTags) {
    for (const SetCase& change : {
             SetCase{"<a>old</a>", "new text", false, "<a>new text</a>"},
             SetCase{"<a>old</a>", "", false, "<a></a>"},
             SetCase{"<a></a>", "x", false, "<a>x</a>"},
             SetCase{"<a>old</a>", "<b>&", false, "<a>&lt;b&gt;&amp;</a>"},
             SetCase{"<a>old</a>", "'\"", false, "<a>'\"</a>"},
             SetCase{"<a>old</a>", "<b>&", true, "<a><![CDATA[<b>&]]></a>"},
             SetCase{"<a><![CDATA[x]]></a>", "y", false, "<a>y</a>"},
             SetCase{"<a>old</a>", "a]]>b", true, "<a>a]]&gt;b</a>"},
             SetCase{"<a/>", "x", false, "<a>x</a>"},
             SetCase{"<a b='1' />", "x", false, "<a b='1' >x</a>"},
             SetCase{"<a/>", "x", true, "<a><![CDATA[x]]></a>"},
             SetCase{"<a><!-- c --></a>", "x", false, "<a>x</a>"},
             SetCase{"<!--c--><a>old</a>tail", "new", false, "<!--c--><a>new</a>tail"},
         }) {
        CMarkupSTL markup = At(change.before, "a");
        ASSERT_TRUE(markup.SetData(change.text, change.asCData)) << change.before;
        EXPECT_EQ(markup.GetDoc(), change.after);
        EXPECT_EQ(markup.GetData(), change.text);
        EXPECT_EQ(FreshDifference(markup), "") << change.before;
    }
}

TEST(MarkupData, AnElementWithChildrenRefusesContent) {
    CMarkupSTL markup = At("<a>t<b/></a>", "a");
    const State before = StateOf(markup);
    EXPECT_FALSE(markup.SetData("x"));
    EXPECT_FALSE(markup.SetData("x", true));
    EXPECT_FALSE(markup.FindSetData("/a", "x"));
    EXPECT_EQ(StateOf(markup), before);
    CMarkupSTL elsewhere = At("<r>text<a><b/></a></r>", "r");
    elsewhere.IntoElem();
    ASSERT_EQ(elsewhere.FindNode(), kMarkupText);
    const State onText = StateOf(elsewhere);
    EXPECT_FALSE(elsewhere.FindSetData("a", "x")) << "what is found does not become the current element";
    EXPECT_EQ(StateOf(elsewhere), onText);
}

TEST(MarkupData, WithoutACurrentNodeNothingIsReplaced) {
    CMarkupSTL markup = Parsed("<a>t</a>");
    const State before = StateOf(markup);
    EXPECT_FALSE(markup.SetData("x"));
    EXPECT_FALSE(markup.FindSetData("b", "x"));
    EXPECT_EQ(StateOf(markup), before);
    EXPECT_FALSE(CMarkupSTL().SetData("x"));
}

TEST(MarkupData, FindSetDataMovesTheCursor) {
    CMarkupSTL markup = Parsed("<r><a>1</a><b/></r>");
    EXPECT_TRUE(markup.FindSetData("r/b", "2", true));
    EXPECT_EQ(markup.GetTagName(), "b");
    EXPECT_EQ(markup.GetDoc(), "<r><a>1</a><b><![CDATA[2]]></b></r>");
    EXPECT_EQ(FreshDifference(markup), "");
}

// The node of `kind` in `text`, its content replaced.
CMarkupSTL Rewritten(const char* text, int kind, const char* content, bool asCData, bool isDone) {
    CMarkupSTL markup = At(text, "r");
    markup.IntoElem();
    EXPECT_EQ(markup.FindNode(kind), kind) << text;
    const State before = StateOf(markup);
    EXPECT_EQ(markup.SetData(content, asCData), isDone) << text;
    if (!isDone) {
        EXPECT_EQ(StateOf(markup), before) << text;
    }
    EXPECT_EQ(FreshDifference(markup), "") << text;
    return markup;
}

TEST(MarkupData, SetDataKeepsTheFencesOfANode) {
    const struct {
        const char* before;
        int kind;
        const char* content;
        const char* after;
    } kChanges[] = {
        {"<r>old<a/></r>", kMarkupText, "n<w", "<r>n&lt;w<a/></r>"},
        {"<r><!--old--><a/></r>", kMarkupComment, "new", "<r><!--new--><a/></r>"},
        {"<r><?old x?><a/></r>", kMarkupProcessingInstruction, "new y", "<r><?new y?><a/></r>"},
        {"<r><![CDATA[old]]><a/></r>", kMarkupCData, "n<w&", "<r><![CDATA[n<w&]]><a/></r>"},
    };
    for (const auto& change : kChanges) {
        CMarkupSTL markup = Rewritten(change.before, change.kind, change.content, false, true);
        EXPECT_EQ(markup.GetDoc(), change.after);
        EXPECT_EQ(markup.GetData(), change.content);
        EXPECT_EQ(markup.FindNode(), kMarkupElement) << change.before;
    }
}

TEST(MarkupData, ADocumentTypeTakesItsContentWithFencesOrWithout) {
    const char* const kText = "<r><!D a><a/></r>";
    for (const char* const content : {"D b [ <x> ]", "<!D b [ <x> ]>"}) {
        const CMarkupSTL markup = Rewritten(kText, kMarkupDocumentType, content, false, true);
        EXPECT_EQ(markup.GetDoc(), "<r><!D b [ <x> ]><a/></r>");
        EXPECT_EQ(markup.GetData(), "<!D b [ <x> ]>");
    }
    Rewritten(kText, kMarkupDocumentType, "D b [", false, false);
    Rewritten(kText, kMarkupDocumentType, "D><b/", false, false);
}

TEST(MarkupData, ATextMayBecomeWhiteSpaceAndBack) {
    CMarkupSTL markup = Rewritten("<r>old<a/></r>", kMarkupText, " \n", false, true);
    EXPECT_EQ(markup.NodeType(), kMarkupWhiteSpace);
    EXPECT_TRUE(markup.SetData("new"));
    EXPECT_EQ(markup.NodeType(), kMarkupText);
    EXPECT_EQ(markup.GetDoc(), "<r>new<a/></r>");
    EXPECT_TRUE(markup.SetData("")) << "a node without any text is none";
    EXPECT_EQ(markup.GetDoc(), "<r><a/></r>");
    EXPECT_EQ(markup.NodeType(), kMarkupNone);
    EXPECT_EQ(markup.FindNode(), kMarkupElement);
}

TEST(MarkupData, ANodeRefusesTheEndOfItsFence) {
    Rewritten("<r><!--old--><a/></r>", kMarkupComment, "a-->b", false, false);
    Rewritten("<r><?old?><a/></r>", kMarkupProcessingInstruction, "a?>b", false, false);
}

TEST(MarkupData, ASectionRefusesTheEndOfItsFence) {
    Rewritten("<r><![CDATA[old]]><a/></r>", kMarkupCData, "a]]>b", false, false);
    Rewritten("<r><![CDATA[old]]><a/></r>", kMarkupCData, "a]]>b", true, false);
}

TEST(MarkupData, StaticHelpersAreThoseOfTheRoom) {
    const std::string lines = CMarkupSTL::EncodeBase64("Man", 3);
    EXPECT_EQ(lines.substr(0, 6), "\r\nTWFu");
    char bytes[8] = {};
    EXPECT_EQ(CMarkupSTL::DecodeBase64("TWFu", bytes, sizeof bytes), 3u);
    EXPECT_STREQ(bytes, "Man");
    EXPECT_EQ(CMarkupSTL::EncodeUtf8(nullptr, u"\u00E4", 0), 2);
    EXPECT_EQ(CMarkupSTL::DecodeUtf8(nullptr, "\xC3\xA4", -1), 1);
}

bool LiesIn(std::string_view view, const std::string& text) {
    return view.data() >= text.data() && view.data() + view.size() <= text.data() + text.size();
}

TEST(MarkupData, AViewIsInTheDocumentUnlessReferencesWereReplaced) {
    CMarkupSTL markup = At("<a b='plain' c='&lt;x&gt;'>text</a>", "a");
    std::string room;
    EXPECT_EQ(markup.ViewData(room), "text");
    EXPECT_TRUE(LiesIn(markup.ViewData(room), markup.GetDoc()));
    EXPECT_EQ(markup.ViewAttrib("b", room), "plain");
    EXPECT_TRUE(LiesIn(markup.ViewAttrib("b", room), markup.GetDoc()));
    EXPECT_EQ(markup.ViewAttrib("c", room), "<x>");
    EXPECT_TRUE(LiesIn(markup.ViewAttrib("c", room), room));
    EXPECT_EQ(markup.ViewAttrib("d", room), "");
    ASSERT_TRUE(markup.SetData("1 & 2"));
    EXPECT_EQ(markup.ViewData(room), "1 & 2");
    EXPECT_TRUE(LiesIn(markup.ViewData(room), room));
    ASSERT_TRUE(markup.IntoElem());
    ASSERT_EQ(markup.FindNode(kMarkupText), kMarkupText);
    EXPECT_EQ(markup.ViewData(room), "1 & 2");
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
