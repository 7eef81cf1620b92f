#include "workflow/catalogue/welcome.h"

#include "frame/status.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/catalogue/welcome_views.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/controls/hyper_link.h"
#include "workflow/controls/open_in_browser.h"
#include "workflow/panes/alert.h"
#include "workflow/panes/concrete_host.h"
#include "workflow/panes/dialog_state_machine.h"
#include "workflow/panes/page_pane.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/platform/pane_platform.h"
#include "workflow/resources/resource_layer.h"

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr std::uint16_t kStateWelcome = 1;
constexpr std::uint16_t kStateHighlights = 2;
constexpr std::uint16_t kStateReady = 3;

constexpr std::string_view kEventBack = kEventGoBack;
constexpr std::string_view kEventContinue = "Continue";
constexpr std::string_view kEventDone = "DoneButton";
constexpr std::string_view kEventQuit = "QuitButton";

constexpr std::uint16_t kWelcomeButtons[] = {welcome::kContinueButton, welcome::kQuitButton};
constexpr std::uint16_t kHighlightsButtons[] = {welcome::kBackButton, welcome::kContinueButton,
                                                welcome::kQuitButton};
constexpr std::uint16_t kReadyButtons[] = {welcome::kBackButton, welcome::kDoneButton, welcome::kQuitButton};

constexpr PageTraits kWelcomeTraits{"$$$/pvn/welcome/welcome/window_title", welcome::kWelcomePage,
                                    kWelcomeButtons, welcome::kContinueButton};
constexpr PageTraits kHighlightsTraits{"$$$/pvn/welcome/highlights/window_title", welcome::kHighlightsPage,
                                       kHighlightsButtons, welcome::kContinueButton};
constexpr PageTraits kReadyTraits{"$$$/pvn/welcome/ready/window_title", welcome::kReadyPage, kReadyButtons,
                                  welcome::kDoneButton};

class WelcomePane final : public PagePane {
public:
    WelcomePane() : PagePane(kWelcomeTraits) {}

    void Enter() override {
        if (!link.window) AttachLink();
        PagePane::Enter();
    }

private:
    void AttachLink() {
        link.extendedStyle = HyperLink::kCommandButton;
        link.Attach(zeve::platform::ChildWithId(zeve::ZeveTopWindow(ref), welcome::kLearnMoreLink));
        AddTabStop(ref, welcome::kLearnMoreLink);
    }

    HyperLink link;
};

class HighlightsPane final : public PagePane {
public:
    explicit HighlightsPane(PVNPaneHost& paneHost) : PagePane(kHighlightsTraits), host(paneHost) {}

    void Enter() override {
        if (!hasPictures && !platform::IsHighContrast()) ShowPictures();
        PagePane::Enter();
    }

private:
    void ShowPictures() {
        ShowBitmapInControl(host, "highlight1", welcome::kStepsPicture);
        ShowBitmapInControl(host, "highlight2", welcome::kLanguagePicture);
        ShowBitmapInControl(host, "highlight3", welcome::kPrivacyPicture);
        hasPictures = true;
    }

    PVNPaneHost& host;
    bool hasPictures = false;
};

class WelcomeHost final : public PVNConcreteHost<WelcomeHost, PagePane> {
public:
    explicit WelcomeHost(std::string text) : PVNConcreteHost(std::move(text), "welcome") {}

    static std::span<const Command> Commands() {
        static constexpr Command kCommands[] = {
            {welcome::kBackButton, &WelcomeHost::OnBack},
            {welcome::kContinueButton, &WelcomeHost::OnContinue},
            {welcome::kDoneButton, &WelcomeHost::OnDone},
            {welcome::kQuitButton, &WelcomeHost::OnQuit},
            {welcome::kLearnMoreLink, &WelcomeHost::OnLearnMore},
            {kIdEnter, &WelcomeHost::OnEnterKey},
            {kIdEscape, &WelcomeHost::OnQuit},
        };
        return kCommands;
    }

private:
    std::intptr_t OnBack() { return DeliverEvent(kEventBack); }
    std::intptr_t OnContinue() { return DeliverEvent(kEventContinue); }
    std::intptr_t OnDone() { return DeliverEvent(kEventDone); }

    std::intptr_t OnQuit() {
        std::string_view event = kEventNone;
        if (ShowAlert(kAlertQuit, Window(), context)) {
            SetLong(*context, PvnWFKey_WorkFlowResult, kStatusUserQuit);
            event = kEventQuit;
        }
        return DeliverEvent(event);
    }

    std::intptr_t OnLearnMore() {
        OpenLocalPage("welcome");
        return DeliverEvent(kEventNone);
    }

    std::intptr_t OnEnterKey() { return Press(CurrentPane()->DefaultButton()); }
};

} // namespace

void PVNWelcomeWorkFlow::Build(bool) {
    LoadWorkFlowDictionary("Welcome");
    SetHost(std::make_unique<WelcomeHost>(LoadViewDescription("welcome")));
    SetTransitions();
    SetPanes();
    machine->startState = kStateWelcome;
}

void PVNWelcomeWorkFlow::SetTransitions() {
    machine->SetTransition(kStateWelcome, kStateHighlights, kEventContinue);
    machine->SetTransition(kStateHighlights, kStateReady, kEventContinue);
    machine->SetTransition(kStateHighlights, kWFState_BackUnset, kEventBack);
    machine->SetTransition(kStateReady, kWFState_Done, kEventDone);
    machine->SetTransition(kStateReady, kWFState_BackUnset, kEventBack);
    for (std::uint16_t state : {kStateWelcome, kStateHighlights, kStateReady}) {
        machine->SetTransition(state, kWFState_Exit, kEventQuit);
    }
}

void PVNWelcomeWorkFlow::SetPanes() {
    SetPane(kStateWelcome, std::make_unique<WelcomePane>());
    SetPane(kStateHighlights, std::make_unique<HighlightsPane>(*host));
    SetPane(kStateReady, std::make_unique<PagePane>(kReadyTraits));
}

} // namespace brixen::pvn::pvn_workflow
