// What holds on every pane of every workflow in every language: the keyboard reaches each control, no access
// key is used twice, and each field has its label directly in front of it.
#include "frame/platform/posix/frame_twin.h"
#include "net/transport/communication_detail.h"
#include "support/languages.h"
#include "toolkit/control_styles.h"
#include "unit/workflow/panes/dialog_fixture.h"
#include "workflow/catalogue/connection.h"
#include "workflow/catalogue/connection_views.h"
#include "workflow/catalogue/feedback.h"
#include "workflow/catalogue/feedback_views.h"
#include "workflow/catalogue/privacy.h"
#include "workflow/catalogue/privacy_views.h"
#include "workflow/catalogue/registration.h"
#include "workflow/catalogue/registration_views.h"
#include "workflow/catalogue/welcome.h"
#include "workflow/catalogue/welcome_views.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/alert.h"

#include <map>
#include <set>
#include <string_view>

namespace brixen::pvn::pvn_workflow {
namespace {

using HeadlessWindow = zeve::headless::Window;
namespace style = zeve::style;

constexpr std::uint32_t kStaticNotifies = 0x100, kStaticKind = 0x1F, kAutoRadioButton = 9;
constexpr std::u16string_view kFields[] = {u"edit", u"combobox", u"listbox", u"msctls_trackbar32"};

// The access key of a text: the character after its first single `&`, in lower case; 0 without one.
char16_t AccessKeyOf(std::u16string_view text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'&') continue;
        if (text[i + 1] != u'&')
            return text[i + 1] < 0x80 ? static_cast<char16_t>(text[i + 1] | 0x20) : text[i + 1];
        ++i;
    }
    return 0;
}

bool IsUsable(const HeadlessWindow& control) {
    return (control.style & style::kVisible) != 0 && (control.style & style::kDisabled) == 0;
}
bool IsField(const HeadlessWindow& control) {
    return std::ranges::find(kFields, control.className) != std::end(kFields);
}
bool IsIcon(const HeadlessWindow& control) {
    return control.className == u"static" && (control.style & kStaticKind) == style::kStaticIcon;
}
bool IsPressed(const HeadlessWindow& control) {
    if (control.className == u"static") return (control.style & kStaticNotifies) != 0;
    return control.className == u"button" && (control.style & 0xF) != style::kGroupBox;
}

bool IsSmallCheckBox(const HeadlessWindow& control) {
    return control.className == u"button" && (control.style & 0xF) == style::kAutoCheckBox &&
           control.frame.Width() == 15;
}

// The arrow keys reach it from the marked one of its group.
bool IsUnmarkedRadio(const HeadlessWindow& control) {
    const auto check = control.remembered.find(zeve::kButtonSetCheck);
    const std::uint32_t kind = control.style & 0xF;
    return control.className == u"button" && (kind == style::kRadioButton || kind == kAutoRadioButton) &&
           (check == control.remembered.end() || check->second != static_cast<std::int64_t>(zeve::kChecked));
}

class EveryPane : public DialogFixture {
protected:
    // Visits each pane of a workflow in each language by those buttons.
    template <class WorkFlow>
    void Visit(const std::vector<std::uint16_t>& buttons) {
        for (const std::string& locale : pavane_test::Locales()) {
            SCOPED_TRACE(locale);
            for (const std::uint16_t button : buttons) {
                Then([this] { CheckPane(); });
                ThenPress(button);
            }
            T_Storage bag;
            SetString(bag, PvnWFKey_Language, locale);
            SetPtr(bag, PvnWFKey_MainWindow, MakeMainWindow());
            SetLong(bag, PvnWFKey_AllowCancel, 1);
            SetString(bag, PvnWFKey_ProxyHost, "proxy.example.com"); // so that its fields are enabled
            SetLong(bag, PvnWFKey_ProxyPort, 8080);
            typename WorkFlow::Context context(bag);
            SelectLanguage(locale);
            static_cast<void>(WorkFlow(context).Run(true));
            EXPECT_TRUE(System().script.empty());
            ShutDownResources();
        }
    }

    // A field with a small check box in front of it is disabled until that is set.
    static void SetSubChecks() {
        std::vector<Window> checks;
        for (const auto& window : System().windows)
            if (window->parent == TopDialog() && IsUsable(*window) && IsSmallCheckBox(*window))
                checks.push_back(window->handle);
        for (const Window check : checks) {
            zeve::platform::Send(check, zeve::kButtonSetCheck, zeve::kChecked, 0);
            Tell(TopDialog(), zeve::kMessageCommand, zeve::headless::FindWindow(check)->id,
                 reinterpret_cast<std::intptr_t>(check));
        }
    }

    void CheckPane() {
        SCOPED_TRACE(testing::Message() << "pane " << ++panes);
        SetSubChecks();
        std::map<char16_t, std::u16string> texts; // by access key
        const HeadlessWindow* before = nullptr;
        for (const auto& window : System().windows) {
            if (window->parent != TopDialog()) continue;
            const HeadlessWindow& control = *window;
            if (IsUsable(control)) {
                CheckControl(control, before);
                NoteKey(control, texts);
            }
            before = &control;
        }
    }

    int panes = 0, controls = 0, fields = 0, icons = 0;

private:
    void CheckControl(const HeadlessWindow& control, const HeadlessWindow* before) {
        if (IsIcon(control)) {
            ++icons;
            EXPECT_FALSE(control.text.empty()) << "an icon without a name for screen readers";
        }
        if (!IsPressed(control) && !IsField(control)) return;
        ++controls;
        EXPECT_EQ((control.style & style::kTabStop) != 0, !IsUnmarkedRadio(control)) << control.id;
        if (IsPressed(control)) {
            EXPECT_NE(AccessKeyOf(control.text), 0) << "no access key: " << control.id;
            return;
        }
        ++fields;
        ASSERT_TRUE(before && before->className == u"static" && IsUsable(*before))
            << "no label: " << control.id;
        EXPECT_NE(AccessKeyOf(before->text), 0) << "its label has no access key: " << control.id;
    }

    static void NoteKey(const HeadlessWindow& control, std::map<char16_t, std::u16string>& texts) {
        if (IsField(control)) return; // what is in a field is no label
        const char16_t key = AccessKeyOf(control.text);
        if (key == 0) return;
        EXPECT_TRUE(texts.emplace(key, control.text).second) << "used twice: " << static_cast<int>(key);
    }
};

TEST_F(EveryPane, OfWelcomeIsReachedByTheKeyboard) {
    using namespace welcome;
    Visit<PVNWelcomeWorkFlow>({kContinueButton, kContinueButton, kDoneButton});
    EXPECT_EQ(panes, 3 * 6);
    EXPECT_EQ(controls, (3 + 3 + 3) * 6);
    EXPECT_EQ(fields, 0);
}

TEST_F(EveryPane, OfPrivacyIsReachedByTheKeyboard) {
    using namespace privacy;
    Visit<PVNPrivacyWorkFlow>({kContinueButton, kAcceptButton, kReturnButton, kCancelButton});
    EXPECT_EQ(panes, 4 * 6);
    EXPECT_EQ(controls, (3 + 5 + 2 + 1) * 6);
    EXPECT_EQ(fields, (1 + 1) * 6);
}

TEST_F(EveryPane, OfRegistrationIsReachedByTheKeyboard) {
    using namespace registration;
    Visit<PVNRegistrationWorkFlow>(
        {kContinueButton, kRegisterButton, kCancelButton, kDoneButton, kTryAgainButton, kUseSettingsButton});
    EXPECT_EQ(panes, 6 * 6);
    EXPECT_EQ(controls, (5 + 10 + 1 + 2 + 5 + 8) * 6);
    EXPECT_EQ(fields, (5 + 1 + 1 + 4) * 6);
}

TEST_F(EveryPane, OfConnectionIsReachedByTheKeyboard) {
    using namespace connection;
    Visit<PVNConnectionWorkFlow>({kTestButton, kCancelTestButton, kReachedDoneButton, kUnreachedDoneButton});
    EXPECT_EQ(panes, 4 * 6);
    EXPECT_EQ(controls, (8 + 1 + 2 + 4) * 6);
    EXPECT_EQ(fields, (4 + 1) * 6);
}

TEST_F(EveryPane, OfFeedbackIsReachedByTheKeyboard) {
    using namespace feedback;
    GetFrameTwin().temporaryFolder = u"/no/such/folder/"; // without a log the slider is disabled
    Visit<PVNFeedbackWorkFlow>({kContinueButton, kContinueButton, kSendButton, kCancelSendingButton,
                                kDoneButton, kTryAgainButton, kUseSettingsButton});
    EXPECT_EQ(panes, 7 * 6);
    EXPECT_EQ(controls, (8 + 17 + 4 + 1 + 1 + 5 + 8) * 6);
    EXPECT_EQ(fields, (3 + 7 + 1 + 1 + 4) * 6);
    ResetFrameTwin();
}

TEST_F(EveryPane, OfTheQuitAlertIsReachedByTheKeyboard) {
    for (const std::string& locale : pavane_test::Locales()) {
        SCOPED_TRACE(locale);
        T_Storage bag;
        SetString(bag, PvnWFKey_Language, locale);
        PVNWorkFlowContext context(bag);
        SelectLanguage(locale);
        LoadWorkFlowDictionary("Welcome");
        Then([this] { CheckPane(); });
        ThenPress(kAlertSecondButton);
        EXPECT_FALSE(ShowAlert(kAlertQuit, MakeMainWindow(), &context));
        ShutDownResources();
    }
    EXPECT_EQ(controls, 2 * 6);
    EXPECT_EQ(icons, 6);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
