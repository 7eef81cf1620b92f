#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace brixen::lyr::gen::markup_test {
namespace {

using namespace std::string_literals;

struct Document {
    std::string text;
    std::string outline;
};

TEST(MarkupParse, TagsThatNestAreATree) {
    const Document kDocuments[] = {
        {"<a/>", "a"},
        {"<a></a>", "a"},
        {"<a>text</a>", "a"},
        {"<a><b/></a>", "a(b)"},
        {"<a><b/><c></c><d/></a>", "a(b c d)"},
        {"<a><b><c/></b><d/></a>", "a(b(c) d)"},
        {"<a><b><c/></b></a>", "a(b(c))"},
        {" \r\n\t<a>\n  <b/>\n</a>\n", "a(b)"},
        {"text before <a/>", "a"},
        {"<a x=\"1\" y='2'><b x='/'/></a>", "a(b)"},
        {"<a\n x=\"1\"\n></a\n>", "a"},
        {"< a >< / a >", "a"},
        {"<a></a trailing words>", "a"},
        {"<a b=1/>", "a"},
        {"<?xml version=\"1.0\"?><a/>", "a"},
        {"<!-- <x> --><a/>", "a"},
        {"<!-- a --><!-- b --><a><!-- <c> --><b/><!-- - -- > --></a>", "a(b)"},
        {"<a><![CDATA[<b></c>]]></a>", "a"},
        {"<a><?php <b> ?><c/></a>", "a(c)"},
        {"<!DOCTYPE a><a/>", "a"},
        {"<!DOCTYPE a [ <!ELEMENT a (b)> <!ENTITY x '>]'> ]><a/>", "a"},
        {"<a:b-c.d><\xC3\xA4/></a:b-c.d>", "a:b-c.d(\xC3\xA4)"},
        {"<a><a><a/></a></a>", "a(a(a))"},
        {"<a>\0<b/>\0</a>"s, "a(b)"},
    };
    for (const Document& document : kDocuments) {
        const CMarkupSTL markup = Parsed(document.text);
        EXPECT_TRUE(markup.IsWellFormed()) << document.text;
        EXPECT_EQ(Outline(markup), document.outline) << document.text;
        EXPECT_EQ(markup.GetError(), "") << document.text;
        EXPECT_EQ(markup.GetDoc(), document.text);
    }
}

TEST(MarkupParse, EverySortOfFailureHasItsMessage) {
    const struct {
        const char* text;
        const char* message;
    } kFailures[] = {
        {"text", "Element tag not found"},
        {" ", "Element tag not found"},
        {"<!-- only -->", "Element tag not found"},
        {"<?xml version='1.0'?>\n", "Element tag not found"},
        {"<", "Abrupt end within tag"},
        {"<  ", "Abrupt end within tag"},
        {"<a><", "Abrupt end within tag"},
        {"<\"a\"/>", "Tag starts with quote"},
        {"<'a'/>", "Tag starts with quote"},
        {"<a>< \"b\"></a>", "Tag starts with quote"},
        {"<!", "Invalid node"},
        {"<?", "Invalid node"},
        {"<?xml", "Invalid node"},
        {"<!-- open", "Invalid node"},
        {"<a><![CDATA[ open ]]</a>", "Invalid node"},
        {"<!DOCTYPE a [ <b> ", "Invalid node"},
        {"<!DOCTYPE a '>", "Invalid node"},
        {"< ?x?>", "Invalid node"},
        {"< !-- c --><a/>", "Invalid node"},
        {"<a", "End of tag not found"},
        {"<a b='c'", "End of tag not found"},
        {"<a><b</a", "End of tag not found"},
        {"<a>", "End tag of a element not found"},
        {"<a>text", "End tag of a element not found"},
        {"<a><b/>", "End tag of a element not found"},
        {"<a><b>", "End tag of b element not found"},
        {"<a><b></b> <!-- c --> ", "End tag of a element not found"},
        {"<a><b></a>", "End tag does not correspond to b"},
        {"<a></b>", "End tag does not correspond to a"},
        {"<a></A>", "End tag does not correspond to a"},
        {"<a></ab>", "End tag does not correspond to a"},
        {"<ab></a>", "End tag does not correspond to ab"},
        {"<a></>", "End tag does not correspond to a"},
        {"<a></b", "End tag does not correspond to a"},
        {"<a></", "End tag not completed for element a"},
        {"<a></a", "End tag not completed for element a"},
        {"<a></a b c", "End tag not completed for element a"},
        {"<a><b/></a 'c>", "End tag not completed for element a"},
    };
    for (const auto& failure : kFailures) {
        const CMarkupSTL markup = Parsed(failure.text);
        EXPECT_FALSE(markup.IsWellFormed()) << failure.text;
        EXPECT_EQ(markup.GetError(), failure.message) << failure.text;
        EXPECT_EQ(markup.GetDoc(), failure.text);
        EXPECT_EQ(markup.PosFree(), 1) << failure.text;
        EXPECT_EQ(EntryAt(markup, 0), Entry{}) << failure.text;
    }
}

TEST(MarkupParse, AnEndTagIsReadByItsTokens) {
    for (const char* const text : {"<a></a>", "<a></ a >", "<a></a \">\">", "<a[b></a>", "< a></a>",
                                   "<a b='>'></a>", "<a><!-- > --></a>", "<!x [<]>]><a/>"}) {
        const CMarkupSTL markup = Parsed(text);
        EXPECT_TRUE(markup.IsWellFormed()) << text << ": " << markup.GetError();
    }
    EXPECT_EQ(Parsed("<  b></ >").GetError(), "End tag does not correspond to b");
}

TEST(MarkupParse, AnEndTagInPlaceOfTheRootFailsWithoutAMessage) {
    const CMarkupSTL markup = Parsed("</a>");
    EXPECT_FALSE(markup.IsWellFormed());
    EXPECT_EQ(markup.GetError(), "");
}

TEST(MarkupParse, AnEmptyTextIsNotWellFormedAndLeavesNoMessage) {
    CMarkupSTL markup = Parsed("<a");
    EXPECT_NE(markup.GetError(), "");
    markup.SetDoc("");
    EXPECT_FALSE(markup.IsWellFormed());
    EXPECT_EQ(markup.GetError(), "");
    EXPECT_EQ(markup.PosFree(), 1);

    markup.SetDoc("<a/>");
    markup.SetDoc(static_cast<const char*>(nullptr));
    EXPECT_FALSE(markup.IsWellFormed());
    EXPECT_EQ(markup.GetDoc(), "");
    EXPECT_EQ(markup.GetError(), "");
}

TEST(MarkupParse, AFreshDocumentIsEmpty) {
    const CMarkupSTL markup;
    EXPECT_FALSE(markup.IsWellFormed());
    EXPECT_EQ(markup.GetError(), "");
    EXPECT_EQ(markup.GetDoc(), "");
    EXPECT_EQ(markup.GetTagName(), "");
    EXPECT_EQ(markup.GetData(), "");
    EXPECT_EQ(markup.PosFree(), 1);
    EXPECT_EQ(markup.Flags(), 0u);
}

TEST(MarkupParse, OnlyTheFirstElementIsParsed) {
    for (const char* const after : {"<b/>", "text", "<b>", "</b>", "<!-- open", "<", "<!-- c -->\n<b>"}) {
        CMarkupSTL markup = Parsed("<a/>" + std::string(after));
        EXPECT_TRUE(markup.IsWellFormed()) << after;
        EXPECT_EQ(Outline(markup), "a") << after;
        EXPECT_EQ(markup.GetError(), "") << after;
        EXPECT_EQ(markup.PosFree(), 2) << after;
    }
}

TEST(MarkupParse, TheFirstGreaterSignEndsATag) {
    const CMarkupSTL markup = Parsed("<a b=\"x>y\"></a>");
    EXPECT_TRUE(markup.IsWellFormed());
    EXPECT_EQ(markup.At(1).startTagRight, 7);
    EXPECT_EQ(Parsed("<a b='x>'/>").GetError(), "End tag of a element not found");
}

TEST(MarkupParse, AnEndTagMayHaveTheHeadOfTheName) {
    // The name test takes a bracket for the end of a name.
    EXPECT_TRUE(Parsed("<a[b></a>").IsWellFormed());
    EXPECT_TRUE(Parsed("<a[b></a[b>").IsWellFormed());
    EXPECT_EQ(Parsed("<a></a[b>").GetError(), "End tag does not correspond to a");
}

TEST(MarkupParse, PositionsPointAtTheBracketsOfEachTag) {
    //                                0123456789012345678901
    const CMarkupSTL markup = Parsed("<a>t<b x=''/><c></c ></a>");
    ASSERT_EQ(markup.PosFree(), 4);
    EXPECT_EQ(EntryAt(markup, 1), (Entry{0, 2, 21, 24, 0, 2, 0}));
    EXPECT_EQ(EntryAt(markup, 2), (Entry{4, 12, 11, 12, 1, 0, 3}));
    EXPECT_EQ(EntryAt(markup, 3), (Entry{13, 15, 16, 20, 1, 0, 0}));
    EXPECT_EQ(EntryAt(markup, 0), (Entry{0, 0, 0, 0, 0, 1, 0}));
    EXPECT_EQ(EntryAt(Parsed("<!--c--><a/>"), 0), (Entry{0, 0, 8, 0, 0, 1, 0})) << "the last `<` under it";
}

TEST(MarkupParse, TheShortFormIsKnownByItsPositions) {
    for (const char* const text : {"<a/>", "<a />", "<a b=''/>"}) {
        const CMarkupSTL markup = Parsed(text);
        EXPECT_EQ(markup.At(1).startTagRight, markup.At(1).endTagLeft + 1) << text;
        EXPECT_EQ(markup.At(1).startTagRight, markup.At(1).endTagRight) << text;
    }
    const CMarkupSTL longForm = Parsed("<a></a>");
    EXPECT_EQ(longForm.At(1).startTagRight + 1, longForm.At(1).endTagLeft);
}

TEST(MarkupParse, ASlashBeforeABlankIsNoShortForm) {
    EXPECT_EQ(Parsed("<a/ >").GetError(), "End tag of a element not found");
    EXPECT_EQ(Outline(Parsed("<a/ ></a>")), "a");
}

TEST(MarkupParse, BracketsOfADocumentTypeMayNest) {
    EXPECT_EQ(Outline(Parsed("<!DOCTYPE a [ [ > ] > ]><a/>")), "a");
    EXPECT_EQ(Outline(Parsed("<!DOCTYPE a \"[\"><a/>")), "a") << "quoted brackets do not count";
    EXPECT_EQ(Parsed("<!DOCTYPE a [ [ ] ><a/>").GetError(), "Invalid node");
}

TEST(MarkupParse, ANewTextForgetsTheOldTreeAndCursor) {
    CMarkupSTL markup = Parsed("<a><b/></a>");
    ASSERT_TRUE(markup.FindChildElem("b"));
    ASSERT_TRUE(markup.SavePos("here"));
    markup.SetDoc("<c/>");
    EXPECT_EQ(StateOf(markup).cursor, (std::array<std::int32_t, 6>{}));
    EXPECT_FALSE(markup.RestorePos("here"));
    EXPECT_EQ(Outline(markup), "c");
    EXPECT_EQ(markup.PosFree(), 2);
}

TEST(MarkupParse, ANewTextForgetsTheOldMessage) {
    CMarkupSTL markup = Parsed("<a>");
    markup.SetDoc("<b>");
    EXPECT_EQ(markup.GetError(), "End tag of b element not found");
    markup.SetDoc("<b/>");
    EXPECT_EQ(markup.GetError(), "");
}

TEST(MarkupParse, AFailureLeavesNothingOfTheOldTree) {
    CMarkupSTL markup = Parsed("<a><b/></a>");
    ASSERT_TRUE(markup.FindElem());
    ASSERT_TRUE(markup.SavePos("here"));
    markup.SetDoc("<a><b></a>");
    EXPECT_FALSE(markup.IsWellFormed());
    EXPECT_EQ(StateOf(markup).cursor, (std::array<std::int32_t, 6>{}));
    EXPECT_FALSE(markup.RestorePos("here"));
    EXPECT_FALSE(markup.FindElem());
    EXPECT_EQ(markup.GetDoc(), "<a><b></a>");
}

TEST(MarkupParse, ATextMayBePartOfTheDocumentItself) {
    CMarkupSTL markup = Parsed("<a><b/></a>");
    markup.SetDoc(markup.GetDoc().c_str() + 3);
    EXPECT_EQ(markup.GetDoc(), "<b/></a>");
    EXPECT_EQ(Outline(markup), "b");
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
