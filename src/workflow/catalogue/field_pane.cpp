#include "workflow/catalogue/field_pane.h"

#include "toolkit/control_styles.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/controls/hyper_link.h"
#include "workflow/panes/alert.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/platform/message_numbers.h"

#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr AlertEntry kFieldAlert{"FieldAlert", "field_alert", true};
constexpr std::intptr_t kToItsEnd = -1; // of a selection

bool HasFocusNow(Notification notification) {
    return notification.code == kNotificationPopupHasFocus ||
           notification.code == kNotificationEditHasFocus || notification.code == kNotificationButtonHasFocus;
}

} // namespace

zeve::NativeWindow FieldPane::ControlOf(std::uint16_t viewId) const {
    return zeve::platform::ChildWithId(zeve::ZeveTopWindow(ref), viewId);
}

void FieldPane::Enter() {
    PagePane::Enter();
    HaveFocusReported();
    if (firstFocus != kNoControl) {
        zeve::platform::Post(zeve::ZeveTopWindow(ref), kMessageFirstFocus, 0, 0);
    }
}

// Check boxes and radio buttons report the focus only with this style, and the frame of the default button
// follows these reports. Push buttons have frames of their own, and the dialog knows them by their style.
void FieldPane::HaveFocusReported() {
    namespace style = zeve::style;
    for (zeve::NativeWindow child = zeve::platform::TopChild(zeve::ZeveTopWindow(ref)); child;
         child = zeve::platform::NextSibling(child)) {
        const std::uint32_t old = zeve::platform::StyleOf(child);
        const bool isMark = zeve::platform::IsOfClass(child, u"button") && (old & style::kButtonKinds) != 0;
        if (isMark) zeve::platform::SetStyle(child, old | style::kButtonNotifies);
    }
}

void FieldPane::TakeFirstFocus() {
    const std::uint16_t field = std::exchange(fieldToCorrect, kNoControl);
    if (field != kNoControl) return FocusWhole(field);
    if (firstFocus != kNoControl) zeve::platform::Focus(FirstControl());
}

void FieldPane::FocusWhole(std::uint16_t field) const {
    zeve::platform::Focus(ControlOf(field));
    zeve::platform::Send(ControlOf(field), zeve::kEditSetSelection, 0, kToItsEnd);
}

void FieldPane::OnMessage(const WindowMessage& message) {
    if (message.number == zeve::kMessageNextDialogControl) OnTab();
    if (message.number == zeve::kMessageCommand) OnNotification(NotificationOf(message.wparam));
}

// The keyboard rules frame the button that has the focus, and none when another control has it. Enter presses
// the default button there, so it is framed here. The rules look for the frame that they take away, so the
// default button must not have it while the focus moves.
void FieldPane::OnTab() {
    if (DefaultButton() == kNoButton) return;
    zeve::platform::Send(ControlOf(DefaultButton()), zeve::kButtonSetStyle, zeve::style::kPushButton,
                         zeve::kPaintAnew);
}

void FieldPane::OnNotification(Notification notification) {
    if (!HasFocusNow(notification) || DefaultButton() == kNoButton) return;
    zeve::platform::Post(ControlOf(DefaultButton()), zeve::kButtonSetStyle, zeve::style::kDefaultPushButton,
                         zeve::kPaintAnew);
}

void FieldPane::AttachLink(HyperLink& link, std::uint16_t viewId) {
    if (link.window) return;
    link.extendedStyle = HyperLink::kCommandButton;
    link.Attach(ControlOf(viewId));
    AddTabStop(ref, viewId);
}

void FieldPane::ShowFault(const FieldFault& fault) {
    const zeve::NativeWindow window = zeve::ZeveTopWindow(ref);
    const AlertText texts[] = {{"alert_title", fault.alert.title}, {"alert_text", fault.alert.text}};
    static_cast<void>(ShowAlert(kFieldAlert, window, context, texts));
    // After the message by which the alert gives the focus back to the default button.
    fieldToCorrect = fault.field;
    zeve::platform::Post(window, kMessageFirstFocus, 0, 0);
}

} // namespace brixen::pvn::pvn_workflow
