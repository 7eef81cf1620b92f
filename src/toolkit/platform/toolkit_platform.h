// The calls of the window system that dialogs and boxes use, in pixels and UTF-16.
//
// - A null window is harmless everywhere: the call does nothing or returns zero.
// - Every call belongs to the thread that made the windows.
// - A function that is not noexcept can run window procedures of the host. One that sends or dispatches a
//   message itself throws what they throw, as an exception derived from std::exception; for 0xE06D7363, the
//   exception of another compiler, too. An exception of a procedure that the system calls back (while it
//   makes, shows, enables, focuses or destroys a window) may end the process. The toolkit's own procedures
//   let no exception out.
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
    bool operator==(const Rectangle&) const = default;
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

// Makes a window inside the library's activation context. Returns null if the system refuses.
[[nodiscard]] NativeWindow MakeWindow(const WindowRequest& request);
// Registers a window class with the dialog trampoline as its procedure, the arrow cursor and the face color.
// Returns false if the system refuses.
[[nodiscard]] bool RegisterDialogClass(const char16_t* className, NativeModule instance) noexcept;
void UnregisterDialogClass(const char16_t* className, NativeModule instance) noexcept;
// Returns a new globally unique id as "%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x".
[[nodiscard]] std::u16string NewUniqueName();

// Destroys the window with its children. Swallows what window procedures throw.
void CloseWindow(NativeWindow window) noexcept;
[[nodiscard]] bool IsWindowAlive(NativeWindow window) noexcept;
void ShowOrHide(NativeWindow window, bool show);
[[nodiscard]] bool IsShown(NativeWindow window) noexcept;
void PaintNow(NativeWindow window);
void Enable(NativeWindow window, bool enabled);
[[nodiscard]] bool IsEnabled(NativeWindow window) noexcept;
void Focus(NativeWindow window);
void Activate(NativeWindow window);
void MoveTo(NativeWindow window, std::int32_t left, std::int32_t top, std::int32_t width,
            std::int32_t height);
[[nodiscard]] Rectangle OuterFrame(NativeWindow window) noexcept; // screen coordinates
[[nodiscard]] Rectangle ClientArea(NativeWindow window) noexcept;
// Returns the outer frame of a child in the client area of its parent, where MoveTo and MakeWindow place it.
[[nodiscard]] Rectangle FrameInParent(NativeWindow window) noexcept;
[[nodiscard]] Extent WorkArea() noexcept; // the size of a full-screen client area
[[nodiscard]] NativeWindow ParentOf(NativeWindow window) noexcept;
[[nodiscard]] NativeWindow TopLevelOf(NativeWindow window) noexcept; // its root ancestor
// Returns the window that owns a dialog with that parent: the root ancestor. Null, a handle that is no window
// (such as HWND_MESSAGE) and the desktop return null.
[[nodiscard]] NativeWindow OwnerOfDialog(NativeWindow parent) noexcept;
[[nodiscard]] NativeWindow ChildWithId(NativeWindow window, std::uint16_t id) noexcept;
[[nodiscard]] NativeWindow TopChild(NativeWindow window) noexcept; // the first in the order of the children
// Return the next and the previous child of the same parent in that order.
[[nodiscard]] NativeWindow NextSibling(NativeWindow window) noexcept;
[[nodiscard]] NativeWindow PreviousSibling(NativeWindow window) noexcept;
// Moves a child directly before a sibling in that order.
void PutBefore(NativeWindow window, NativeWindow sibling);
// Returns the first child of a class (compared without regard to case) whose style is exactly `style`.
[[nodiscard]] NativeWindow ChildOfClassAndStyle(NativeWindow window, const char16_t* className,
                                                std::uint32_t style) noexcept;
// Compares the window's class with a name, without regard to case.
[[nodiscard]] bool IsOfClass(NativeWindow window, const char16_t* className) noexcept;
[[nodiscard]] std::uint16_t IdOf(NativeWindow window) noexcept;
[[nodiscard]] std::uint32_t StyleOf(NativeWindow window) noexcept;
[[nodiscard]] std::uint32_t ExtendedStyleOf(NativeWindow window) noexcept;
void SetStyle(NativeWindow window, std::uint32_t style);
void SetText(NativeWindow window, const char16_t* text);
[[nodiscard]] std::u16string TextOf(NativeWindow window);
// Set and return the text of the child with that id.
void SetControlText(NativeWindow window, std::uint16_t id, const char16_t* text);
[[nodiscard]] std::u16string ControlText(NativeWindow window, std::uint16_t id);
// Inserts a tab with that text before the index of a tab control.
void InsertTab(NativeWindow window, std::int32_t index, const char16_t* text);
// Deletes every item of the system menu but Move and Close.
void TrimSystemMenu(NativeWindow window) noexcept;
void GrayCloseItem(NativeWindow window) noexcept;
// Opens or closes the input method of a window.
void SetInputMethodOpen(NativeWindow window, bool open);
// Shows a modal message of the system with an error icon, no title and one button.
void ShowErrorMessage(NativeWindow owner, const char16_t* text);
// Returns the sign that the user has chosen for the decimals of a number, in UTF-8: at most 3 characters.
[[nodiscard]] std::string DecimalSign();

// --- Painting and icons ---

// Asks for the whole client area to be erased and painted again.
void Invalidate(NativeWindow window) noexcept;
// Answers a paint message: fills the area to be painted with the face color.
void PaintFace(NativeWindow window);
// Fills the area to be erased on the device of an erase message with the face color.
void EraseFace(NativeWindow window, NativeDrawing device) noexcept;
// Between the two calls the window draws nothing. One window of the whole system at a time: while another
// program, or the host itself, holds such a lock, the first call does nothing, and the second never lifts it.
void LockUpdates(NativeWindow window) noexcept;
void UnlockUpdates() noexcept;
// Returns a copy of a system icon at the given size, or null. The caller deletes it.
[[nodiscard]] NativeIcon CopySystemIcon(std::uint16_t id, std::int32_t width, std::int32_t height) noexcept;
void DeleteIcon(NativeIcon icon) noexcept;

// --- Messages ---

std::intptr_t Send(NativeWindow window, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam);
// Returns false if the message could not be posted.
bool Post(NativeWindow window, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) noexcept;
// Posts the quit message of the thread. A later call replaces the code.
void PostQuit(std::int32_t code) noexcept;
// Returns the system's own answer to a message.
[[nodiscard]] std::intptr_t DefaultAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                          std::intptr_t lparam);
// Returns the answer of the system's own dialogs.
[[nodiscard]] std::intptr_t DefaultDialogAnswer(NativeWindow window, std::uint32_t message,
                                                std::uintptr_t wparam, std::intptr_t lparam);

enum class LoopStep { kHandled, kQuit, kFailed };
// Waits for one message and hands it to the dialog's keyboard rules or to its window. Sets `quitCode` for
// kQuit alone.
[[nodiscard]] LoopStep HandleNextMessage(NativeWindow dialog, std::int32_t& quitCode);
// Makes the innermost HandleNextMessage that waits return, when called inside a message that another thread
// sent to the wait. Does nothing if no HandleNextMessage waits.
void WakeLoop() noexcept;
// Removes the pending quit message of this thread and returns its code; no value if none is pending.
[[nodiscard]] std::optional<std::int32_t> TakePendingQuit();

// --- Timers ---

// Sends kMessageTimer with the id in wparam to the window every so many milliseconds, until StopTimer or the
// end of the window. Replaces a timer of the same id. Returns false if the system refuses.
[[nodiscard]] bool StartTimer(NativeWindow window, std::uintptr_t id, std::uint32_t milliseconds) noexcept;
// Harmless without such a timer. A message of it may still arrive.
void StopTimer(NativeWindow window, std::uintptr_t id) noexcept;

// --- Procedures of windows ---

using WindowProcedure = std::intptr_t (*)(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                          std::intptr_t lparam) noexcept;

// The procedures that the functions below install. Until they are set, the system's default answers.
struct WindowProcedures {
    WindowProcedure dialog = nullptr;  // of every top-level window
    WindowProcedure control = nullptr; // of every control
    WindowProcedure edit = nullptr;    // of every edit control
};
void SetWindowProcedures(const WindowProcedures& procedures) noexcept;

// Makes the dialog procedure the procedure of a top-level window.
void TakeDialogProcedure(NativeWindow window) noexcept;
// Makes the control procedure the procedure of a control, and keeps the control's own in the property
// `FISavedWindowProc`.
void TakeControlProcedure(NativeWindow window) noexcept;
// Makes the edit procedure the procedure of such a control, and keeps `box` in the property
// `FISavedCEveEdit`.
void TakeEditProcedure(NativeWindow window, void* box) noexcept;
[[nodiscard]] void* EditBoxOf(NativeWindow window) noexcept;
// Passes a message to the procedure that TakeControlProcedure kept; returns 0 if there is none.
[[nodiscard]] std::intptr_t SavedAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                        std::intptr_t lparam);

// The procedure of an object that is attached to a control: the layer above the control's own procedure.
using LayerProcedure = std::intptr_t (*)(void* object, NativeWindow window, std::uint32_t message,
                                         std::uintptr_t wparam, std::intptr_t lparam) noexcept;

// Hands every message of the window to the layer first, up to and including kMessageWindowGone. The caller
// keeps `object`, and calls DropLayer if it goes before the window. Returns false, and changes nothing, if
// the window already has a layer or the system refuses.
[[nodiscard]] bool TakeLayerProcedure(NativeWindow window, LayerProcedure layer, void* object) noexcept;
// Removes the layer; after that the window answers as before. Harmless without a layer, and inside a message
// of the layer.
void DropLayer(NativeWindow window) noexcept;
// Passes a message to the procedure below the layer. Without a layer it is the window's procedure.
[[nodiscard]] std::intptr_t AnswerBelowLayer(NativeWindow window, std::uint32_t message,
                                             std::uintptr_t wparam, std::intptr_t lparam);

// --- Keyboard and mouse ---

[[nodiscard]] NativeWindow FocusedWindow() noexcept; // of this thread; null if it has none
// Sends the mouse messages of this thread to the window, wherever the mouse is, until ReleaseMouse.
void CaptureMouse(NativeWindow window);
// Does nothing if the window does not have the mouse.
void ReleaseMouse(NativeWindow window);
[[nodiscard]] bool HasMouse(NativeWindow window) noexcept;

[[nodiscard]] bool IsShiftDown() noexcept;
// Returns the control that Tab reaches next from `control`, in the order of the children.
[[nodiscard]] NativeWindow NextTabStop(NativeWindow dialog, NativeWindow control, bool backwards);

// --- Fonts and text ---

inline constexpr std::size_t kFaceUnits = 32; // with the terminator

struct FontRecord {
    std::int32_t height = 0, width = 0, escapement = 0, orientation = 0, weight = 0;
    std::uint8_t italic = 0, underline = 0, strikeOut = 0, characterSet = 0;
    std::uint8_t outputPrecision = 0, clippingPrecision = 0, quality = 0, pitchAndFamily = 0;
    char16_t face[kFaceUnits] = {};
};

[[nodiscard]] FontRecord StockSystemFont() noexcept;
[[nodiscard]] NativeFont MakeFont(const FontRecord& record) noexcept;
void DeleteFont(NativeFont font) noexcept;
[[nodiscard]] std::int32_t ScreenResolution() noexcept;                    // vertical, pixels an inch
[[nodiscard]] std::int32_t WindowResolution(NativeWindow window) noexcept; // the same of a window's device

// Measures texts on the screen in one font. Holds the screen's device as long as it lives, so that a text of
// many lines takes it once.
class TextMeter {
public:
    // The caller keeps the font. Null means the font that a device has at first.
    explicit TextMeter(NativeFont font) noexcept;
    TextMeter(const TextMeter&) = delete;
    TextMeter& operator=(const TextMeter&) = delete;
    ~TextMeter();

    // Returns the extent of the text on one line; nothing for an empty text, and if the system refuses.
    [[nodiscard]] Extent MeasureText(std::u16string_view text) const noexcept;
    // Writes the width of each beginning of the text: widths[n] is that of its first n + 1 units. There must
    // be room for as many as the text has units. Returns the height of the line; 0 for an empty text, and if
    // the system refuses, and then the widths are unspecified.
    std::int32_t MeasureBeginnings(std::u16string_view text, std::int32_t* widths) const noexcept;

private:
    NativeFont font;                      // on the device
    NativeDrawing device;                 // of the screen; null if the system has none
    [[maybe_unused]] NativeFont former{}; // on the device before; the twin has no need of it
};

// --- Resolution of the thread ---

// Puts the calling thread into the context "unaware, scaled by GDI", or "unaware" where the system refuses
// that one. Returns the former context; null if nothing was changed, because the system has no contexts or
// refuses both.
[[nodiscard]] NativeDpiContext SetDpiUnaware() noexcept;
// Puts the thread back into a context that SetDpiUnaware returned; does nothing for null.
void RestoreDpi(NativeDpiContext former) noexcept;

// --- Once per process ---

[[nodiscard]] NativeModule LibraryModule() noexcept; // of the code that runs here
[[nodiscard]] NativeModule LoadRichEdit() noexcept;
void UnloadModule(NativeModule module) noexcept;
void RegisterCommonControls() noexcept;

} // namespace brixen::zeve::platform
