// The window system of native tests: it records every call, answers from a small state, and refuses any
// request on demand. It has no default procedures, no dialog keyboard and no focus rules.
#pragma once

#include "toolkit/platform/standard_exceptions.h"
#include "toolkit/platform/toolkit_platform.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace brixen::zeve::headless {

// One call of a function of toolkit_platform.h. `numbers` are its arguments in order, without window and
// text.
struct Call {
    std::string name;
    NativeWindow window = nullptr;
    std::vector<std::int64_t> numbers;
    std::u16string text;
};

enum class Procedure { kSystem, kDialog, kControl, kEdit };

struct Window {
    NativeWindow handle = nullptr;
    std::u16string className, text;
    std::uint32_t style = 0; // with the bits for shown and disabled, as the system keeps them
    std::uint32_t extendedStyle = 0;
    platform::Rectangle frame; // in the parent's client area; of a top-level window on the screen
    NativeWindow parent = nullptr;
    std::uint16_t id = 0;
    NativeModule instance = nullptr;
    Procedure procedure = Procedure::kSystem;
    void* editBox = nullptr;
    platform::LayerProcedure layer = nullptr; // above `procedure`
    void* layerObject = nullptr;
    std::map<std::uint32_t, std::int64_t> remembered; // the last value of each setting message, by its number
    std::map<std::uintptr_t, std::uint32_t> timers;   // milliseconds by id
    bool menuTrimmed = false, closeGrayed = false, inputMethodOpen = false;
};

struct Message {
    NativeWindow window = nullptr;
    std::uint32_t number = 0;
    std::uintptr_t wparam = 0;
    std::intptr_t lparam = 0;
};

inline const auto kDpiAware = reinterpret_cast<NativeDpiContext>(std::uintptr_t(0x12));
inline const auto kDpiUnaware = reinterpret_cast<NativeDpiContext>(std::uintptr_t(0x10));

struct System {
    std::vector<Call> calls;
    std::vector<std::unique_ptr<Window>> windows; // that live, in the order in which they were made
    std::deque<Message> posted;
    std::optional<std::int32_t> quit;
    // The user's actions. HandleNextMessage runs them one by one when nothing is posted and no quit is
    // pending. With an empty script the loop step fails, so that nothing hangs.
    std::deque<std::function<void()>> script;
    // Messages that other threads send. HandleNextMessage runs them first, while it waits. It returns after
    // one of them only if that one called WakeLoop.
    std::deque<std::function<void()>> sentByOthers;
    bool isWoken = false;
    bool keepsCalls = true; // a benchmark keeps none

    // The answer of a native control, of a window of the host, or of the system's default procedure. Without
    // a value the small state answers. It may throw, as a procedure of the host does.
    std::function<std::optional<std::intptr_t>(const Message&)> answer;
    std::function<NativeWindow(NativeWindow control, bool backwards)> nextTabStop;
    bool shiftDown = false;
    std::string decimalSign = ".";
    std::function<void()> duringErrorMessage; // while ShowErrorMessage waits for the user
    platform::FontRecord stockFont{.height = 16, .width = 7, .weight = 700, .face = u"System"};

    // The n-th such request from now on is refused, counted from 1; 0 refuses none.
    int refuseWindow = 0, refuseClass = 0, refuseFont = 0, refuseIcon = 0, refuseRichEdit = 0;
    int refuseDpiContext = 0, refuseLayer = 0, refuseTimer = 0;
    std::uint32_t refusedPost = 0; // a message that cannot be posted; 0: none

    NativeWindow focus = nullptr, active = nullptr;
    NativeWindow mouse = nullptr;           // the window that captured it
    NativeWindow locked = nullptr;          // by the library or by the host
    NativeWindow lockedByLibrary = nullptr; // the same window, or null
    NativeWindow desktop = nullptr;         // one of `windows`, or null
    NativeDpiContext dpiContext = kDpiAware;
    std::map<NativeFont, platform::FontRecord> fonts; // that live, with the requests for them
    std::set<NativeIcon> icons;
    std::set<std::u16string> classes;
    std::uintptr_t lastHandle = 0x1000;
    int richEditLoads = 0; // minus the frees
    std::uint32_t lastUniqueName = 0;
};

System& State();
// Forgets everything: calls, windows, refusals.
void Reset();

Window* FindWindow(NativeWindow handle);
// Returns the calls of that name, in order.
std::vector<Call> CallsOf(std::string_view name);
// Adds a message to the script, which passes it to the procedure of its window.
void ScriptMessage(NativeWindow window, std::uint32_t number, std::uintptr_t wparam = 0,
                   std::intptr_t lparam = 0);

// Sends the timer message of a timer that runs. Returns whether it does.
bool FireTimer(NativeWindow window, std::uintptr_t id);

// --- For the twin's own files ---

// Records a call; records nothing when memory runs out.
void Record(const char* name, NativeWindow window = nullptr, std::initializer_list<std::int64_t> numbers = {},
            std::u16string_view text = {}) noexcept;
// Counts a request and returns whether it is the refused one.
bool Refuses(int& countdown) noexcept;
template <class Handle>
Handle NewHandle() noexcept {
    return reinterpret_cast<Handle>(State().lastHandle += 16);
}
template <class Handle>
std::int64_t HandleNumber(Handle handle) noexcept {
    return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(handle));
}
// Passes a message to the procedure of its window; returns 0 for a window that is gone. Throws what a window
// of the host throws.
std::intptr_t Deliver(const Message& message);
// What the window's own class answers: the test's answer, or else one from the window's state, which the
// message may change.
std::intptr_t SystemAnswer(const Message& message);

} // namespace brixen::zeve::headless
