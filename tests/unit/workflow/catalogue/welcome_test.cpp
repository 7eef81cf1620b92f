#include "workflow/catalogue/welcome.h"

#include "frame/status.h"
#include "support/languages.h"
#include "toolkit/control_styles.h"
#include "unit/workflow/catalogue/shipped_workflow_fixture.h"
#include "unit/workflow/resources/shipped_texts.h"
#include "unit/workflow/without_memory.h"
#include "values/unicode/text_conversion.h"
#include "workflow/catalogue/welcome_views.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/pane_host.h"
#include "workflow/panes/window_message.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/run_workflow.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace brixen::pvn::pvn_workflow {
namespace {

using zeve::headless::CallsOf;
using namespace welcome;
using pavane_test::IsRightToLeft;
using pavane_test::Locales;

constexpr std::uint16_t kAlertQuitButton = 101, kAlertStayButton = 102;

// With the shipped resources.
class Welcome : public ShippedWorkFlow<PVNWelcomeWorkFlow> {
protected:
    static std::u16string Title() { return zeve::platform::TextOf(TopDialog()); }

    static void ThenExpectPane(std::u16string title, std::uint16_t shown, std::vector<std::uint16_t> hidden) {
        Then([=] {
            EXPECT_EQ(Title(), title);
            EXPECT_TRUE(IsControlShown(shown)) << shown;
            for (std::uint16_t id : hidden) EXPECT_FALSE(IsControlShown(id)) << id;
        });
    }
    static void ThenExpectWelcome(std::u16string title = u"Getting started: Welcome") {
        ThenExpectPane(title, kLearnMoreLink, {kBackButton, kDoneButton, kStepsPicture});
    }
    static void ThenExpectHighlights(std::u16string title = u"Getting started: What to expect") {
        ThenExpectPane(title, kStepsPicture, {kDoneButton, kLearnMoreLink});
    }
    static void ThenExpectReady(std::u16string title = u"Getting started: Everything is ready") {
        ThenExpectPane(title, kDoneButton, {kContinueButton, kStepsPicture, kLearnMoreLink});
    }
};

TEST_F(Welcome, WalkedToItsEndIsASuccess) {
    ThenExpectWelcome();
    ThenPress(kContinueButton);
    ThenExpectHighlights();
    ThenPress(kContinueButton);
    ThenExpectReady();
    ThenPress(kDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
    EXPECT_EQ(StoredResult(), kStatusUserCancel);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Welcome, IsWalkedInTheWordsOfEachLanguage) {
    for (const std::string& locale : Locales()) {
        const Words words = ReadWords(kSources / "dictionaries" / locale / "guide.txt");
        const auto word = [&words](const std::string& key) { return words.at("$$$/pvn/" + key); };
        const auto title = [&word](const std::string& pane) {
            return lyr::gen::ToUtf16(word("dlg/common/window_title/prefix") +
                                     word("welcome/" + pane + "/window_title"));
        };
        const auto thenExpectButton = [&word](std::uint16_t id, const std::string& name) {
            Then([id, text = lyr::gen::ToUtf16(word("dlg/common/button/" + name))] {
                EXPECT_TRUE(IsControlShown(id)) << id;
                EXPECT_EQ(Control(id)->text, text) << id;
            });
        };
        SetLanguage(locale);
        ThenExpectWelcome(title("welcome"));
        thenExpectButton(kLearnMoreLink, "learn_more");
        thenExpectButton(kContinueButton, "continue");
        thenExpectButton(kQuitButton, "quit");
        ThenPress(kLearnMoreLink);
        ThenPress(kContinueButton);
        ThenExpectHighlights(title("highlights"));
        thenExpectButton(kBackButton, "back");
        thenExpectButton(kContinueButton, "continue");
        thenExpectButton(kQuitButton, "quit");
        ThenPress(kContinueButton);
        ThenExpectReady(title("ready"));
        thenExpectButton(kBackButton, "back");
        thenExpectButton(kDoneButton, "done");
        thenExpectButton(kQuitButton, "quit");
        ThenPress(kDoneButton);
        EXPECT_EQ(Run(), kStatusSuccess) << locale;
        EXPECT_TRUE(System().script.empty()) << locale;
        EXPECT_TRUE(platform::ThePaneRecorder().started.back().arguments.ends_with(
            lyr::gen::ToUtf16("\\PVResources\\" + locale + "\\welcome.html\"")))
            << locale;
    }
}

TEST_F(Welcome, BackLeadsThroughThePanesInReverse) {
    ThenPress(kContinueButton);
    ThenPress(kContinueButton);
    ThenPress(kBackButton);
    ThenExpectHighlights();
    ThenPress(kBackButton);
    ThenExpectWelcome();
    ThenPress(kBackButton); // hidden, but its id can still be sent
    ThenExpectWelcome();
    ThenPress(kContinueButton);
    ThenPress(kContinueButton);
    ThenPress(kDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Welcome, CanBeQuitFromEachPane) {
    for (int steps = 0; steps < 3; ++steps) {
        for (int step = 0; step < steps; ++step) ThenPress(kContinueButton);
        ThenPress(kQuitButton);
        ThenPress(kAlertQuitButton);
        EXPECT_EQ(Run(), kStatusUserQuit) << steps;
        EXPECT_EQ(StoredResult(), kStatusUserQuit);
        EXPECT_TRUE(System().script.empty());
    }
}

TEST_F(Welcome, ARefusedQuitChangesNothing) {
    ThenPress(kContinueButton);
    ThenPress(kQuitButton);
    Then([] { EXPECT_EQ(zeve::platform::ControlText(TopDialog(), kAlertStayButton), u"&Stay"); });
    ThenPress(kAlertStayButton);
    ThenExpectHighlights();
    Then([this] { EXPECT_EQ(StoredResult(), kStatusUserCancel); });
    ThenPress(kContinueButton);
    ThenPress(kDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Welcome, EnterIsTheDefaultButtonAndEscIsQuit) {
    ThenPress(kIdEnter);
    ThenExpectHighlights();
    ThenPress(kIdEscape);
    ThenPress(kIdEscape); // stays
    ThenPress(kIdEnter);
    ThenExpectReady();
    ThenPress(kIdEnter);
    EXPECT_EQ(Run(), kStatusSuccess);
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Welcome, TheDefaultButtonHasTheFrameAndTheFocus) {
    const auto expectDefault = [](std::uint16_t id) {
        Then([id] {
            EXPECT_EQ(Control(id)->style, 0x50010001u);
            EXPECT_EQ(System().focus, Control(id)->handle);
        });
    };
    expectDefault(kContinueButton);
    ThenPress(kContinueButton);
    expectDefault(kContinueButton);
    ThenPress(kContinueButton);
    expectDefault(kDoneButton);
    ThenPress(kDoneButton);
    Run();
}

TEST_F(Welcome, AButtonThatHadTheFocusIsANormalOneOnTheNextPane) {
    ThenPress(kContinueButton);
    Then([] {
        // The system draws the button with the focus as the default one.
        for (const std::uint16_t id : {kBackButton, kQuitButton}) Control(id)->style = 0x50010001;
    });
    ThenPress(kContinueButton);
    Then([] {
        for (const std::uint16_t id : {kBackButton, kQuitButton})
            EXPECT_EQ(Control(id)->style, 0x50010000u) << id;
    });
    ThenPress(kDoneButton);
    Run();
}

TEST_F(Welcome, TheControlsOfAPaneAreEnabledWithIt) {
    const auto expectEnabled = [](bool enabled) {
        Then([enabled] { EXPECT_EQ(zeve::platform::IsEnabled(Control(kLearnMoreLink)->handle), enabled); });
    };
    expectEnabled(true);
    ThenPress(kContinueButton);
    expectEnabled(false);
    ThenPress(kBackButton);
    expectEnabled(true);
    ThenPress(kContinueButton);
    ThenPress(kContinueButton);
    ThenPress(kDoneButton);
    Run();
}

TEST_F(Welcome, TheContextKnowsTheHost) {
    Then([this] {
        void* host = nullptr;
        ASSERT_TRUE(GetPtr(bag, PvnWFKey_AppDialog, host));
        EXPECT_EQ(static_cast<PVNPaneHost*>(host)->Window(), TopDialog());
    });
    ThenPress(kContinueButton);
    ThenPress(kContinueButton);
    ThenPress(kDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Welcome, NothingIsDeliveredAfterTheEnd) {
    for (const std::uint16_t late : {kIdEnter, kDoneButton, kQuitButton}) {
        ThenPress(kContinueButton);
        ThenPress(kContinueButton);
        Then([late] {
            for (const std::uint16_t id : {kDoneButton, late})
                zeve::platform::Post(TopDialog(), zeve::kMessageCommand, id, 0);
        });
        EXPECT_EQ(Run(), kStatusSuccess) << late;
        EXPECT_EQ(StoredResult(), kStatusUserCancel) << late;
    }
}

TEST_F(Welcome, ADialogThatEndsDuringItsQuitAlertHasEnded) {
    ThenPress(kContinueButton);
    ThenPress(kContinueButton);
    Then([] {
        const Window dialog = TopDialog();
        Then([dialog] { Tell(dialog, zeve::kMessageCommand, kDoneButton); });
        Tell(dialog, zeve::kMessageCommand, kQuitButton);
    });
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Welcome, ARunThatIsEndedFromOutsideReturnsTheStoredResult) {
    isEndedFromOutside = true;
    Then([] { zeve::platform::CloseWindow(TopDialog()); });
    EXPECT_EQ(Run(), kStatusUserCancel);
}

TEST_F(Welcome, WithoutAWindowIsAnException) {
    System().refuseWindow = 1;
    EXPECT_EQ(Run(), kStatusException);
    EXPECT_TRUE(zeve::platform::IsEnabled(mainWindow));
}

TEST_F(Welcome, LearnMoreIsALinkThatTabReaches) {
    Then([] {
        const auto* link = Control(kLearnMoreLink);
        EXPECT_EQ(link->className, u"static");
        EXPECT_NE(link->style & zeve::style::kTabStop, 0u);
        EXPECT_NE(Tell(link->handle, kMessageDialogCode) & kWantsCharacters, 0) << "it takes keys";
    });
    ThenPress(kContinueButton);
    ThenPress(kBackButton);
    Then([] {
        const Window link = Control(kLearnMoreLink)->handle;
        Tell(link, zeve::kMessageCharacter, kKeySpace);
        EXPECT_EQ(platform::ThePaneRecorder().started.size(), 1u) << "attached once, so it opens once";
    });
    ThenPress(kQuitButton);
    ThenPress(kAlertQuitButton);
    EXPECT_EQ(Run(), kStatusUserQuit);
}

TEST_F(Welcome, LearnMoreOpensTheLocalPage) {
    ThenPress(kLearnMoreLink);
    ThenExpectWelcome();
    ThenPress(kIdEscape);
    ThenPress(kAlertQuitButton);
    Run();
    ASSERT_EQ(platform::ThePaneRecorder().started.size(), 1u);
    const auto& started = platform::ThePaneRecorder().started[0];
    EXPECT_EQ(started.program, u"iexplore.exe");
    EXPECT_EQ(started.showCommand, 9);
    EXPECT_TRUE(started.arguments.ends_with(u"\\PVResources\\en_US\\welcome.html\""));
}

TEST_F(Welcome, PicturesAreShownOnceAndReleased) {
    ThenPress(kContinueButton);
    Then([] {
        for (std::uint16_t id : {kStepsPicture, kLanguagePicture, kPrivacyPicture}) {
            EXPECT_NE(Control(id)->remembered[zeve::kStaticSetImage], 0) << id;
        }
    });
    ThenPress(kBackButton);
    ThenPress(kContinueButton);
    ThenPress(kContinueButton);
    ThenPress(kDoneButton);
    Run();
    const auto sent = CallsOf("Send");
    EXPECT_EQ(std::ranges::count_if(sent,
                                    [](const auto& call) {
                                        return call.numbers.at(0) == zeve::kStaticSetImage &&
                                               call.numbers.at(2) != 0;
                                    }),
              3);
    EXPECT_EQ(platform::TheResourceRecorder().bitmapsMade, 5u);
    EXPECT_TRUE(platform::TheResourceRecorder().liveBitmaps.empty());
}

TEST_F(Welcome, HighContrastDropsThePictures) {
    platform::ThePaneRecorder().isHighContrast = true;
    ThenPress(kContinueButton);
    Then([] {
        EXPECT_TRUE(IsControlShown(kStepsPicture));
        for (std::uint16_t id : {kStepsPicture, kLanguagePicture, kPrivacyPicture}) {
            EXPECT_EQ(Control(id)->remembered[zeve::kStaticSetImage], 0) << id;
        }
    });
    ThenPress(kContinueButton);
    ThenPress(kDoneButton);
    EXPECT_EQ(Run(), kStatusSuccess);
}

TEST_F(Welcome, ButtonsAreMirroredInHebrewAndArabic) {
    for (const std::string& locale : Locales()) {
        SetLanguage(locale);
        Then([locale] {
            const bool isMirrored = IsRightToLeft(locale);
            const int back = Control(kBackButton)->frame.left, next = Control(kContinueButton)->frame.left,
                      quit = Control(kQuitButton)->frame.left;
            EXPECT_EQ(back < next && next < quit, !isMirrored) << locale;
            EXPECT_EQ(back > next && next > quit, isMirrored) << locale;
        });
        ThenPress(kQuitButton);
        ThenPress(kAlertQuitButton);
        Run();
    }
}

TEST_F(Welcome, ATourVisitsThePanesInOrder) {
    PVNWorkFlowContext context(bag);
    SelectLanguage("en_US");
    PVNWelcomeWorkFlow workFlow(context);
    ThenExpectWelcome();
    ThenPress(kContinueButton);
    ThenExpectHighlights();
    ThenPress(kBackButton);
    ThenExpectReady();
    ThenPress(kDoneButton);
    EXPECT_TRUE(workFlow.Run(true));
    EXPECT_TRUE(System().script.empty());
}

// With an alert in the middle of the run.
class WelcomeWithoutMemory : public WithoutMemory<Welcome, PVNWelcomeWorkFlow> {
protected:
    void WriteScript() override {
        ThenPress(kContinueButton);
        ThenPress(kIdEscape);
        ThenPress(kAlertStayButton);
        ThenPress(kContinueButton);
        ThenPress(kBackButton);
        ThenPress(kContinueButton);
        ThenPress(kDoneButton);
    }
};

TEST_F(WelcomeWithoutMemory, EndsInAStatusLeavesNothingAndRunsAgain) {
    ExpectToHoldOut({kStatusUserQuit, kStatusUserCancel});
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
