// What dialogs and boxes need of the window system, in pixels and UTF-16.
//
// - A null window is harmless everywhere: the call does nothing or returns zero.
// - Every call belongs to the thread that made the windows.
// - A function that is not noexcept can run window procedures of the host. It throws what they throw, as an
// exception
//   derived from std::exception; also for 0xE06D7363, the exception of another compiler, where the function
//   sends or dispatches a message itself. What a procedure throws that the system calls back (while it shows,
//   enables, focuses or destroys a window) may end the process. The toolkit's own procedures let nothing out.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brixen::zeve::platform {

struct Rectangle {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    std::int32_t Width() const { return right - left; }
    std::int32_t Height() const { return bottom - top; }
};

struct Extent {
    std::int32_t width = 0, height = 0;
};

// --- Windows ---

struct WindowRequest {
    std::uint32_t extendedStyle = 0;
    const char16_t* className = u"";
    const char16_t* text = u"";
    std::uint32_t style = 0;
    std::int32_t left = 0, top = 0, width = 0, height = 0;
    NativeWindow parent = nullptr; // the owner of a top-level window
    std::uint16_t id = 0;          // control id; 0 for a top-level window
    NativeModule instance = nullptr;
};

// Makes a window inside the library's activation context. Null when the system refuses.
NativeWindow MakeWindow(const WindowRequest& request);
// Registers a window class with the dialog trampoline as its procedure, the arrow cursor and the face color.
bool RegisterDialogClass(const char16_t* className, NativeModule instance) noexcept;
void UnregisterDialogClass(const char16_t* className, NativeModule instance) noexcept;
// A new globally unique id as "%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x".
std::u16string NewUniqueName();

// Destroys the window with its children. Swallows what window procedures throw.
void CloseWindow(NativeWindow window) noexcept;
bool IsWindowAlive(NativeWindow window) noexcept;
void ShowOrHide(NativeWindow window, bool show);
bool IsShown(NativeWindow window) noexcept;
void PaintNow(NativeWindow window);
void Enable(NativeWindow window, bool enabled);
bool IsEnabled(NativeWindow window) noexcept;
void Focus(NativeWindow window);
void Activate(NativeWindow window);
void MoveTo(NativeWindow window, std::int32_t left, std::int32_t top, std::int32_t width,
            std::int32_t height);
Rectangle OuterFrame(NativeWindow window) noexcept; // screen coordinates
Rectangle ClientArea(NativeWindow window) noexcept;
Extent WorkArea() noexcept; // the size of a full-screen client area
NativeWindow ParentOf(NativeWindow window) noexcept;
NativeWindow TopLevelOf(NativeWindow window) noexcept; // its root ancestor
// The window that owns a dialog made with that parent: the root ancestor. Null for null, for a handle that is
// no window (HWND_MESSAGE is none), and for the desktop.
NativeWindow OwnerOfDialog(NativeWindow parent) noexcept;
NativeWindow ChildWithId(NativeWindow window, std::uint16_t id) noexcept;
NativeWindow TopChild(NativeWindow window) noexcept; // the first in the order of the children
// The first child of a class (compared without regard to case) whose style is exactly `style`.
NativeWindow ChildOfClassAndStyle(NativeWindow window, const char16_t* className,
                                  std::uint32_t style) noexcept;
std::uint16_t IdOf(NativeWindow window) noexcept;
std::uint32_t StyleOf(NativeWindow window) noexcept;
void SetStyle(NativeWindow window, std::uint32_t style);
void SetText(NativeWindow window, const char16_t* text);
std::u16string TextOf(NativeWindow window);
// The text of the child with that id, set and read by the id.
void SetControlText(NativeWindow window, std::uint16_t id, const char16_t* text);
std::u16string ControlText(NativeWindow window, std::uint16_t id);
// Puts a tab with that text before the index of a tab control.
void InsertTab(NativeWindow window, std::int32_t index, const char16_t* text);
// Deletes every item of the system menu but Move and Close.
void TrimSystemMenu(NativeWindow window) noexcept;
void GrayCloseItem(NativeWindow window) noexcept;
// Opens or closes the input method of a window.
void SetInputMethodOpen(NativeWindow window, bool open);
// A modal message of the system with an error icon, no title and one button.
void ShowErrorMessage(NativeWindow owner, const char16_t* text);

// --- Painting and icons ---

// Asks for the whole client area to be erased and painted again.
void Invalidate(NativeWindow window) noexcept;
// Answers a paint message: fills what has to be painted with the face color.
void PaintFace(NativeWindow window);
// Fills what has to be erased on the device of an erase message with the face color.
void EraseFace(NativeWindow window, NativeDrawing device) noexcept;
// Between the two calls the window draws nothing. One window of the whole system at a time.
void LockUpdates(NativeWindow window) noexcept;
void UnlockUpdates() noexcept;
// A copy of a system icon at the given size, or null. The caller deletes it.
NativeIcon CopySystemIcon(std::uint16_t id, std::int32_t width, std::int32_t height) noexcept;
void DeleteIcon(NativeIcon icon) noexcept;

// --- Messages ---

std::intptr_t Send(NativeWindow window, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam);
// False if the message could not be posted.
bool Post(NativeWindow window, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) noexcept;
// Posts the quit message of the thread. The last code counts.
void PostQuit(std::int32_t code) noexcept;
// What the system does with a message that the dialog's host leaves alone.
std::intptr_t DefaultAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                            std::intptr_t lparam);
// The same by the rules of the system's own dialogs.
std::intptr_t DefaultDialogAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                  std::intptr_t lparam);

enum class LoopStep { kHandled, kQuit, kFailed };
// Waits for one message and hands it to the dialog's keyboard rules or to its window. Sets `quitCode` for
// kQuit alone.
[[nodiscard]] LoopStep HandleNextMessage(NativeWindow dialog, std::int32_t& quitCode);
// Makes HandleNextMessage return where it waits, also when it does so inside a message that another thread
// sent. Does nothing while no call of it waits.
void WakeLoop() noexcept;
// Removes a quit message that waits for this thread and returns its code; no value without one.
[[nodiscard]] std::optional<std::int32_t> TakePendingQuit();

// --- Procedures of windows ---

using WindowProcedure = std::intptr_t (*)(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                          std::intptr_t lparam) noexcept;

// The procedures that the functions below give to windows. Until they are set, the system's default answers.
struct WindowProcedures {
    WindowProcedure dialog = nullptr;  // of every top-level window
    WindowProcedure control = nullptr; // of every control
    WindowProcedure edit = nullptr;    // of every edit control
};
void SetWindowProcedures(const WindowProcedures& procedures) noexcept;

// Makes the dialog procedure the procedure of a top-level window.
void TakeDialogProcedure(NativeWindow window) noexcept;
// Puts the control procedure before a control's own, which is kept in the property `FISavedWindowProc`.
void TakeControlProcedure(NativeWindow window) noexcept;
// Puts the edit procedure over that, with `box` kept in the property `FISavedCEveEdit`.
void TakeEditProcedure(NativeWindow window, void* box) noexcept;
void* EditBoxOf(NativeWindow window) noexcept;
// Hands a message to the procedure that TakeControlProcedure kept; 0 if there is none.
std::intptr_t SavedAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                          std::intptr_t lparam);

// --- Keyboard ---

bool IsShiftDown() noexcept;
// The control that Tab reaches next from `control`, in the order in which the controls were made.
NativeWindow NextTabStop(NativeWindow dialog, NativeWindow control, bool backwards);

// --- Fonts and text ---

inline constexpr std::size_t kFaceUnits = 32; // with the terminator

struct FontRecord {
    std::int32_t height = 0, width = 0, escapement = 0, orientation = 0, weight = 0;
    std::uint8_t italic = 0, underline = 0, strikeOut = 0, characterSet = 0;
    std::uint8_t outputPrecision = 0, clippingPrecision = 0, quality = 0, pitchAndFamily = 0;
    char16_t face[kFaceUnits] = {};
};

FontRecord StockSystemFont() noexcept;
NativeFont MakeFont(const FontRecord& record) noexcept;
void DeleteFont(NativeFont font) noexcept;
std::int32_t ScreenResolution() noexcept;                    // vertical, pixels an inch
std::int32_t WindowResolution(NativeWindow window) noexcept; // the same of a window's device
Extent MeasureText(NativeFont font, std::u16string_view text) noexcept;

struct FittedText {
    std::size_t units = 0; // UTF-16 units that fit
    Extent extent;         // of those units
};
FittedText MeasureFitting(NativeFont font, std::u16string_view text, std::int32_t width) noexcept;

// --- Resolution of the thread ---

// Puts the calling thread into the context "unaware, scaled by GDI", or "unaware" where the system refuses
// that one. Returns the former context; null if nothing was changed, because the system has no contexts or
// refuses both.
[[nodiscard]] NativeDpiContext SetDpiUnaware() noexcept;
// Puts the thread back into a context that SetDpiUnaware returned; does nothing for null.
void RestoreDpi(NativeDpiContext former) noexcept;

// --- Once per process ---

NativeModule LibraryModule() noexcept; // of the code that runs here
NativeModule LoadRichEdit() noexcept;
void UnloadModule(NativeModule module) noexcept;
void RegisterCommonControls() noexcept;

} // namespace brixen::zeve::platform
