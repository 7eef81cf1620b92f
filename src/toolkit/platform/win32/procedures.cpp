#include "toolkit/platform/win32/procedures.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/platform/win32/foreign_procedures.h"
#include "toolkit/platform/win32/handles.h"

namespace brixen::zeve::platform {

namespace {

constexpr wchar_t kSavedProcedureProperty[] = L"FISavedWindowProc";
constexpr wchar_t kEditBoxProperty[] = L"FISavedCEveEdit";
constexpr wchar_t kLayerProperty[] = L"FILayerProc";
constexpr wchar_t kLayerObjectProperty[] = L"FILayerObject";
constexpr wchar_t kBelowLayerProperty[] = L"FISavedLayerProc";

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

WNDPROC ProcedureBelowLayer(HWND window) noexcept {
    return reinterpret_cast<WNDPROC>(GetPropW(window, kBelowLayerProperty));
}

void ForgetLayer(HWND window) noexcept {
    RemovePropW(window, kLayerProperty);
    RemovePropW(window, kLayerObjectProperty);
}

LRESULT CALLBACK LayerTrampoline(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const auto layer = reinterpret_cast<LayerProcedure>(GetPropW(window, kLayerProperty));
    const WNDPROC below = ProcedureBelowLayer(window);
    const LRESULT answer = layer != nullptr ? layer(GetPropW(window, kLayerObjectProperty), Opaque(window),
                                                    message, wparam, lparam)
                                            : CallWindowProcW(below, window, message, wparam, lparam);
    if (message == WM_NCDESTROY) {
        ForgetLayer(window);
        RemovePropW(window, kBelowLayerProperty);
    }
    return answer;
}

// Puts the trampoline above the procedure of the window, unless a dropped layer left it there.
bool PutLayerTrampoline(HWND window) noexcept {
    if (ProcedureBelowLayer(window) != nullptr) return true;
    const LONG_PTR below = GetWindowLongPtrW(window, GWLP_WNDPROC);
    if (below == 0 || !SetPropW(window, kBelowLayerProperty, reinterpret_cast<HANDLE>(below))) return false;
    if (ReplaceProcedure(Opaque(window), LayerTrampoline) != 0) return true;
    RemovePropW(window, kBelowLayerProperty);
    return false;
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

bool TakeLayerProcedure(NativeWindow window, LayerProcedure layer, void* object) noexcept {
    const HWND handle = Handle(window);
    if (GetPropW(handle, kLayerProperty) != nullptr) return false;
    if (SetPropW(handle, kLayerObjectProperty, object) &&
        SetPropW(handle, kLayerProperty, reinterpret_cast<HANDLE>(layer)) && PutLayerTrampoline(handle))
        return true;
    ForgetLayer(handle);
    return false;
}

void DropLayer(NativeWindow window) noexcept {
    const HWND handle = Handle(window);
    ForgetLayer(handle);
    // Below a procedure of another the trampoline stays and passes everything on.
    if (GetWindowLongPtrW(handle, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(LayerTrampoline)) return;
    ReplaceProcedure(window, ProcedureBelowLayer(handle));
    RemovePropW(handle, kBelowLayerProperty);
}

std::intptr_t AnswerBelowLayer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                               std::intptr_t lparam) {
    const HWND handle = Handle(window);
    WNDPROC below = ProcedureBelowLayer(handle);
    if (below == nullptr) below = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(handle, GWLP_WNDPROC));
    if (below == nullptr) return 0;
    return CallingProcedures([=] { return CallWindowProcW(below, handle, message, wparam, lparam); });
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
