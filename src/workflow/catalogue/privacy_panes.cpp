#include "workflow/catalogue/privacy_panes.h"

#include "toolkit/control_styles.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/window_messages.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "workflow/catalogue/privacy_data.h"
#include "workflow/context/context_keys.h"
#include "workflow/panes/host_messages.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/context/workflow_context.h"

namespace brixen::pvn::pvn_workflow::privacy {

namespace {

constexpr std::uint16_t kChooseButtons[] = {kContinueButton, kCancelButton};
constexpr std::uint16_t kStatementButtons[] = {kBackButton, kAcceptButton, kDeclineButton, kCancelButton};
constexpr std::uint16_t kMissingButtons[] = {kReturnButton, kCancelButton};
constexpr std::uint16_t kNoneButtons[] = {kCancelButton};

constexpr PageTraits kChooseTraits{"$$$/pvn/privacy/choose/window_title", kChoosePage, kChooseButtons,
                                   kContinueButton};
constexpr PageTraits kStatementTraits{"$$$/pvn/privacy/statement/window_title", kStatementPage,
                                      kStatementButtons, kAcceptButton};

} // namespace

constexpr PageTraits kMissingTraits{"$$$/pvn/privacy/missing/window_title", kMissingPage, kMissingButtons,
                                    kReturnButton};
constexpr PageTraits kNoneTraits{"$$$/pvn/privacy/none/window_title", kNonePage, kNoneButtons, kCancelButton};

zeve::NativeWindow PrivacyPane::ControlOf(std::uint16_t viewId) const {
    return zeve::platform::ChildWithId(zeve::ZeveTopWindow(ref), viewId);
}

// The keyboard rules frame the button that has the focus, and none when another control has it; there Enter
// presses the default button, which is framed for that reason. They look for the frame that they take away,
// so the button must not have it while the focus moves.
void PrivacyPane::OnTab() {
    zeve::platform::Send(ControlOf(DefaultButton()), zeve::kButtonSetStyle, zeve::style::kPushButton,
                         zeve::kPaintAnew);
}

void PrivacyPane::OnNotification(std::uint16_t id, std::uint16_t notification) {
    const bool isPopup = id == kLanguagePopup && notification == kNotificationPopupHasFocus;
    const bool isField =
        (id == kLeftToRightField || id == kRightToLeftField) && notification == kNotificationEditHasFocus;
    if (isPopup || isField)
        zeve::platform::Post(ControlOf(DefaultButton()), zeve::kButtonSetStyle,
                             zeve::style::kDefaultPushButton, zeve::kPaintAnew);
}

ChoosePane::ChoosePane(PrivacyData& runData) : PrivacyPane(kChooseTraits), data(runData) {}

void ChoosePane::Enter() {
    if (!isFilled) FillPopup();
    isFilled = true;
    PrivacyPane::Enter();
}

void ChoosePane::FillPopup() {
    const zeve::NativeWindow popup = ControlOf(kLanguagePopup);
    for (const PrivacyLanguage& row : data.languages) {
        zeve::platform::Send(popup, zeve::kComboAddString, 0,
                             reinterpret_cast<std::intptr_t>(row.label.c_str()));
    }
    zeve::platform::Send(popup, zeve::kComboSetSelection, RowOfLanguage(data.languages, WantedLanguage()), 0);
}

std::string ChoosePane::WantedLanguage() const {
    std::string language;
    if (!GetString(*context, PvnWFKey_PrivacyLanguage, language))
        GetString(*context, PvnWFKey_Language, language);
    return language;
}

void ChoosePane::TakeChoice() {
    const std::intptr_t row = zeve::platform::Send(ControlOf(kLanguagePopup), zeve::kComboGetSelection, 0, 0);
    if (row < 0 || static_cast<std::size_t>(row) >= data.languages.size()) return;
    data.language = data.languages[static_cast<std::size_t>(row)].locale;
    SetString(*context, PvnWFKey_PrivacyLanguage, data.language);
    data.statement = TextForField(LoadPrivacyStatement(data.language));
}

StatementPane::StatementPane(const PrivacyData& runData) : PrivacyPane(kStatementTraits), data(runData) {}

void StatementPane::Enter() {
    fieldId = IsWrittenRightToLeft(data.language) ? kRightToLeftField : kLeftToRightField;
    zeve::platform::SetText(ControlOf(fieldId), data.statement.c_str());
    selection = {};
    PrivacyPane::Enter();
    SetEnabled(ref, fieldId, true);
    SetVisible(ref, fieldId, true);
    zeve::platform::Post(zeve::ZeveTopWindow(ref), kMessageFirstFocus, 0, 0);
}

void StatementPane::Leave() {
    SetVisible(ref, fieldId, false);
    SetEnabled(ref, fieldId, false);
    PrivacyPane::Leave();
}

void StatementPane::TakeFirstFocus() { zeve::platform::Focus(ControlOf(fieldId)); }

// The keyboard rules select all text of a field that Tab reaches, which serves who wants to type over it. A
// reader wants to go on where he was.
void StatementPane::OnNotification(std::uint16_t id, std::uint16_t notification) {
    PrivacyPane::OnNotification(id, notification);
    if (id != fieldId) return;
    const zeve::NativeWindow field = ControlOf(fieldId);
    if (notification == kNotificationEditLosesFocus)
        zeve::platform::Send(field, zeve::kEditGetSelection,
                             reinterpret_cast<std::uintptr_t>(&selection.start),
                             reinterpret_cast<std::intptr_t>(&selection.end));
    if (notification == kNotificationEditHasFocus)
        zeve::platform::Send(field, zeve::kEditSetSelection, selection.start,
                             static_cast<std::intptr_t>(selection.end));
}

} // namespace brixen::pvn::pvn_workflow::privacy
