#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::lyr::gen::markup_test {
namespace {

struct AttributeCase {
    const char* text; // the root's start tag is what is read
    const char* name;
    const char* value;
};

TEST(MarkupAttribute, OnlyAQuotedValueAfterANameAndAnEqualsSignCounts) {
    for (const AttributeCase& attribute : {
             AttributeCase{"<a b=\"1\"/>", "b", "1"},
             AttributeCase{"<a b='1'/>", "b", "1"},
             AttributeCase{"<a b = '1' />", "b", "1"},
             AttributeCase{"<a\tb\n=\r'1'></a>", "b", "1"},
             AttributeCase{"<a b=1/>", "b", ""},
             AttributeCase{"<a b/>", "b", ""},
             AttributeCase{"<a b '1'/>", "b", ""},
             AttributeCase{"<a b c '1'/>", "b", "1"}, // two places after the name
             AttributeCase{"<a b c '1'/>", "c", ""},
             AttributeCase{"<a b = c = '1'/>", "b", ""},
             AttributeCase{"<a b = c = '1'/>", "c", ""}, // it is a value
             AttributeCase{"<a 'b'='1'/>", "b", ""},
             AttributeCase{"<a b=''/>", "b", ""},
             AttributeCase{"<a b='1' c='2'/>", "c", "2"},
             AttributeCase{"<a b=1 c='2'/>", "c", "2"},
             AttributeCase{"<a b='c=\"3\"' c='2'/>", "c", "2"},
             AttributeCase{"<a b='1' b='2'/>", "b", "1"},
             AttributeCase{"<a b='it \"is\"'/>", "b", "it \"is\""},
             AttributeCase{"<a b=\"it's\"/>", "b", "it's"},
             AttributeCase{"<a b='1'/>", "B", ""},
             AttributeCase{"<a b='1'/>", "bb", ""},
             AttributeCase{"<a bb='1'/>", "b", ""},
             AttributeCase{"<a bb='1' b='2'/>", "b", "2"},
             AttributeCase{"<a cb='1' ab='2'/>", "bb", ""},
             AttributeCase{"<a x:b='1'/>", "x:b", "1"},
             AttributeCase{"<a x:b='1'/>", "b", ""},
             AttributeCase{"<a b='1'/>", "b=2", "1"},
             AttributeCase{"<a b='1'/>", "b c", "1"},
             AttributeCase{"<a b='1'/>", "b/x", "1"},
             AttributeCase{"<a b='1'/>", "b[x", "1"},
             AttributeCase{"<a b='1' c='2'></a> and a long tail", "b=x", "1"},
             AttributeCase{"<a b='1' c='2'></a> and a long tail", "b/x", "1"},
             AttributeCase{"<a b='1' c='2'></a> and a long tail", "b[x", "1"},
             AttributeCase{"<a b='1' c='2'></a> and a long tail", "b x", "1"},
             AttributeCase{"<a b='1' c='2'></a> and a long tail", "b\tx", ""},
             AttributeCase{"<a b='1' c='2'></a> and a long tail", "b?x", ""},
             AttributeCase{"<a b='1'/>", "a", ""},
             AttributeCase{"<a a='1'/>", "a", "1"},
             AttributeCase{"<a b='&lt;&amp;&quot;&apos;&#65;'/>", "b", "<&\"'A"},
             AttributeCase{"<a b='&nothing;'/>", "b", "&nothing;"},
             AttributeCase{"<a / b='1' c='2'></a>", "b", ""},
             AttributeCase{"<a / b='1' c='2'></a>", "c", ""},
             AttributeCase{"<a b='1' ? c='2' d='3'></a>", "b", "1"},
             AttributeCase{"<a b='1' ? c='2' d='3'></a>", "d", ""},
             AttributeCase{"<a b\\c='1'/>", "b\\c", ""},
             AttributeCase{"<a b\\c='1'/>", "c", "1"},
             AttributeCase{"<a></a>", "b", ""},
             AttributeCase{"<a><c b='1'/></a>", "b", ""},
             AttributeCase{"<a b=' \t\n 1 '/>", "b", " \t\n 1 "},
         }) {
        const CMarkupSTL markup = At(attribute.text, "a");
        ASSERT_EQ(markup.GetTagName(), "a") << attribute.text;
        EXPECT_EQ(markup.GetAttrib(attribute.name), attribute.value)
            << attribute.text << " " << attribute.name;
    }
}

// Tags are searched in blocks, which may end anywhere in them.
TEST(MarkupAttribute, AValueIsFoundInATagOfAnyLength) {
    for (std::size_t length = 1; length < 50; ++length) {
        const std::string filling(length, 'x');
        const std::string tag = "<a " + filling + "='?/' id='" + filling + "' n=\"'/\"/>";
        const CMarkupSTL markup = At(tag, "a");
        EXPECT_EQ(markup.GetAttrib(filling), "?/") << tag;
        EXPECT_EQ(markup.GetAttrib("id"), filling) << tag;
        EXPECT_EQ(markup.GetAttrib("n"), "'/") << tag;
        EXPECT_EQ(markup.GetAttrib("d"), "") << tag;
        EXPECT_EQ(At("<" + filling + "/>", "*").GetAttrib("id"), "");
    }
}

TEST(MarkupAttribute, AValueMayHoldTheSignThatEndsTheTag) {
    const CMarkupSTL markup = At("<a b='x>y'></a>", "a");
    EXPECT_EQ(markup.GetAttrib("b"), "x>y");
}

TEST(MarkupAttribute, TheFirstTokenIsTheTagsNameAndNoAttribute) {
    EXPECT_EQ(At("< b='1'></b>", "b").GetAttrib("b"), "");
    EXPECT_EQ(At("<b='1'></b>", "b").GetAttrib("b"), "");
    EXPECT_EQ(At("< b b='1'></b>", "b").GetAttrib("b"), "1");
}

TEST(MarkupAttribute, AMissingQuoteRunsToTheEndOfTheDocument) {
    EXPECT_EQ(At("<a b='x></a>", "a").GetAttrib("b"), "x></a>");
}

TEST(MarkupAttribute, NamesAreReadByPlace) {
    const CMarkupSTL markup = At("<a one='1' two = \"2\" three='3'/>", "a");
    EXPECT_EQ(markup.GetAttribName(0), "one");
    EXPECT_EQ(markup.GetAttribName(1), "two");
    EXPECT_EQ(markup.GetAttribName(2), "three");
    EXPECT_EQ(markup.GetAttribName(3), "");
    EXPECT_EQ(markup.GetAttribName(-1), "");
    EXPECT_EQ(markup.GetAttribName(2147483647), "");
    EXPECT_EQ(markup.GetAttribName(-2147483647 - 1), "");
    EXPECT_EQ(At("<a/>", "a").GetAttribName(0), "");
    EXPECT_EQ(CMarkupSTL().GetAttribName(0), "");
}

TEST(MarkupAttribute, TheChildsAttributesAreReadInPlace) {
    CMarkupSTL markup = Parsed("<r x='0'><a x='1'/><b x='2'/></r>");
    EXPECT_EQ(markup.GetAttrib("x"), "") << "there is no current element";
    EXPECT_EQ(markup.GetChildAttrib("x"), "");
    ASSERT_TRUE(markup.FindChildElem("b"));
    EXPECT_EQ(markup.GetAttrib("x"), "0");
    EXPECT_EQ(markup.GetChildAttrib("x"), "2");
    EXPECT_EQ(markup.GetChildAttrib("y"), "");
}

struct SetCase {
    const char* before;
    const char* name;
    const char* value;
    const char* after;
};

TEST(MarkupAttribute, SetAttribReplacesTheValueOrAppends) {
    for (const SetCase& change : {
             SetCase{"<a b=\"1\"/>", "b", "22", "<a b=\"22\"/>"},
             SetCase{"<a b='1'/>", "b", "", "<a b=''/>"},
             SetCase{"<a b=''/>", "b", "x", "<a b='x'/>"},
             SetCase{"<a b = '1' c='2'/>", "b", "3", "<a b = '3' c='2'/>"},
             SetCase{"<a/>", "b", "1", "<a b=\"1\"/>"},
             SetCase{"<a />", "b", "1", "<a b=\"1\" />"},
             SetCase{"<a></a>", "b", "1", "<a b=\"1\"></a>"},
             SetCase{"<a\n></a>", "b", "1", "<a b=\"1\"\n></a>"},
             SetCase{"<a c='2'></a>", "b", "1", "<a c='2' b=\"1\"></a>"},
             SetCase{"<a c='2'  />", "b", "1", "<a c='2' b=\"1\"  />"},
             SetCase{"<a b=1/>", "b", "2", "<a b=1 b=\"2\"/>"},
             SetCase{"<a b='x'/>", "b", "<>&'\"", "<a b='&lt;&gt;&amp;&apos;&quot;'/>"},
             SetCase{"<a/>", "b", "<>&'\"", "<a b=\"&lt;&gt;&amp;&apos;&quot;\"/>"},
             SetCase{"<a>t<c/></a>", "b", "1", "<a b=\"1\">t<c/></a>"},
         }) {
        CMarkupSTL markup = At(change.before, "a");
        ASSERT_TRUE(markup.SetAttrib(change.name, change.value)) << change.before;
        EXPECT_EQ(markup.GetDoc(), change.after) << change.before;
        EXPECT_EQ(markup.GetAttrib(change.name), change.value) << change.before;
        EXPECT_EQ(FreshDifference(markup), "") << change.before;
        EXPECT_EQ(markup.GetTagName(), "a");
    }
}

TEST(MarkupAttribute, SetChildAttribChangesTheChild) {
    CMarkupSTL markup = Parsed("<r><a/><b x='1'/></r>");
    EXPECT_FALSE(markup.SetChildAttrib("x", "2"));
    ASSERT_TRUE(markup.FindElem("r"));
    EXPECT_FALSE(markup.SetChildAttrib("x", "2"));
    ASSERT_TRUE(markup.FindChildElem("b"));
    EXPECT_TRUE(markup.SetChildAttrib("x", "22"));
    EXPECT_TRUE(markup.SetChildAttrib("y", "3"));
    EXPECT_EQ(markup.GetDoc(), "<r><a/><b x='22' y=\"3\"/></r>");
    EXPECT_EQ(FreshDifference(markup), "");
    EXPECT_EQ(markup.GetChildAttrib("y"), "3");
}

TEST(MarkupAttribute, ANameThatIsNotOneTokenIsNotSet) {
    for (const char* const name : {"", "b c", "b ", " b", "b='1' c", "b=", "=", "b/", "/", ">", "b>", "<",
                                   "'b", "\"", "b?", "b!", "b\\", "b\n"}) {
        CMarkupSTL markup = At("<r><?p?><a x='1'/></r>", "r");
        ASSERT_TRUE(markup.FindChildElem());
        const State before = StateOf(markup);
        EXPECT_FALSE(markup.SetAttrib(name, "2")) << name;
        EXPECT_FALSE(markup.SetChildAttrib(name, "2")) << name;
        EXPECT_EQ(StateOf(markup), before) << name;
        ASSERT_TRUE(markup.FindElem("/r"));
        ASSERT_TRUE(markup.IntoElem());
        ASSERT_EQ(markup.FindNode(), kMarkupProcessingInstruction);
        EXPECT_FALSE(markup.SetAttrib(name, "2")) << name;
        EXPECT_EQ(markup.GetDoc(), before.document) << name;
    }
}

TEST(MarkupAttribute, AnInstructionsAttributesCanBeSet) {
    CMarkupSTL markup = Parsed("<?xml version=\"1.0\"?><r/>");
    ASSERT_EQ(markup.FindNode(), kMarkupProcessingInstruction);
    EXPECT_TRUE(markup.SetAttrib("encoding", "UTF-8"));
    EXPECT_EQ(markup.GetDoc(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?><r/>");
    EXPECT_TRUE(markup.SetAttrib("version", "1.10"));
    EXPECT_EQ(markup.GetDoc(), "<?xml version=\"1.10\" encoding=\"UTF-8\"?><r/>");
    EXPECT_EQ(markup.GetAttrib("encoding"), "UTF-8");
    EXPECT_EQ(FreshDifference(markup), "");
    EXPECT_EQ(markup.FindNode(), kMarkupElement);
}

TEST(MarkupAttribute, AnInstructionWithoutATargetTakesNoAttribute) {
    for (const char* const text : {"<r><?"
                                   "?></r>",
                                   "<r><? ?></r>"}) {
        CMarkupSTL markup = At(text, "r");
        markup.IntoElem();
        ASSERT_EQ(markup.FindNode(), kMarkupProcessingInstruction);
        const State before = StateOf(markup);
        EXPECT_FALSE(markup.SetAttrib("x", "1")) << "it would be the target";
        EXPECT_EQ(StateOf(markup), before);
    }
}

TEST(MarkupAttribute, RemoveAttribAlsoRemovesItsWhiteSpace) {
    for (const SetCase& change : {
             SetCase{"<a b='1'/>", "b", nullptr, "<a/>"},
             SetCase{"<a  \t b='1' />", "b", nullptr, "<a />"},
             SetCase{"<a b='1' c='2'></a>", "b", nullptr, "<a c='2'></a>"},
             SetCase{"<a b='1' c = \"2\"></a>", "c", nullptr, "<a b='1'></a>"},
             SetCase{"<a b='1' c='2' d='3'><e/></a>", "c", nullptr, "<a b='1' d='3'><e/></a>"},
             // A blank has to stay between the tokens on either side.
             SetCase{"<a b='1'c='2'/>", "b", nullptr, "<a c='2'/>"},
         }) {
        CMarkupSTL markup = At(change.before, "a");
        EXPECT_TRUE(markup.RemoveAttrib(change.name)) << change.before;
        EXPECT_EQ(markup.GetDoc(), change.after) << change.before;
        EXPECT_EQ(FreshDifference(markup), "") << change.before;
        EXPECT_EQ(markup.GetAttrib(change.name), "");
    }
}

TEST(MarkupAttribute, AnAbsentAttributeCannotBeRemoved) {
    CMarkupSTL markup = At("<a b='1'/>", "a");
    const State before = StateOf(markup);
    EXPECT_FALSE(markup.RemoveAttrib("c"));
    EXPECT_EQ(StateOf(markup), before);
    markup.ResetPos();
    EXPECT_FALSE(markup.RemoveAttrib("b"));
    EXPECT_FALSE(markup.SetAttrib("b", "2"));
    EXPECT_EQ(markup.GetDoc(), before.document);
}

TEST(MarkupAttribute, AValueAcrossTheEndOfTheTagIsNotEdited) {
    for (const char* const text : {"<a b='x>y'></a>", "<a b='x></a>", "<a c='1' b=\"></a>\""}) {
        CMarkupSTL markup = At(text, "a");
        ASSERT_EQ(markup.GetTagName(), "a") << text;
        const State before = StateOf(markup);
        EXPECT_FALSE(markup.SetAttrib("b", "1")) << text;
        EXPECT_FALSE(markup.RemoveAttrib("b")) << text;
        EXPECT_EQ(StateOf(markup), before) << text;
    }
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
