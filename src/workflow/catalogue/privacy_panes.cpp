#include "workflow/catalogue/privacy_panes.h"

#include "toolkit/control_styles.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/catalogue/privacy_data.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/panes/pane_host.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/platform/pane_platform.h"
#include "workflow/resources/resource_layer.h"

namespace brixen::pvn::pvn_workflow::privacy {

namespace {

constexpr std::uint16_t kChooseButtons[] = {kContinueButton, kCancelButton};
constexpr std::uint16_t kStatementButtons[] = {kBackButton, kAcceptButton, kDeclineButton, kCancelButton};
constexpr std::uint16_t kMissingButtons[] = {kReturnButton, kCancelButton};
constexpr std::uint16_t kNoneButtons[] = {kCancelButton};

constexpr PageTraits kChooseTraits{"$$$/pvn/privacy/choose/window_title", kChoosePage, kChooseButtons,
                                   kContinueButton};
constexpr PageTraits kStatementTraits{"$$$/pvn/privacy/statement/window_title", kStatementPage,
                                      kStatementButtons, kNoButton};

} // namespace

constexpr PageTraits kMissingTraits{"$$$/pvn/privacy/missing/window_title", kMissingPage, kMissingButtons,
                                    kReturnButton};
constexpr PageTraits kNoneTraits{"$$$/pvn/privacy/none/window_title", kNonePage, kNoneButtons, kCancelButton};

zeve::NativeWindow PrivacyPane::ControlOf(std::uint16_t viewId) const {
    return zeve::platform::ChildWithId(zeve::ZeveTopWindow(ref), viewId);
}

void PrivacyPane::Enter() {
    PagePane::Enter();
    if (firstFocus != kNoControl) {
        zeve::platform::Post(zeve::ZeveTopWindow(ref), kMessageFirstFocus, 0, 0);
    }
}

void PrivacyPane::TakeFirstFocus() {
    if (firstFocus != kNoControl) zeve::platform::Focus(ControlOf(firstFocus));
}

// The keyboard rules frame the button that has the focus, and none when another control has it. Enter presses
// the default button there, so it is framed here. The rules look for the frame that they take away, so the
// default button must not have it while the focus moves.
void PrivacyPane::OnTab() {
    if (DefaultButton() == kNoButton) return;
    zeve::platform::Send(ControlOf(DefaultButton()), zeve::kButtonSetStyle, zeve::style::kPushButton,
                         zeve::kPaintAnew);
}

void PrivacyPane::OnNotification(Notification notification) {
    const bool isPopup = notification.id == kLanguagePopup && notification.code == kNotificationPopupHasFocus;
    if (!isPopup || DefaultButton() == kNoButton) return;
    zeve::platform::Post(ControlOf(DefaultButton()), zeve::kButtonSetStyle, zeve::style::kDefaultPushButton,
                         zeve::kPaintAnew);
}

ChoosePane::ChoosePane(PVNPaneHost& paneHost, PrivacyData& runData)
    : PrivacyPane(kChooseTraits, kLanguagePopup), host(paneHost), data(runData) {}

void ChoosePane::Enter() {
    if (!isFilled) {
        FillPopup();
        if (!platform::IsHighContrast()) ShowBitmapInControl(host, "highlight3", kChoosePicture);
    }
    isFilled = true;
    PrivacyPane::Enter();
}

void ChoosePane::FillPopup() {
    const zeve::NativeWindow popup = ControlOf(kLanguagePopup);
    for (const PrivacyLanguage& row : data.languages) {
        zeve::platform::Send(popup, zeve::kComboAddString, 0,
                             reinterpret_cast<std::intptr_t>(row.label.c_str()));
    }
    zeve::platform::Send(popup, zeve::kComboSetSelection, RowOfBestLocale(data.languages, WantedLanguage()),
                         0);
}

std::string ChoosePane::WantedLanguage() const {
    std::string language;
    if (!GetString(*context, PvnWFKey_PrivacyLanguage, language)) {
        GetString(*context, PvnWFKey_Language, language);
    }
    return language;
}

void ChoosePane::TakeChoice() {
    const std::intptr_t row = zeve::platform::Send(ControlOf(kLanguagePopup), zeve::kComboGetSelection, 0, 0);
    if (row < 0 || static_cast<std::size_t>(row) >= data.languages.size()) return;
    data.language = data.languages[static_cast<std::size_t>(row)].locale;
    SetString(*context, PvnWFKey_PrivacyLanguage, data.language);
    data.statement = TextForField(LoadPrivacyStatement(data.language));
}

StatementPane::StatementPane(const PrivacyData& runData)
    : PrivacyPane(kStatementTraits, kLeftToRightField), data(runData) {}

void StatementPane::Enter() {
    const bool isRightToLeft = IsWrittenRightToLeft(data.language);
    group = isRightToLeft ? kRightToLeftGroup : kLeftToRightGroup;
    firstFocus = isRightToLeft ? kRightToLeftField : kLeftToRightField;
    zeve::platform::SetText(ControlOf(firstFocus), data.statement.c_str());
    selection = {};
    PrivacyPane::Enter();
    SetEnabled(ref, group, true);
    SetVisible(ref, group, true);
}

void StatementPane::Leave() {
    SetVisible(ref, group, false);
    SetEnabled(ref, group, false);
    PrivacyPane::Leave();
}

// The keyboard rules select all text of a field that Tab reaches, for typing over it. A reader goes on where
// he was, and a field that cannot be edited has no caret.
void StatementPane::OnNotification(Notification notification) {
    if (notification.id != firstFocus) return;
    const zeve::NativeWindow field = ControlOf(notification.id);
    if (notification.code == kNotificationEditLosesFocus) {
        zeve::platform::Send(field, zeve::kEditGetSelection,
                             reinterpret_cast<std::uintptr_t>(&selection.start),
                             reinterpret_cast<std::intptr_t>(&selection.end));
    }
    if (notification.code == kNotificationEditHasFocus) {
        zeve::platform::Send(field, zeve::kEditSetSelection, selection.start,
                             static_cast<std::intptr_t>(selection.end));
        platform::HideCaret(field);
    }
}

} // namespace brixen::pvn::pvn_workflow::privacy
