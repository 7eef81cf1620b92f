#include "values/markup/document.h"

#include <gtest/gtest.h>

#include <string>

using namespace brixen::lyr::gen;

namespace {

std::string ErrorOf(const char* text) {
    CMarkupSTL markup;
    markup.SetDoc(text);
    EXPECT_FALSE(markup.IsWellFormed()) << text;
    return markup.GetError();
}

TEST(MarkupParser, NamesTheFirstThingThatIsWrong) {
    EXPECT_EQ(ErrorOf(""), "");
    EXPECT_EQ(ErrorOf("x"), "Element tag not found");
    EXPECT_EQ(ErrorOf("</a>"), "");
    EXPECT_EQ(ErrorOf("<a>"), "End tag of a element not found");
    EXPECT_EQ(ErrorOf("<a><b></a>"), "End tag does not correspond to b");
    EXPECT_EQ(ErrorOf("<a></"), "End tag not completed for element a");
    EXPECT_EQ(ErrorOf("<a></a"), "End tag not completed for element a");
    EXPECT_EQ(ErrorOf("<a><"), "Abrupt end within tag");
    EXPECT_EQ(ErrorOf("<\"a\">"), "Tag starts with quote");
    EXPECT_EQ(ErrorOf("< ?x?>"), "Invalid node");
    EXPECT_EQ(ErrorOf("<a"), "End of tag not found");
}

TEST(MarkupParser, ReadsEndTagsByTheirTokens) {
    for (const char* const text : {"<a></a>", "<a></ a >", "<a></a \">\">", "<a[b></a>", "< a></a>",
                                   "<a b='>'></a>", "<a><!-- > --></a>", "<!x [<]>]><a/>"}) {
        CMarkupSTL markup;
        markup.SetDoc(text);
        EXPECT_TRUE(markup.IsWellFormed()) << text << ": " << markup.GetError();
    }
    EXPECT_EQ(ErrorOf("<  b></ >"), "End tag does not correspond to b");
}

TEST(MarkupEditing, OpensTheShortForm) {
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

TEST(MarkupCopies, AreIndependent) {
    CMarkupSTL markup;
    markup.SetDoc("<a><b/></a>");
    ASSERT_TRUE(markup.FindElem("a/b"));
    CMarkupSTL copy(markup);
    ASSERT_TRUE(markup.RemoveElem());
    EXPECT_EQ(copy.GetTagName(), "b");
    EXPECT_EQ(copy.TableCapacity(), 3);
    const CMarkupSTL taken(std::move(copy));
    EXPECT_EQ(taken.GetDoc(), "<a><b/></a>");
}

} // namespace
