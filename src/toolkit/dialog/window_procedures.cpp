#include "toolkit/dialog/window_procedures.h"

#include "toolkit/control_styles.h"
#include "toolkit/dialog/dialog_registry.h"
#include "toolkit/dialog/modal_run.h"
#include "toolkit/dialog/procedure_boundary.h"
#include "toolkit/dialog_link.h"
#include "toolkit/event_record.h"
#include "toolkit/kept_exception.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"

#include <utility>

namespace brixen::zeve {

namespace {

// Returns the low 32 bits of the host's result.
std::uint32_t AskHost(const DialogLink& dialog, NativeWindow window, std::uint32_t message,
                      std::uintptr_t wparam, std::intptr_t lparam) {
    EventRecord record;
    record.StorePointer(kKeyWindow, window);
    record.Store(kKeyEventRecord, message);
    record.Store(kKeyWparam, static_cast<std::int64_t>(wparam));
    record.Store(kKeyLparam, lparam);
    return static_cast<std::uint32_t>(dialog.callback(kWhatMessage, record, dialog.callbackParams));
}

// A handle is 32 bits wide; the system widens it with its sign.
std::intptr_t BrushOf(std::uint32_t answer) { return static_cast<std::int32_t>(answer); }

bool IsColorMessage(std::uint32_t message) {
    return message >= kMessageColorEdit && message <= kMessageColorStatic;
}

// Notes the focus of a dialog that is no longer active. Returns whether a dialog that is active again has the
// focus back; the system's answer would give it to the dialog itself.
bool KeepFocusOver(NativeWindow window, std::uintptr_t wparam) {
    DialogLink* const dialog = DialogOfWindow(window);
    if (dialog == nullptr) return false;
    const bool isActive = (wparam & 0xFFFF) != 0;
    if (!isActive) {
        const NativeWindow focused = platform::FocusedWindow();
        if (platform::ParentOf(focused) == window) dialog->focusWhenInactive = focused;
        return false;
    }
    const NativeWindow kept = std::exchange(dialog->focusWhenInactive, nullptr);
    if (platform::ParentOf(kept) != window || !platform::IsShown(kept) || !platform::IsEnabled(kept)) {
        return false;
    }
    platform::Focus(kept);
    return true;
}

std::intptr_t AnswerOfSystem(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                             std::intptr_t lparam) {
    // The keyboard rules of the system's dialogs ask the dialog itself to move the focus, and only the
    // procedure of the system's own class of dialogs does so.
    if (message == kMessageNextDialogControl) {
        return platform::DefaultDialogAnswer(window, message, wparam, lparam);
    }
    if (message == kMessageActivate && KeepFocusOver(window, wparam)) return 0;
    return platform::DefaultAnswer(window, message, wparam, lparam);
}

std::intptr_t AnswerOfDialog(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                             std::intptr_t lparam) {
    const DialogLink* dialog = DialogOfWindow(window);
    if (dialog == nullptr) return platform::DefaultAnswer(window, message, wparam, lparam);
    if (message == kMessageWindowGone) EndModalRun(*dialog, kEndNegative);
    // After an exception the host is not called until a run or an operation has thrown that exception.
    if (dialog->callback == nullptr || IsExceptionKept()) {
        return AnswerOfSystem(window, message, wparam, lparam);
    }

    // The host may delete the dialog: after the call its address is only compared.
    const std::uint32_t answer = AskHost(*dialog, window, message, wparam, lparam);
    switch (answer) {
    case kAnswerDefault: return AnswerOfSystem(window, message, wparam, lparam);
    case kAnswerEndPositive: EndModalRun(*dialog, kEndPositive); return 0;
    case kAnswerEndNegative: EndModalRun(*dialog, kEndNegative); return 0;
    default: return IsColorMessage(message) ? BrushOf(answer) : 0;
    }
}

bool IsKeyDown(std::uint32_t message) {
    return message == kMessageKeyDown || message == kMessageSystemKeyDown;
}

bool IsKeyUp(std::uint32_t message) { return message == kMessageKeyUp || message == kMessageSystemKeyUp; }

// Returns null if no control can be reached. The walk returns to its start. If the start is no tab stop, the
// walk never meets it and ends at the first control of the walk.
NativeWindow NextEnabledControl(NativeWindow dialog, NativeWindow control, bool backwards) {
    const NativeWindow first = platform::NextTabStop(dialog, control, backwards);
    NativeWindow next = first;
    while (next != nullptr && next != control && !platform::IsEnabled(next)) {
        next = platform::NextTabStop(dialog, next, backwards);
        if (next == first) break;
    }
    return next;
}

void MoveFocus(NativeWindow control) {
    const NativeWindow next =
        NextEnabledControl(platform::ParentOf(control), control, platform::IsShiftDown());
    platform::Focus(next);
    platform::Send(next, kButtonSetStyle, style::kDefaultPushButton, kPaintAnew);
}

void PassKeyToDialog(NativeWindow control, std::uint32_t message, std::uintptr_t wparam,
                     std::intptr_t lparam) {
    const bool isAlt = wparam == kKeyAlt;
    if (!IsKeyDown(message) && !(IsKeyUp(message) && isAlt)) return;
    const NativeWindow parent = platform::ParentOf(control);
    platform::Send(parent, message, wparam, lparam);
    // Kept: the dialog receives a press of Alt twice. Hosts may rely on it.
    if (IsKeyDown(message) && isAlt) platform::Send(parent, message, wparam, lparam);
}

void SendWhetherEmpty(NativeWindow edit) {
    const bool isEmpty = platform::Send(edit, kMessageGetTextLength, 0, 0) == 0;
    platform::Send(platform::ParentOf(edit), kMessageEditKeyUp, isEmpty ? 1 : 0,
                   reinterpret_cast<std::intptr_t>(platform::EditBoxOf(edit)));
}

std::intptr_t AnswerOfControl(NativeWindow control, std::uint32_t message, std::uintptr_t wparam,
                              std::intptr_t lparam) {
    // The system's answer would destroy the control, and the user could no longer finish the pane.
    if (message == kMessageClose) return 0;
    PassKeyToDialog(control, message, wparam, lparam);
    if (message == kMessageCharacter && wparam == kKeyTab) MoveFocus(control);
    return platform::SavedAnswer(control, message, wparam, lparam);
}

std::intptr_t AnswerOfEdit(NativeWindow edit, std::uint32_t message, std::uintptr_t wparam,
                           std::intptr_t lparam) {
    if (IsKeyUp(message)) SendWhetherEmpty(edit);
    return AnswerOfControl(edit, message, wparam, lparam);
}

} // namespace

void InstallWindowProcedures() noexcept {
    platform::SetWindowProcedures({DialogProcedure, ControlProcedure, EditProcedure});
}

std::intptr_t DialogProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                              std::intptr_t lparam) noexcept {
    return KeepingExceptions(window, message, wparam, lparam, AnswerOfDialog);
}

std::intptr_t ControlProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                               std::intptr_t lparam) noexcept {
    return KeepingExceptions(window, message, wparam, lparam, AnswerOfControl);
}

std::intptr_t EditProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                            std::intptr_t lparam) noexcept {
    return KeepingExceptions(window, message, wparam, lparam, AnswerOfEdit);
}

} // namespace brixen::zeve
