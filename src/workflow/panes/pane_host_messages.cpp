// The way of a message through the pane host: from the toolkit's callback to the message map.
#include "frame/stop_watch.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/zeve_callback.h"
#include "workflow/panes/dialog_rules.h"
#include "workflow/panes/pane_host.h"
#include "workflow/platform/message_numbers.h"

namespace brixen::pvn::pvn_workflow {

namespace {

bool IsButtonDown(std::uint32_t number) {
    return number == kMessageLeftButtonDown || number == kMessageRightButtonDown ||
           number == kMessageMiddleButtonDown || number == kMessageFrameButtonDown;
}

bool IsUserEvent(const WindowMessage& message) {
    switch (message.number) {
    case zeve::kMessageKeyDown:
    case zeve::kMessageSystemKeyDown: return true;
    case zeve::kMessageCommand: return HighWord(message.wparam) <= kNotificationKey;
    case kMessageParentNotify: return IsButtonDown(LowWord(message.wparam));
    default: return IsButtonDown(message.number);
    }
}

// The press of Enter is the dialog's by the keyboard rules, and a link acts when the key is released: the
// press must not press a button as well. Of all controls, only a link wants characters and nothing else.
bool IsLinkFocused() {
    const std::intptr_t wants =
        zeve::platform::Send(zeve::platform::FocusedWindow(), kMessageDialogCode, 0, 0);
    return (wants & ~kIsAButton) == kWantsCharacters;
}

} // namespace

std::uint64_t PVNPaneHost::HostEventCallback(std::int32_t what, zeve::EventRecord& record, void* params) {
    PVNPaneHost& host = *static_cast<CallbackParams*>(params)->host;
    switch (what) {
    case zeve::kWhatMessage: return static_cast<std::uint64_t>(host.RouteHostMessage(MessageOf(record)));
    case zeve::kWhatModalRun: return static_cast<std::uint64_t>(host.OnInitDialog());
    case zeve::kWhatViewMade: zeve::ZeveFillPlace(record); return 0; // a pane makes it a HyperLink
    default: return 0;
    }
}

std::intptr_t PVNPaneHost::RouteHostMessage(const WindowMessage& message) {
    NoteFirstUserEvent(message);
    std::intptr_t result = 0;
    const bool isHandled = ProcessWindowMessage(message, result);
    if (message.number == zeve::kMessageSetFocus && LowWord(message.wparam) == 0) {
        FocusDefaultButton(message.window);
    }
    if (isHandled && message.number == zeve::kMessageColorStatic) return result;
    if (result == zeve::kAnswerEndPositive || result == zeve::kAnswerEndNegative) {
        zeve::platform::SetInputMethodOpen(message.window, true);
        window = nullptr;
        return result;
    }
    return isHandled ? 0 : zeve::kAnswerDefault;
}

void PVNPaneHost::NoteFirstUserEvent(const WindowMessage& message) {
    if (sawUser || !IsUserEvent(message)) return;
    sawUser = true;
    LogClock(kFirstUserEventLabel);
}

const PVNPaneHost::MapEntry PVNPaneHost::kMessageMap[] = {
    {zeve::kMessageInitDialog, &PVNPaneHost::OnInitDialogMessage},
    {zeve::kMessageColorStatic, &PVNPaneHost::OnColorStatic},
    {zeve::kMessagePaint, &PVNPaneHost::OnPaint},
    {zeve::kMessageEraseBackground, &PVNPaneHost::OnEraseBackground},
    {kMessageSystemColors, &PVNPaneHost::OnSystemColors},
    {zeve::kMessageKeyDown, &PVNPaneHost::OnKeyDown},
    {zeve::kMessageClose, &PVNPaneHost::OnClose},
    {kMessageFirstFocus, &PVNPaneHost::OnFirstFocusMessage},
    {zeve::kMessageCommand, &PVNPaneHost::OnCommand},
};

bool PVNPaneHost::ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) {
    for (const MapEntry& entry : kMessageMap) {
        if (entry.number == message.number) return (this->*entry.handle)(message, result);
    }
    return false;
}

bool PVNPaneHost::OnInitDialogMessage(const WindowMessage&, std::intptr_t& result) {
    result = OnInitDialog();
    return true;
}

// The system tells top-level windows alone, and controls that keep a color read it again.
bool PVNPaneHost::OnSystemColors(const WindowMessage& message, std::intptr_t&) {
    for (zeve::NativeWindow child = zeve::platform::TopChild(message.window); child;
         child = zeve::platform::NextSibling(child)) {
        zeve::platform::Send(child, message.number, message.wparam, message.lparam);
    }
    return false;
}

bool PVNPaneHost::OnKeyDown(const WindowMessage& message, std::intptr_t&) {
    zeve::platform::SetInputMethodOpen(message.window, false);
    return true;
}

// Intentional: the window cannot be closed from its frame.
bool PVNPaneHost::OnClose(const WindowMessage&, std::intptr_t&) { return true; }

bool PVNPaneHost::OnFirstFocusMessage(const WindowMessage&, std::intptr_t&) {
    if (!zeve::platform::IsShown(window)) return true;
    zeve::platform::Focus(window);
    OnFirstFocus();
    return true;
}

// A command has no pane while the controls are being made, and after the end of the run.
bool PVNPaneHost::OnCommand(const WindowMessage& message, std::intptr_t& result) {
    if (!window) return false;
    const Notification notification = NotificationOf(message.wparam);
    if (notification.id == kIdEnter && IsLinkFocused()) return true;
    return HandleCommand(notification, result);
}

} // namespace brixen::pvn::pvn_workflow
