#include "workflow/panes/alert.h"

#include "toolkit/event_record.h"
#include "unit/workflow/panes/dialog_fixture.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/window_message.h"
#include "workflow/platform/message_numbers.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::HasSubstr;
using zeve::headless::CallsOf;

constexpr char kAlertView[] = R"(
dialog(name: 'Sure?', close_box: true) {
    picture(view_id: 1001, width: 32, height: 32);
    button(view_id: 101, name: 'Yes', default: true);
    button(view_id: 102, name: 'No');
})";

class Alert : public DialogFixture {
protected:
    Alert() {
        Select("en_US");
        files.Write("quit_alert.exv", kAlertView);
        files.Write("plain.exv", kAlertView);
    }
    bool Show(const char* name = kAlertQuit) { return ShowAlert(name, parent, &context); }
    bool ShowAndTell(std::uint32_t number, std::uintptr_t wparam) {
        Then([=] { Tell(TopDialog(), number, wparam); });
        return Show();
    }

    T_Storage bag;
    PVNWorkFlowContext context{bag};
    Window parent = MakeMainWindow();
};

TEST_F(Alert, TheFirstButtonAgreesAndTheOthersDoNot) {
    EXPECT_TRUE(ShowAndTell(zeve::kMessageCommand, 101));
    EXPECT_TRUE(ShowAndTell(zeve::kMessageCommand, 0x00010000 | 101));
    EXPECT_FALSE(ShowAndTell(zeve::kMessageCommand, 102));
    EXPECT_FALSE(ShowAndTell(zeve::kMessageCommand, kIdEscape));
    EXPECT_FALSE(ShowAndTell(zeve::kMessageClose, 0));
}

TEST_F(Alert, TakesTheTextsOfItsView) {
    files.Write("words.exv", "dialog(name: title) { static_text(view_id: 5, name: words); "
                             "button(view_id: 101, name: 'OK'); }");
    Then([] {
        EXPECT_EQ(zeve::platform::TextOf(TopDialog()), u"Look");
        EXPECT_EQ(Control(5)->text, u"There is more.");
    });
    Then([] { Tell(TopDialog(), zeve::kMessageCommand, 101); });
    const AlertText texts[] = {{"title", "Look"}, {"words", "There is more."}};
    EXPECT_TRUE(ShowAlert({"Words", "words", false}, parent, &context, texts));
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Alert, AQuitOfTheApplicationAnswersAsTheSecondButton) {
    Then([] { zeve::platform::PostQuit(0); });
    EXPECT_FALSE(Show());
    System().quit.reset();
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Alert, HasNoOtherAnswers) {
    for (std::uintptr_t wparam : {std::uintptr_t(1), std::uintptr_t(103), std::uintptr_t(0x00020000 | 101)}) {
        Then([=] { EXPECT_EQ(Tell(TopDialog(), zeve::kMessageCommand, wparam), 0); });
        Then([] { EXPECT_FALSE(System().quit.has_value()); });
    }
    EXPECT_FALSE(ShowAndTell(zeve::kMessageCommand, 102));
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Alert, LeavesOtherMessagesToTheSystem) {
    Then([] {
        AlertParams params;
        const auto answer = [&params](std::int32_t what, std::uint32_t number, std::uintptr_t wparam) {
            zeve::EventRecord record;
            record.StorePointer(zeve::kKeyWindow, TopDialog());
            record.Store(zeve::kKeyEventRecord, number);
            record.Store(zeve::kKeyWparam, static_cast<std::int64_t>(wparam));
            record.Store(zeve::kKeyLparam, 0);
            return AlertEventCallback(what, record, &params);
        };
        for (const auto& [number, wparam] : std::initializer_list<std::pair<std::uint32_t, std::uintptr_t>>{
                 {zeve::kMessageSetFocus, 0},
                 {zeve::kMessageSetFocus, 5},
                 {zeve::kMessagePaint, 0},
                 {zeve::kMessageEraseBackground, 0x55},
                 {zeve::kMessageKeyDown, 65},
                 {zeve::kMessageTimer, 1},
                 {zeve::kMessageColorStatic, 0x55},
                 {zeve::kMessageCommand, 103},
                 {zeve::kMessageCommand, 0x00020000 | 102}})
            EXPECT_EQ(answer(zeve::kWhatMessage, number, wparam), 1u) << number;
        EXPECT_EQ(answer(zeve::kWhatMessage, zeve::kMessageClose, 0), 3u);
        EXPECT_EQ(answer(zeve::kWhatMessage, zeve::kMessageCommand, 101), 2u);
        EXPECT_EQ(answer(zeve::kWhatMessage, zeve::kMessageCommand, 0x00010000 | 102), 3u);
        params.firstButton = 7;
        params.secondButton = 8;
        EXPECT_EQ(answer(zeve::kWhatMessage, zeve::kMessageCommand, 7), 2u);
        EXPECT_EQ(answer(zeve::kWhatMessage, zeve::kMessageCommand, 8), 3u);
        EXPECT_EQ(answer(zeve::kWhatMessage, zeve::kMessageCommand, 2), 3u);
        EXPECT_EQ(answer(zeve::kWhatMessage, zeve::kMessageCommand, 101), 1u);
        EXPECT_EQ(answer(zeve::kWhatModalRun, zeve::kMessageClose, 0), 0u);
    });
    ThenPress(101);
    Show();
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Alert, IsGoneAfterwardAndItsParentGetsTheFocusMessage) {
    Then([this] {
        EXPECT_FALSE(zeve::platform::IsEnabled(parent));
        EXPECT_EQ(zeve::headless::FindWindow(TopDialog())->instance, zeve::platform::LibraryModule());
    });
    ShowAndTell(zeve::kMessageCommand, 101);
    EXPECT_EQ(TopDialog(), nullptr);
    EXPECT_TRUE(zeve::platform::IsEnabled(parent));
    const auto callOf = [](const char* name) {
        return std::ranges::find(System().calls, name, &zeve::headless::Call::name) - System().calls.begin();
    };
    EXPECT_LT(callOf("CloseWindow"), callOf("Post")) << "the dialog is gone before";
    ASSERT_FALSE(System().posted.empty());
    EXPECT_EQ(System().posted.back().window, parent);
    EXPECT_EQ(System().posted.back().number, zeve::kMessageSetFocus);
    EXPECT_EQ(System().posted.back().wparam, 0u);
    EXPECT_EQ(System().posted.back().lparam, 0);
}

TEST_F(Alert, ThatCannotBeMadeCountsAsAgreedAndIsLogged) {
    EXPECT_TRUE(Show("missing"));
    EXPECT_THAT(Logged(), HasSubstr("PVN: _info_: Missing Resource(Type: Exvw, Name: missing)\n"));
    EXPECT_THAT(Logged(), HasSubstr("PVN: _info_: Alert not shown(Name: missing)\n"));
    System().refuseWindow = 1;
    EXPECT_TRUE(Show());
    files.Write("plain.exv", "dialog( {");
    EXPECT_TRUE(Show("plain"));
    EXPECT_THAT(Logged(), HasSubstr("PVN: _info_: View cannot be read(File: "));
    EXPECT_THAT(Logged(), HasSubstr("\\plain.exv, Reason: "));
    EXPECT_THAT(Logged(), HasSubstr("PVN: _info_: Alert not shown(Name: plain)\n"));
}

TEST_F(Alert, OfAnyOtherNameHasTheViewOfThatName) {
    ThenPress(101);
    EXPECT_TRUE(Show("plain"));
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Alert, NeedsNoContext) {
    ThenPress(102);
    EXPECT_FALSE(ShowAlert(kAlertQuit, nullptr, nullptr));
}

TEST_F(Alert, OnlyTwoLanguagesTurnRightToLeftOn) {
    for (const auto& [language, isMirrored] : {std::pair("he_IL", true), std::pair("ar_AE", true),
                                               std::pair("ar_SA", false), std::pair("en_US", false)}) {
        SetString(bag, PvnWFKey_Language, language);
        const bool expected = isMirrored;
        Then([expected] { EXPECT_EQ((Control(101)->extendedStyle & 0x2000) != 0, expected); });
        ThenPress(101);
        Show();
    }
}

TEST_F(Alert, PaintsItselfOnBothDevices) {
    for (const std::uint32_t number : {zeve::kMessageEraseBackground, zeve::kMessagePaint}) {
        Then([=] {
            const auto erased = CallsOf("EraseFace").size(), painted = CallsOf("PaintFace").size();
            Tell(TopDialog(), number, 0x55);
            ASSERT_EQ(CallsOf("EraseFace").size(), erased + 1);
            ASSERT_EQ(CallsOf("PaintFace").size(), painted + 1);
            EXPECT_EQ(CallsOf("EraseFace").back().numbers.at(0), 0x55);
            EXPECT_EQ(CallsOf("PaintFace").back().window, TopDialog());
        });
    }
    ThenPress(101);
    Show();
    EXPECT_TRUE(System().script.empty());
}

TEST_F(Alert, FocusGoesToTheDefaultButton) {
    Then([] {
        System().focus = nullptr;
        Tell(TopDialog(), zeve::kMessageSetFocus, 0);
        EXPECT_EQ(System().focus, Control(101)->handle);
        System().focus = nullptr;
        Tell(TopDialog(), zeve::kMessageSetFocus, 0x1234);
        EXPECT_EQ(System().focus, nullptr);
        Tell(TopDialog(), zeve::kMessageSetFocus, 0xABCD0000);
        EXPECT_EQ(System().focus, Control(101)->handle);
    });
    ThenPress(101);
    Show();
    EXPECT_TRUE(System().script.empty());
}

// The bitmap that an alert with or without the flag shows, while the alert is open.
class ErrorAlert : public Alert {
protected:
    static zeve::NativeBitmap Shown(bool isError, PVNWorkFlowContext& context) {
        zeve::NativeBitmap shown = nullptr;
        Then([&] {
            shown = reinterpret_cast<zeve::NativeBitmap>(
                Control(kAlertPicture)->remembered[zeve::kStaticSetImage]);
        });
        ThenPress(102);
        EXPECT_FALSE(ShowAlert(AlertEntry{"TestAlert", "plain", isError}, nullptr, &context));
        return shown;
    }
    ErrorAlert() {
        files.Copy("xball1.png", Picture("rgba.png"));
        files.Copy("xball1_hc.png", Picture("rgb.png"));
    }
};

TEST_F(ErrorAlert, ShowsItsPictureAndOthersDoNot) {
    const zeve::NativeBitmap picture = LoadBitmapResource("xball1", 3);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(Shown(true, context), picture);
    EXPECT_EQ(Shown(false, context), nullptr);
    EXPECT_EQ(platform::TheResourceRecorder().liveBitmaps.count(picture), 1u) << "the layer's";
}

TEST_F(ErrorAlert, HasAnotherPictureInHighContrast) {
    platform::ThePaneRecorder().isHighContrast = true;
    const zeve::NativeBitmap picture = LoadBitmapResource("xball1_hc", 3);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(Shown(true, context), picture);
}

TEST_F(ErrorAlert, IsShownEvenWithoutItsPicture) {
    files.Remove("xball1.png");
    EXPECT_EQ(Shown(true, context), nullptr);
    EXPECT_EQ(Logged(), "PVN: _info_: Missing Resource(Type: Bitmap, Name: xball1)\n");
}

TEST(AlertTable, HoldsTheQuitAlertAndTakesOtherNamesForViews) {
    EXPECT_EQ(FindAlert(kAlertQuit).view, "quit_alert");
    EXPECT_FALSE(FindAlert(kAlertQuit).isError);
    EXPECT_EQ(FindAlert("anything").view, "anything");
    EXPECT_FALSE(FindAlert("anything").isError);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
