#include "toolkit/dialog/window_procedures.h"

#include "toolkit/control_styles.h"
#include "toolkit/dialog/dialog_registry.h"
#include "toolkit/dialog_link.h"
#include "toolkit/event_record.h"
#include "toolkit/kept_exception.h"
#include "toolkit/dialog/modal_run.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/window_messages.h"

namespace brixen::zeve {

namespace {

// The low 32 bits of the host's result.
std::uint32_t AskHost(const DialogLink& dialog, NativeWindow window, std::uint32_t message,
                      std::uintptr_t wparam, std::intptr_t lparam) {
    EventRecord record;
    record.StorePointer(kKeyWindow, window);
    record.Store(kKeyEventRecord, message);
    record.Store(kKeyWparam, static_cast<std::int64_t>(wparam));
    record.Store(kKeyLparam, lparam);
    return static_cast<std::uint32_t>(dialog.callback(kWhatMessage, record, dialog.callbackParams));
}

// A handle has 32 bits of meaning, and the system widens it with its sign.
std::intptr_t BrushOf(std::uint32_t answer) { return static_cast<std::int32_t>(answer); }

bool IsColorMessage(std::uint32_t message) {
    return message >= kMessageColorEdit && message <= kMessageColorStatic;
}

std::intptr_t AnswerOfSystem(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                             std::intptr_t lparam) {
    // The keyboard rules of the system's dialogs ask the dialog itself to move the focus, and only the
    // procedure of its own class does so.
    if (message == kMessageNextDialogControl)
        return platform::DefaultDialogAnswer(window, message, wparam, lparam);
    return platform::DefaultAnswer(window, message, wparam, lparam);
}

std::intptr_t AnswerOfDialog(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                             std::intptr_t lparam) {
    const DialogLink* dialog = DialogOfWindow(window);
    if (dialog == nullptr) return platform::DefaultAnswer(window, message, wparam, lparam);
    // A loop whose window is gone would wait for ever.
    if (message == kMessageWindowGone && IsRunning(*dialog)) EndRun(*dialog, kQuitNegative);
    // After an exception the host hears nothing more until it was thrown to whom it belongs.
    if (dialog->callback == nullptr || IsExceptionKept())
        return AnswerOfSystem(window, message, wparam, lparam);

    // The host may delete the dialog meanwhile: from here on it is only compared.
    const std::uint32_t answer = AskHost(*dialog, window, message, wparam, lparam);
    switch (answer) {
    case kAnswerDefault: return AnswerOfSystem(window, message, wparam, lparam);
    case kAnswerEndPositive: EndRun(*dialog, kQuitPositive); return 0;
    case kAnswerEndNegative: EndRun(*dialog, kQuitNegative); return 0;
    default: return IsColorMessage(message) ? BrushOf(answer) : 0;
    }
}

// An area that stays unpainted would be asked for again and again.
std::intptr_t AnswerAfterException(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                   std::intptr_t lparam) {
    return message == kMessagePaint ? platform::DefaultAnswer(window, message, wparam, lparam) : 0;
}

bool IsKeyDown(std::uint32_t message) {
    return message == kMessageKeyDown || message == kMessageSystemKeyDown;
}

bool IsKeyUp(std::uint32_t message) { return message == kMessageKeyUp || message == kMessageSystemKeyUp; }

// Null when no control can be reached. The walk comes back to its start or, where that is no tab stop itself,
// runs in a circle: then it ends at the control it met first.
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

void HandKeyOn(NativeWindow control, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) {
    const bool isAlt = wparam == kKeyAlt;
    if (!IsKeyDown(message) && !(IsKeyUp(message) && isAlt)) return;
    const NativeWindow parent = platform::ParentOf(control);
    platform::Send(parent, message, wparam, lparam);
    // Alt goes down twice: kept, hosts may count on it.
    if (IsKeyDown(message) && isAlt) platform::Send(parent, message, wparam, lparam);
}

void TellWhetherEmpty(NativeWindow edit) {
    const bool isEmpty = platform::Send(edit, kMessageGetTextLength, 0, 0) == 0;
    platform::Send(platform::ParentOf(edit), kMessageEditKeyUp, isEmpty ? 1 : 0,
                   reinterpret_cast<std::intptr_t>(platform::EditBoxOf(edit)));
}

} // namespace

void InstallWindowProcedures() noexcept {
    platform::SetWindowProcedures({DialogProcedure, ControlProcedure, EditProcedure});
}

std::intptr_t DialogProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                              std::intptr_t lparam) noexcept {
    try {
        return AnswerOfDialog(window, message, wparam, lparam);
    } catch (...) {
        KeepException();
        AbortInnermostRun();
        return AnswerAfterException(window, message, wparam, lparam);
    }
}

std::intptr_t ControlProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                               std::intptr_t lparam) noexcept {
    // The system's answer would destroy the control, and leave a pane that cannot be finished any more.
    if (message == kMessageClose) return 0;
    HandKeyOn(window, message, wparam, lparam);
    if (message == kMessageCharacter && wparam == kKeyTab) MoveFocus(window);
    return platform::SavedAnswer(window, message, wparam, lparam);
}

std::intptr_t EditProcedure(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                            std::intptr_t lparam) noexcept {
    if (IsKeyUp(message)) TellWhetherEmpty(window);
    return ControlProcedure(window, message, wparam, lparam);
}

} // namespace brixen::zeve
