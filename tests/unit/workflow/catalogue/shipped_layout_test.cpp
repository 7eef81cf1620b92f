// The distances in the shipped dialogs: one gap between paragraphs, one below titles, and all texts on the
// sheet of paper that the backdrop shows.
#include "support/languages.h"
#include "toolkit/control_styles.h"
#include "unit/workflow/panes/dialog_fixture.h"
#include "unit/workflow/resources/shipped_texts.h"
#include "values/unicode/text_conversion.h"
#include "workflow/catalogue/connection.h"
#include "workflow/catalogue/feedback.h"
#include "workflow/catalogue/privacy.h"
#include "workflow/catalogue/registration.h"
#include "workflow/catalogue/welcome.h"
#include "workflow/context/context_keys.h"
#include "workflow/run_workflow.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace brixen::pvn::pvn_workflow {
namespace {

using Controls = std::vector<zeve::headless::Window>;

constexpr int kTitleGap = 17, kGroupGap = 12, kLabelGap = 6;
constexpr int kDialogWidth = 560, kDialogHeight = 420, kDialogMargin = 8;
constexpr int kSheetTop = 62, kSheetBottom = 358; // in background.svg
constexpr int kSheetMargin = 18, kButtonGap = 20;
constexpr std::uint16_t kLastButton = 99; // the ids of the buttons below the pages end here
constexpr int kTextRise = 1;              // a text's control begins so much above its place

bool IsStatic(const zeve::headless::Window& control) { return control.className == u"static"; }
bool IsText(const zeve::headless::Window& control) { return IsStatic(control) && !control.text.empty(); }
bool IsRowButton(const zeve::headless::Window& control) { return control.id <= kLastButton; }
// Its pane names it.
bool IsSubCheck(const zeve::headless::Window& control) {
    return control.frame.Width() == 15 && control.frame.Height() == 15;
}
bool IsPopup(const zeve::headless::Window& control) { return control.className == u"combobox"; }
// Of a text that is filled in later, too.
bool IsLabel(const zeve::headless::Window& control) {
    return IsStatic(control) && (control.style & 0x1F) <= zeve::style::kStaticRight;
}
int TopOf(const zeve::headless::Window& control) {
    return control.frame.top + (IsLabel(control) ? kTextRise : 0);
}
bool IsPicture(const zeve::headless::Window& control) {
    return control.frame.Width() == 64 && control.frame.Height() == 64;
}

// A dialog's controls in the order of its view, taken when the dialog is shown.
class ShippedLayout : public DialogFixture {
protected:
    template <class WorkFlow>
    Controls ControlsOf(const std::string& locale) {
        Controls controls;
        Then([&controls] {
            const auto area = zeve::platform::ClientArea(TopDialog());
            EXPECT_EQ(area.Width(), kDialogWidth);
            EXPECT_EQ(area.Height(), kDialogHeight);
            for (const auto& window : System().windows) {
                if (window->parent == TopDialog()) controls.push_back(*window);
            }
            throw EndOfTest();
        });
        T_Storage bag;
        SetString(bag, PvnWFKey_Language, locale);
        SetPtr(bag, PvnWFKey_MainWindow, MakeMainWindow());
        static_cast<void>(RunWorkFlowFromBag<WorkFlow>(bag));
        ShutDownResources();
        return controls;
    }

    // The controls of each page, from its title to its last control.
    static std::vector<Controls> PagesOf(const Controls& controls, const std::string& locale) {
        std::set<std::u16string> titles;
        for (const char* dictionary : {"guide.txt", "service.txt"}) {
            for (const auto& [key, text] : ReadWords(kSources / "dictionaries" / locale / dictionary)) {
                if (key.ends_with("/title")) titles.insert(lyr::gen::ToUtf16(text, true));
            }
        }
        std::vector<Controls> pages;
        for (const auto& control : controls) {
            if (IsRowButton(control)) break;
            if (titles.contains(control.text)) pages.emplace_back();
            if (!pages.empty()) pages.back().push_back(control);
        }
        return pages;
    }

    template <class WorkFlow>
    void ForEachLayout(std::size_t pageCount,
                       const std::function<void(const Controls&, const std::vector<Controls>&)>& check) {
        for (const std::string& locale : pavane_test::Locales()) {
            SCOPED_TRACE(locale);
            const Controls controls = ControlsOf<WorkFlow>(locale);
            const std::vector<Controls> pages = PagesOf(controls, locale);
            ASSERT_EQ(pages.size(), pageCount);
            check(controls, pages);
        }
    }
    void ForEachLayout(const std::function<void(const Controls&, const std::vector<Controls>&)>& check) {
        ForEachLayout<PVNWelcomeWorkFlow>(3, check);
        ForEachLayout<PVNPrivacyWorkFlow>(4, check);
    }
    // Those with fields beside each other too.
    void ForEveryLayout(const std::function<void(const Controls&, const std::vector<Controls>&)>& check) {
        ForEachLayout(check);
        ForEachLayout<PVNRegistrationWorkFlow>(6, check);
        ForEachLayout<PVNConnectionWorkFlow>(4, check);
        ForEachLayout<PVNFeedbackWorkFlow>(7, check);
    }

private:
    struct EndOfTest : std::exception {};
};

TEST_F(ShippedLayout, EveryControlLiesInsideTheDialog) {
    ForEveryLayout([](const Controls& controls, const std::vector<Controls>&) {
        for (const auto& control : controls) {
            EXPECT_GE(control.frame.left, kDialogMargin) << control.id;
            EXPECT_GE(control.frame.top, kDialogMargin) << control.id;
            EXPECT_LE(control.frame.right, kDialogWidth - kDialogMargin) << control.id;
            if (IsPopup(control)) continue; // its frame is that of the open list
            EXPECT_LE(control.frame.bottom, kDialogHeight - kDialogMargin) << control.id;
        }
    });
}

TEST_F(ShippedLayout, EveryButtonHasAText) {
    ForEveryLayout([](const Controls& controls, const std::vector<Controls>&) {
        for (const auto& control : controls) {
            if (control.className != u"button" || IsSubCheck(control)) continue;
            EXPECT_FALSE(control.text.empty()) << control.id;
        }
    });
}

TEST_F(ShippedLayout, NoTextOfAWorkflowWithoutServiceIsEmpty) {
    ForEachLayout([](const Controls& controls, const std::vector<Controls>&) {
        for (const auto& control : controls) {
            if (!IsLabel(control)) continue;
            EXPECT_FALSE(control.text.empty()) << control.id;
        }
    });
}

TEST_F(ShippedLayout, ATitleIsFollowedByTheTitleGap) {
    ForEveryLayout([](const Controls&, const std::vector<Controls>& pages) {
        for (const Controls& page : pages) {
            ASSERT_GE(page.size(), 2u);
            // A text beside a picture that is higher begins lower than its row.
            const int top = TopOf(*std::ranges::min_element(page.begin() + 1, page.end(), {}, TopOf));
            EXPECT_EQ(top - page[0].frame.bottom, kTitleGap) << page[0].id;
        }
    });
}

TEST_F(ShippedLayout, ParagraphsAreOneGapApart) {
    ForEachLayout([](const Controls&, const std::vector<Controls>& pages) {
        for (const Controls& page : pages) {
            if (std::ranges::any_of(page, IsPicture)) continue;
            for (std::size_t i = 2; i < page.size(); ++i) {
                if (IsPopup(page[i - 1])) continue;                      // its frame is that of the open list
                if (page[i].frame.top < page[i - 1].frame.top) continue; // two groups in one place
                EXPECT_EQ(TopOf(page[i]) - page[i - 1].frame.bottom, IsPopup(page[i]) ? kLabelGap : kGroupGap)
                    << page[i].id;
            }
        }
    });
}

TEST_F(ShippedLayout, TextsAreCenteredOnTheirPictures) {
    int pictures = 0;
    ForEachLayout<PVNWelcomeWorkFlow>(3, [&](const Controls&, const std::vector<Controls>& pages) {
        for (const Controls& page : pages) {
            for (std::size_t i = 0; i + 2 < page.size(); ++i) {
                if (!IsPicture(page[i])) continue;
                ++pictures;
                ASSERT_TRUE(IsText(page[i + 1]) && IsText(page[i + 2]));
                const int above = TopOf(page[i + 1]) - page[i].frame.top;
                const int below = page[i].frame.bottom - page[i + 2].frame.bottom;
                EXPECT_LE(std::abs(above - below), 1) << page[i].id;
                EXPECT_EQ(TopOf(page[i + 2]) - page[i + 1].frame.bottom, kLabelGap);
            }
        }
    });
    EXPECT_EQ(pictures, 3 * static_cast<int>(pavane_test::Locales().size()));
}

TEST_F(ShippedLayout, AllPagesAreOnTheSheetAndAllButtonsBelowIt) {
    ForEveryLayout([](const Controls& controls, const std::vector<Controls>& pages) {
        for (const Controls& page : pages) {
            EXPECT_EQ(TopOf(page[0]), kSheetTop + kSheetMargin);
            for (const auto& control : page) {
                if (IsPopup(control)) continue; // its frame is that of the open list
                EXPECT_LE(control.frame.bottom, kSheetBottom - kSheetMargin) << control.id;
            }
        }
        int buttons = 0;
        for (const auto& control : controls) {
            if (!IsRowButton(control)) continue;
            ++buttons;
            EXPECT_EQ(control.frame.top - kSheetBottom, kButtonGap) << control.id;
        }
        EXPECT_GE(buttons, 4);
    });
}

TEST_F(ShippedLayout, TheLastButtonEndsWithTheColumn) {
    ForEveryLayout([](const Controls& controls, const std::vector<Controls>& pages) {
        const auto first = std::ranges::find_if(controls, IsRowButton);
        const auto last = std::ranges::find_if(controls.rbegin(), controls.rend(), IsRowButton);
        ASSERT_NE(last, controls.rend());
        const bool isMirrored = last->frame.left < first->frame.left;
        for (const Controls& page : pages) {
            if (isMirrored) EXPECT_EQ(last->frame.left, page[0].frame.left);
            if (!isMirrored) EXPECT_EQ(last->frame.right, page[0].frame.right);
        }
    });
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
