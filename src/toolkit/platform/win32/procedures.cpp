#include "toolkit/platform/win32/procedures.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/foreign_procedures.h"
#include "toolkit/platform/win32/handles.h"

namespace brixen::zeve::platform {

namespace {

constexpr wchar_t kSavedProcedureProperty[] = L"FISavedWindowProc";
constexpr wchar_t kEditBoxProperty[] = L"FISavedCEveEdit";

constinit WindowProcedures gProcedures;

LRESULT Call(WindowProcedure procedure, HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return procedure != nullptr ? procedure(Opaque(window), message, wparam, lparam)
                                : DefWindowProcW(window, message, wparam, lparam);
}

LRESULT CALLBACK ControlTrampoline(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return Call(gProcedures.control, window, message, wparam, lparam);
}

LRESULT CALLBACK EditTrampoline(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return Call(gProcedures.edit, window, message, wparam, lparam);
}

LONG_PTR ReplaceProcedure(NativeWindow window, WNDPROC procedure) noexcept {
    return SetWindowLongPtrW(Handle(window), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

} // namespace

LRESULT CALLBACK DialogTrampoline(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    return Call(gProcedures.dialog, window, message, wparam, lparam);
}

void SetWindowProcedures(const WindowProcedures& procedures) noexcept { gProcedures = procedures; }

void TakeDialogProcedure(NativeWindow window) noexcept { ReplaceProcedure(window, DialogTrampoline); }

void TakeControlProcedure(NativeWindow window) noexcept {
    if (const LONG_PTR saved = ReplaceProcedure(window, ControlTrampoline))
        SetPropW(Handle(window), kSavedProcedureProperty, reinterpret_cast<HANDLE>(saved));
}

void TakeEditProcedure(NativeWindow window, void* box) noexcept {
    SetPropW(Handle(window), kEditBoxProperty, box);
    ReplaceProcedure(window, EditTrampoline);
}

void* EditBoxOf(NativeWindow window) noexcept { return GetPropW(Handle(window), kEditBoxProperty); }

std::intptr_t SavedAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                          std::intptr_t lparam) {
    const HANDLE saved = GetPropW(Handle(window), kSavedProcedureProperty);
    if (saved == nullptr) return 0;
    return CallingProcedures([=] {
        return CallWindowProcW(reinterpret_cast<WNDPROC>(saved), Handle(window), message, wparam, lparam);
    });
}

std::intptr_t DefaultAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                            std::intptr_t lparam) {
    return CallingProcedures([=] { return DefWindowProcW(Handle(window), message, wparam, lparam); });
}

std::intptr_t DefaultDialogAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                  std::intptr_t lparam) {
    // A window of a class of our own has no room for the data of the system's dialog procedure.
    const bool isDialogClass = GetClassLongPtrW(Handle(window), GCL_CBWNDEXTRA) >= DLGWINDOWEXTRA;
    const auto answer = isDialogClass ? DefDlgProcW : DefWindowProcW;
    return CallingProcedures([=] { return answer(Handle(window), message, wparam, lparam); });
}

} // namespace brixen::zeve::platform
