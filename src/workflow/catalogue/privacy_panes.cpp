#include "workflow/catalogue/privacy_panes.h"

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
