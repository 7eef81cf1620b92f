#include "toolkit/message_numbers.h"
#include "toolkit/platform/headless/headless.h"

#include <utility>

namespace brixen::zeve {

using headless::FindWindow;
using headless::Message;
using headless::Record;
using headless::State;
using headless::Window;

namespace headless {

namespace {

// A pair of messages: a control keeps the last value of `set` and returns it for `get`.
struct Setting {
    std::uint32_t set, get;
    bool inLparam;
    std::int64_t unset;
};
constexpr Setting kSettings[] = {
    {kButtonSetCheck, kButtonGetCheck, false, 0},
    {kComboSetSelection, kComboGetSelection, false, -1},
    {kStaticSetImage, kStaticGetImage, true, 0},
};

std::intptr_t AnswerFromState(Window& window, const Message& message) {
    if (message.number == kMessageSetText) {
        const auto* text = reinterpret_cast<const char16_t*>(message.lparam);
        window.text = text != nullptr ? text : u"";
        return 1;
    }
    if (message.number == kMessageGetTextLength) return static_cast<std::intptr_t>(window.text.size());
    for (const Setting& setting : kSettings) {
        const auto kept = window.remembered.find(setting.set);
        const std::int64_t value = kept != window.remembered.end() ? kept->second : setting.unset;
        if (message.number == setting.get) return static_cast<std::intptr_t>(value);
        if (message.number != setting.set) continue;
        window.remembered[setting.set] =
            setting.inLparam ? message.lparam : static_cast<std::int64_t>(message.wparam);
        return setting.inLparam ? static_cast<std::intptr_t>(value) : 0;
    }
    return 0;
}

} // namespace

std::intptr_t SystemAnswer(const Message& message) {
    if (State().answer) {
        const auto answer = platform::WithStandardExceptions([&] { return State().answer(message); });
        if (answer) return *answer;
    }
    try {
        Window* window = FindWindow(message.window);
        return window != nullptr ? AnswerFromState(*window, message) : 0;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

namespace {

constinit platform::WindowProcedures gProcedures;

platform::WindowProcedure ProcedureOf(const Window& window) noexcept {
    switch (window.procedure) {
    case Procedure::kDialog: return gProcedures.dialog;
    case Procedure::kControl: return gProcedures.control;
    case Procedure::kEdit: return gProcedures.edit;
    case Procedure::kSystem: break;
    }
    return nullptr;
}

std::intptr_t DeliverBelowLayer(const Message& message) {
    const Window* window = FindWindow(message.window);
    if (window == nullptr) return 0;
    if (const platform::WindowProcedure procedure = ProcedureOf(*window)) {
        return procedure(message.window, message.number, message.wparam, message.lparam);
    }
    return SystemAnswer(message);
}

} // namespace

std::intptr_t Deliver(const Message& message) {
    const Window* window = FindWindow(message.window);
    if (window == nullptr || window->layer == nullptr) return DeliverBelowLayer(message);
    return window->layer(window->layerObject, message.window, message.number, message.wparam, message.lparam);
}

bool FireTimer(NativeWindow window, std::uintptr_t id) {
    const Window* found = FindWindow(window);
    if (found == nullptr || !found->timers.contains(id)) return false;
    Deliver({window, kMessageTimer, id, 0});
    return true;
}

} // namespace headless

namespace platform {

namespace {

std::function<void()> TakeFirst(std::deque<std::function<void()>>& actions) {
    auto action = std::move(actions.front());
    actions.pop_front();
    return action;
}

// Runs the messages that other threads send while the loop waits. Returns whether WakeLoop ended the wait.
bool ServeOtherThreads() {
    headless::System& system = State();
    system.isWoken = false;
    while (!system.isWoken && !system.sentByOthers.empty()) TakeFirst(system.sentByOthers)();
    return std::exchange(system.isWoken, false);
}

std::intptr_t RecordAndAnswer(const char* name, const Message& message) {
    Record(name, message.window, {message.number, static_cast<std::int64_t>(message.wparam), message.lparam});
    return headless::SystemAnswer(message);
}

void TakeProcedure(const char* name, NativeWindow window, headless::Procedure procedure, void* box) noexcept {
    Record(name, window);
    Window* found = FindWindow(window);
    if (found == nullptr) return;
    found->procedure = procedure;
    if (box != nullptr) found->editBox = box;
}

} // namespace

std::intptr_t Send(NativeWindow window, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) {
    Record("Send", window, {message, static_cast<std::int64_t>(wparam), lparam});
    return headless::Deliver({window, message, wparam, lparam});
}

bool Post(NativeWindow window, std::uint32_t message, std::uintptr_t wparam, std::intptr_t lparam) noexcept {
    Record("Post", window, {message, static_cast<std::int64_t>(wparam), lparam});
    if (FindWindow(window) == nullptr || (message != 0 && message == State().refusedPost)) return false;
    try {
        State().posted.push_back({window, message, wparam, lparam});
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void PostQuit(std::int32_t code) noexcept {
    Record("PostQuit", nullptr, {code});
    State().quit = code;
}

std::intptr_t DefaultAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                            std::intptr_t lparam) {
    return RecordAndAnswer("DefaultAnswer", {window, message, wparam, lparam});
}

std::intptr_t DefaultDialogAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                  std::intptr_t lparam) {
    return RecordAndAnswer("DefaultDialogAnswer", {window, message, wparam, lparam});
}

std::intptr_t SavedAnswer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                          std::intptr_t lparam) {
    const Window* found = FindWindow(window);
    const bool kept = found != nullptr && (found->procedure == headless::Procedure::kControl ||
                                           found->procedure == headless::Procedure::kEdit);
    return kept ? RecordAndAnswer("SavedAnswer", {window, message, wparam, lparam}) : 0;
}

LoopStep HandleNextMessage(NativeWindow dialog, std::int32_t& quitCode) {
    Record("HandleNextMessage", dialog);
    headless::System& system = State();
    if (ServeOtherThreads()) return LoopStep::kHandled;
    if (!system.posted.empty()) {
        const Message message = system.posted.front();
        system.posted.pop_front();
        headless::Deliver(message);
        return LoopStep::kHandled;
    }
    if (const auto quit = std::exchange(system.quit, std::nullopt)) {
        quitCode = *quit;
        return LoopStep::kQuit;
    }
    if (system.script.empty()) return LoopStep::kFailed;
    TakeFirst(system.script)();
    return LoopStep::kHandled;
}

void WakeLoop() noexcept {
    Record("WakeLoop");
    State().isWoken = true;
}

std::optional<std::int32_t> TakePendingQuit() {
    Record("TakePendingQuit");
    return std::exchange(State().quit, std::nullopt);
}

bool StartTimer(NativeWindow window, std::uintptr_t id, std::uint32_t milliseconds) noexcept {
    Record("StartTimer", window, {static_cast<std::int64_t>(id), milliseconds});
    Window* found = FindWindow(window);
    if (headless::Refuses(State().refuseTimer) || found == nullptr) return false;
    try {
        found->timers[id] = milliseconds;
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void StopTimer(NativeWindow window, std::uintptr_t id) noexcept {
    Record("StopTimer", window, {static_cast<std::int64_t>(id)});
    if (Window* found = FindWindow(window)) found->timers.erase(id);
}

void SetWindowProcedures(const WindowProcedures& procedures) noexcept { headless::gProcedures = procedures; }

void TakeDialogProcedure(NativeWindow window) noexcept {
    TakeProcedure("TakeDialogProcedure", window, headless::Procedure::kDialog, nullptr);
}

void TakeControlProcedure(NativeWindow window) noexcept {
    TakeProcedure("TakeControlProcedure", window, headless::Procedure::kControl, nullptr);
}

void TakeEditProcedure(NativeWindow window, void* box) noexcept {
    TakeProcedure("TakeEditProcedure", window, headless::Procedure::kEdit, box);
}

void* EditBoxOf(NativeWindow window) noexcept {
    Record("EditBoxOf", window);
    const Window* found = FindWindow(window);
    return found != nullptr ? found->editBox : nullptr;
}

bool TakeLayerProcedure(NativeWindow window, LayerProcedure layer, void* object) noexcept {
    Record("TakeLayerProcedure", window);
    Window* found = FindWindow(window);
    if (headless::Refuses(State().refuseLayer) || found == nullptr || found->layer != nullptr) return false;
    found->layer = layer;
    found->layerObject = object;
    return true;
}

void DropLayer(NativeWindow window) noexcept {
    Record("DropLayer", window);
    Window* found = FindWindow(window);
    if (found == nullptr) return;
    found->layer = nullptr;
    found->layerObject = nullptr;
}

std::intptr_t AnswerBelowLayer(NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                               std::intptr_t lparam) {
    Record("AnswerBelowLayer", window, {message, static_cast<std::int64_t>(wparam), lparam});
    return headless::DeliverBelowLayer({window, message, wparam, lparam});
}

NativeWindow FocusedWindow() noexcept {
    Record("FocusedWindow");
    return FindWindow(State().focus) != nullptr ? State().focus : nullptr;
}

void CaptureMouse(NativeWindow window) {
    Record("CaptureMouse", window);
    if (FindWindow(window) != nullptr) State().mouse = window;
}

void ReleaseMouse(NativeWindow window) {
    Record("ReleaseMouse", window);
    if (State().mouse == window) State().mouse = nullptr;
}

bool HasMouse(NativeWindow window) noexcept {
    Record("HasMouse", window);
    return State().mouse == window && FindWindow(window) != nullptr;
}

bool IsShiftDown() noexcept {
    Record("IsShiftDown");
    return State().shiftDown;
}

NativeWindow NextTabStop(NativeWindow dialog, NativeWindow control, bool backwards) {
    Record("NextTabStop", dialog, {headless::HandleNumber(control), backwards});
    return State().nextTabStop ? State().nextTabStop(control, backwards) : nullptr;
}

} // namespace platform
} // namespace brixen::zeve
