// Input that means harm: nesting without end, arbitrary bytes, texts cut anywhere. All of it is read in time
// linear in its length and without a stack.
#include "unit/values/markup/support.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

namespace brixen::lyr::gen::markup_test {
namespace {

using namespace std::string_view_literals;

constexpr int kDeep = 1000000;

std::string Times(int count, std::string_view piece) {
    std::string text;
    text.reserve(static_cast<std::size_t>(count) * piece.size());
    for (int i = 0; i < count; ++i) text += piece;
    return text;
}

// Steps on every node there is and reads all there is to read; returns the number of nodes.
int ReadEverything(CMarkupSTL& markup) {
    int nodes = 0;
    std::size_t bytes = 0;
    markup.ResetPos();
    for (;;) {
        const int kind = markup.FindNode();
        if (kind == 0) {
            if (!markup.OutOfElem()) return bytes > 0 ? nodes : 0;
            continue;
        }
        ++nodes;
        bytes += 1 + markup.GetTagName().size() + markup.GetData().size() + markup.GetAttrib("x").size() +
                 markup.GetAttribName(1).size();
        if (kind == kMarkupElement) markup.IntoElem();
    }
}

// A few edits wherever the cursor can be put.
void EditSomewhere(CMarkupSTL& markup) {
    markup.ResetPos();
    if (!markup.FindElem()) {
        markup.AddElem("new");
        return;
    }
    markup.SetAttrib("x", "<1>");
    markup.AddChildElem("child", "&");
    markup.FindChildElem();
    markup.SetChildAttrib("y", "2");
    markup.IntoElem();
    markup.FindNode();
    markup.SetData("data");
    markup.RemoveNode();
    markup.AddSubDoc("<sub/>");
    markup.RemoveElem();
}

TEST(MarkupHostile, AMillionOpenTagsAreAnOrdinaryError) {
    CMarkupSTL markup = Parsed(Times(kDeep, "<a>"));
    EXPECT_FALSE(markup.IsWellFormed());
    EXPECT_EQ(markup.GetError(), "End tag of a element not found");
    EXPECT_EQ(markup.PosFree(), 1);
    const CMarkupSTL copy(markup);
    EXPECT_FALSE(copy.IsWellFormed());
}

class MarkupDeep : public testing::Test {
protected:
    CMarkupSTL markup = Parsed(Times(kDeep, "<a>") + Times(kDeep, "</a>"));
};

TEST_F(MarkupDeep, AMillionNestedElementsAreAnOrdinaryTree) {
    ASSERT_TRUE(markup.IsWellFormed());
    EXPECT_EQ(markup.PosFree(), kDeep + 1);
    EXPECT_EQ(markup.At(1).endTagRight, 7 * kDeep - 1);
    EXPECT_EQ(markup.At(kDeep).parent, kDeep - 1);
    EXPECT_EQ(markup.At(kDeep).firstChild, 0);
    EXPECT_EQ(ReadEverything(markup), kDeep);
}

TEST_F(MarkupDeep, TheyAreCopiedAndEditedAtBothEnds) {
    CMarkupSTL copy(markup);
    EXPECT_EQ(TreeDifference(markup, copy), "");
    int depth = 0;
    while (copy.FindElem()) {
        ++depth;
        copy.IntoElem();
    }
    EXPECT_EQ(depth, kDeep);
    ASSERT_TRUE(copy.AddElem("b", "text"));
    ASSERT_TRUE(copy.OutOfElem());
    ASSERT_TRUE(copy.SavePos("deepest"));
    copy.ResetPos();
    ASSERT_TRUE(copy.FindElem());
    ASSERT_TRUE(copy.SetAttrib("x", "1"));
    EXPECT_EQ(FreshDifference(copy), "");
    ASSERT_TRUE(copy.FindChildElem());
    ASSERT_TRUE(copy.RemoveChildElem());
    EXPECT_EQ(copy.GetDoc(), "<a x=\"1\"></a>");
    EXPECT_FALSE(copy.RestorePos("deepest"));
    EXPECT_EQ(FreshDifference(copy), "");
}

TEST_F(MarkupDeep, APathOfAMillionStepsIsFollowed) {
    std::string path = Times(kDeep - 1, "a/") + "a";
    ASSERT_TRUE(markup.FindElem(path));
    EXPECT_EQ(markup.Pos(), kDeep);
    markup.ResetPos();
    EXPECT_TRUE(markup.FindElem(Times(kDeep - 1, "*/") + "*"));
    EXPECT_FALSE(markup.FindElem("/" + path + "/a"));
}

TEST(MarkupHostile, DeepPiecesAreSplicedIn) {
    CMarkupSTL markup = At("<r/>", "r");
    markup.IntoElem();
    EXPECT_FALSE(markup.AddSubDoc(Times(kDeep, "<a>")));
    EXPECT_EQ(markup.GetDoc(), "<r/>");
    ASSERT_TRUE(markup.AddSubDoc(Times(kDeep, "<a>") + Times(kDeep, "</a>")));
    EXPECT_EQ(FreshDifference(markup), "");
    ASSERT_TRUE(markup.RemoveElem());
}

TEST(MarkupHostile, ManySiblingsAreWalkedInOneGo) {
    CMarkupSTL markup = Parsed("<r>" + Times(500000, "<a x='1' y='2'/>t") + "</r>");
    EXPECT_EQ(ReadEverything(markup), 1000001);
    EXPECT_EQ(markup.FindNode(kMarkupComment), 0);
    EditSomewhere(markup);
    EXPECT_EQ(FreshDifference(markup), "");
}

TEST(MarkupHostile, DeepBracketsOfADocumentType) {
    const std::string open = Times(kDeep, "["), close = Times(kDeep, "]"), openApart = Times(kDeep, "[ > "),
                      closeApart = Times(kDeep, " ]");
    EXPECT_EQ(Parsed("<!D " + open).GetError(), "Invalid node");
    EXPECT_EQ(Parsed("<!D " + openApart + ">").GetError(), "Invalid node");
    EXPECT_TRUE(Parsed("<!D " + openApart + closeApart + "><a/>").IsWellFormed());
    EXPECT_EQ(Parsed("<!D " + openApart + closeApart + " ]><a/>").GetError(), "Invalid node");
    EXPECT_EQ(Parsed("<!D " + open + close).GetError(), "Invalid node");
}

TEST(MarkupHostile, EndlesslyRepeatedPieces) {
    constexpr std::string_view kPieces[] = {
        "<",     "<a",      "<a>",  "</a>",     "</",      "<!",     "<![", "<!-",  "<!--", "<?",
        "<!D [", "'",       "\"",   "<a '",     "<a x=",   "<a x='", "[",   "]",    "&",    "&#",
        "&#x",   "&lt",     "<a/>", "\0"sv,     "-",       "-->",    "]]>", "?>",   ">",    "=",
        "/",     "<a></a ", "<a>x", "<!-- -->", R"(<??>)", "<!D>",   " ",   "<a x", "\xFF",
    };
    for (const std::string_view piece : kPieces) {
        for (const std::string_view front : {""sv, "<r>"sv, "<r x='"sv, "<!D ["sv}) {
            for (const std::string_view end : {""sv, "</r>"sv}) {
                CMarkupSTL markup = Parsed(std::string(front) + Times(25000, piece) + std::string(end));
                ReadEverything(markup);
                EditSomewhere(markup);
            }
        }
    }
}

TEST(MarkupHostile, ManyNodesOfEachKindAreSteppedOver) {
    for (const std::string_view piece : {"<!---->"sv,
                                         "<?"
                                         "?>"sv,
                                         "<![]]>"sv, "<!D>"sv, "<!D[ [>] ]>"sv}) {
        CMarkupSTL markup = Parsed("<r>" + Times(300000, piece) + "</r>" + Times(1000, piece));
        ASSERT_TRUE(markup.IsWellFormed()) << piece;
        EXPECT_EQ(ReadEverything(markup), 301001) << piece;
    }
}

TEST(MarkupHostile, NamesAndValuesMayBeAsLongAsTheText) {
    const std::string name = Times(kDeep, "n");
    CMarkupSTL markup = Parsed("<" + name + " " + name + "='" + name + "'></" + name + ">");
    ASSERT_TRUE(markup.FindElem(name));
    EXPECT_EQ(markup.GetTagName(), name);
    EXPECT_EQ(markup.GetAttribName(0), name);
    EXPECT_EQ(markup.GetAttrib(name), name);
    EXPECT_EQ(Parsed("<" + name + "></m>").GetError(), "End tag does not correspond to " + name);
}

TEST(MarkupHostile, ArbitraryBytesAreReadAndEdited) {
    std::mt19937 random(5);
    constexpr std::string_view kSigns = "<>/?!-[]\"'= \0a&;#"sv;
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 100, ' ');
        for (char& byte : text) {
            byte = random() % 3 ? kSigns[random() % kSigns.size()] : static_cast<char>(random());
        }
        CMarkupSTL markup = Parsed(random() % 2 ? text : "<r>" + text + "<a/></r>");
        const CMarkupSTL before(markup);
        ReadEverything(markup);
        EXPECT_EQ(markup.GetDoc(), before.GetDoc()) << "reading changes nothing";
        EditSomewhere(markup);
        ReadEverything(markup);
    }
}

TEST(MarkupHostile, ADocumentCutAtAnyByteIsReadAndEdited) {
    const std::string sample =
        "<?xml version=\"1.0\"?>\n<!DOCTYPE r [ <!ELEMENT r ANY> ]>\n<!-- c -->\n<r x='1' y = \"2\">text\n"
        "  <a>1 &lt; &#x32;</a>\n  <b z='1'/>\n  <![CDATA[ <x> ]]>\n  <?go now?>\n  <a/>\n</r>\n<!-- end "
        "-->\n";
    for (std::size_t length = 0; length <= sample.size(); ++length) {
        CMarkupSTL markup = Parsed(sample.substr(0, length));
        EXPECT_EQ(markup.IsWellFormed(), length >= sample.find("</r>") + 4) << length;
        ReadEverything(markup);
        EditSomewhere(markup);
        CMarkupSTL tail = Parsed(sample.substr(length));
        ReadEverything(tail);
        EditSomewhere(tail);
    }
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
