// Running out of memory at any point: nothing leaks, and what is left is whole.
#include "unit/values/markup/support.h"

#include "support/failing_allocator.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <optional>
#include <string>

namespace brixen::lyr::gen::markup_test {
namespace {

constexpr char kText[] = "<!--c--><r x='1'><a>text</a>\n<b><c/></b>tail<d/></r>";

// Runs `edit` on a copy of `markup` with every allocation failing in turn: table and text agree afterward,
// and the object can be used.
void ForEveryFailure(const CMarkupSTL& markup, const std::function<void(CMarkupSTL&)>& edit) {
    const std::size_t failures = pavane_test::ForEveryFailingAllocation([&] {
        std::optional<CMarkupSTL> copy;
        try {
            copy.emplace(markup);
            edit(*copy);
        } catch (const std::bad_alloc&) {
            if (!copy) return;
            EXPECT_EQ(FreshDifference(*copy), "") << copy->GetDoc();
            copy->ResetPos();
            EXPECT_TRUE(copy->FindElem());
            EXPECT_TRUE(copy->SetAttrib("after", "the failure"));
            EXPECT_EQ(FreshDifference(*copy), "") << copy->GetDoc();
        }
    });
    EXPECT_GT(failures, 0u);
}

TEST(MarkupWithoutMemory, Parsing) {
    std::string text = "<r>";
    for (int i = 0; i < 200; ++i) text += "<a><b/></a>"; // the table grows several times
    text += "</r>";
    pavane_test::ForEveryFailingAllocation([&] {
        CMarkupSTL markup;
        try {
            markup.SetDoc(text);
            EXPECT_TRUE(markup.IsWellFormed());
        } catch (const std::bad_alloc&) {
            EXPECT_FALSE(markup.IsWellFormed());
            EXPECT_FALSE(markup.FindElem());
            markup.SetDoc("<a/>");
            EXPECT_TRUE(markup.IsWellFormed());
        }
    });
}

TEST(MarkupWithoutMemory, ParsingInPlaceOfAnotherDocument) {
    const CMarkupSTL old = Parsed(kText);
    std::string text = "<r>";
    for (int i = 0; i < 200; ++i) text += "<a/>";
    text += "</r>";
    ForEveryFailure(old, [&](CMarkupSTL& markup) {
        markup.FindElem();
        markup.SavePos("root");
        try {
            markup.SetDoc(text);
        } catch (const std::bad_alloc&) {
            // Which of the two documents is there is left open; half a table is not.
            EXPECT_EQ(FreshDifference(markup).empty() || !markup.IsWellFormed(), true);
            markup.SetDoc(text);
        }
    });
}

TEST(MarkupWithoutMemory, AParseError) {
    pavane_test::ForEveryFailingAllocation([&] {
        CMarkupSTL markup;
        try {
            markup.SetDoc("<a><b><c></a>");
        } catch (const std::bad_alloc&) {
        }
        EXPECT_FALSE(markup.IsWellFormed());
        EXPECT_EQ(markup.PosFree(), 1);
    });
}

TEST(MarkupWithoutMemory, Copying) {
    CMarkupSTL markup = Parsed(kText);
    markup.FindElem();
    markup.SavePos("a name that is longer than what fits into a string itself");
    const State before = StateOf(markup);
    ForEveryFailure(markup, [](CMarkupSTL&) {});
    const CMarkupSTL other = Parsed("<x><y/></x>");
    ForEveryFailure(markup, [&](CMarkupSTL& copy) { copy = other; });
    EXPECT_EQ(StateOf(markup), before);
}

TEST(MarkupWithoutMemory, Editing) {
    const CMarkupSTL markup = At(kText, "r");
    const std::string text(300, '&'); // the text grows
    const std::function<void(CMarkupSTL&)> kEdits[] = {
        [&](CMarkupSTL& copy) { copy.AddChildElem("new", text); },
        [&](CMarkupSTL& copy) { copy.InsertChildElem("new", text); },
        [&](CMarkupSTL& copy) { copy.SetAttrib("x", text); },
        [&](CMarkupSTL& copy) { copy.SetAttrib("y", text); },
        [&](CMarkupSTL& copy) { copy.FindSetData("/r/a", text, true); },
        [&](CMarkupSTL& copy) { copy.FindSetData("/r/d", text); },
        [&](CMarkupSTL& copy) { copy.FindElem("/r/d") && copy.AddChildElem("new", text); },
        [&](CMarkupSTL& copy) {
            copy.FindElem("/r/b") && copy.AddSubDoc("<n>" + text + "<m/><m/><m/><m/></n>");
        },
        [&](CMarkupSTL& copy) { copy.FindElem("/r/b") && copy.AddSubDoc("<n>" + text + "<m/><m/><m/><m/>"); },
        [&](CMarkupSTL& copy) { copy.FindElem("/r/b") && copy.AddNode(kMarkupComment, text); },
        [&](CMarkupSTL& copy) { copy.FindElem("/r/b") && copy.InsertNode(kMarkupElement, "new"); },
        [&](CMarkupSTL& copy) { copy.FindElem("/r/b") && copy.SavePos(text.c_str()) && copy.RemoveElem(); },
        [&](CMarkupSTL& copy) { copy.RemoveAttrib("x"); },
    };
    for (std::size_t i = 0; i < std::size(kEdits); ++i) {
        SCOPED_TRACE("edit " + std::to_string(i));
        ForEveryFailure(markup, [&](CMarkupSTL& copy) {
            try {
                kEdits[i](copy);
            } catch (const std::bad_alloc&) {
                EXPECT_EQ(copy.GetDoc(), kText);
                EXPECT_EQ(StateOf(copy).table, StateOf(markup).table);
                throw;
            }
        });
    }
}

TEST(MarkupWithoutMemory, AnEditInAGrownBufferTakesNoSecondCopyOfTheDocument) {
    CMarkupSTL markup = Parsed("<r><a/>" + std::string(1 << 20, 'x') + "<b/></r>");
    ASSERT_TRUE(markup.FindElem("r/a"));
    ASSERT_TRUE(markup.SetAttrib("x", "1")) << "the buffer grows by half";
    const std::size_t before = pavane_test::AllocatedBytes();
    EXPECT_TRUE(markup.SetAttrib("x", "22"));
    EXPECT_TRUE(markup.AddElem("new", "text"));
    EXPECT_TRUE(markup.RemoveElem());
    EXPECT_TRUE(markup.FindSetData("/r/b", "text"));
    EXPECT_TRUE(markup.AddSubDoc("<c/>"));
    EXPECT_LT(pavane_test::AllocatedBytes() - before, 10000u);
    EXPECT_EQ(FreshDifference(markup), "");
}

} // namespace
} // namespace brixen::lyr::gen::markup_test
