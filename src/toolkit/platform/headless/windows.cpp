#include "toolkit/control_styles.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/headless/headless.h"
#include "values/unicode/ascii.h"

#include <algorithm>
#include <cstdio>

namespace brixen::zeve {

using headless::FindWindow;
using headless::HandleNumber;
using headless::Record;
using headless::State;
using headless::Window;

namespace {

constexpr std::int32_t kFrameSide = 3, kFrameTop = 22; // of a top-level window
constexpr std::uint32_t kMessageDestroy = 0x0002;

bool IsChild(const Window& window) { return (window.style & style::kChild) != 0; }

void SetStyleBit(Window& window, std::uint32_t bit, bool set) {
    window.style = set ? window.style | bit : window.style & ~bit;
}

NativeWindow AnyChildOf(NativeWindow parent) {
    for (auto& window : State().windows)
        if (window->parent == parent) return window->handle;
    return nullptr;
}

bool SameClass(std::u16string_view one, std::u16string_view other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), [](char16_t a, char16_t b) {
        return lyr::gen::ToAsciiLower(a) == lyr::gen::ToAsciiLower(b);
    });
}

void Destroy(NativeWindow window) {
    headless::Deliver({window, kMessageDestroy, 0, 0});
    while (const NativeWindow child = AnyChildOf(window)) Destroy(child);
    headless::Deliver({window, kMessageWindowGone, 0, 0});
    std::erase_if(State().windows, [window](const auto& other) { return other->handle == window; });
}

// The number that asks for a default place is the lowest of all.
std::int32_t WrappingSum(std::int32_t start, std::int32_t length) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(start) + static_cast<std::uint32_t>(length));
}

std::unique_ptr<Window> NewWindow(const platform::WindowRequest& request) {
    auto window = std::make_unique<Window>();
    window->handle = headless::NewHandle<NativeWindow>();
    window->className = request.className;
    window->text = request.text;
    window->style = request.style;
    window->extendedStyle = request.extendedStyle;
    window->frame = {request.left, request.top, WrappingSum(request.left, request.width),
                     WrappingSum(request.top, request.height)};
    window->parent = request.parent;
    window->id = request.id;
    window->instance = request.instance;
    return window;
}

} // namespace

namespace platform {

NativeWindow MakeWindow(const WindowRequest& request) {
    Record("MakeWindow", request.parent,
           {request.extendedStyle, request.style, request.left, request.top, request.width, request.height,
            request.id},
           request.className);
    if (headless::Refuses(State().refuseWindow)) return nullptr;
    if ((request.style & style::kChild) != 0 && FindWindow(request.parent) == nullptr) return nullptr;
    try {
        State().windows.push_back(NewWindow(request));
        return State().windows.back()->handle;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

bool RegisterDialogClass(const char16_t* className, NativeModule instance) noexcept {
    Record("RegisterDialogClass", nullptr, {HandleNumber(instance)}, className);
    if (headless::Refuses(State().refuseClass)) return false;
    try {
        return State().classes.insert(className).second;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void UnregisterDialogClass(const char16_t* className, NativeModule instance) noexcept {
    Record("UnregisterDialogClass", nullptr, {HandleNumber(instance)}, className);
    const auto found = std::find_if(State().classes.begin(), State().classes.end(),
                                    [className](const auto& name) { return name == className; });
    if (found != State().classes.end()) State().classes.erase(found);
}

std::u16string NewUniqueName() {
    Record("NewUniqueName");
    char text[64];
    std::snprintf(text, sizeof text, "%08x-0000-4000-8000-000000000000", ++State().lastUniqueName);
    return {text, text + std::char_traits<char>::length(text)};
}

void CloseWindow(NativeWindow window) noexcept {
    Record("CloseWindow", window);
    if (FindWindow(window) != nullptr) Destroy(window);
}

bool IsWindowAlive(NativeWindow window) noexcept {
    Record("IsWindowAlive", window);
    return FindWindow(window) != nullptr;
}

void ShowOrHide(NativeWindow window, bool show) {
    Record("ShowOrHide", window, {show});
    if (Window* found = FindWindow(window)) SetStyleBit(*found, style::kVisible, show);
}

bool IsShown(NativeWindow window) noexcept {
    Record("IsShown", window);
    for (Window* found = FindWindow(window); found != nullptr; found = FindWindow(found->parent)) {
        if ((found->style & style::kVisible) == 0) return false;
        if (!IsChild(*found)) return true;
    }
    return false;
}

void PaintNow(NativeWindow window) { Record("PaintNow", window); }

void Enable(NativeWindow window, bool enabled) {
    Record("Enable", window, {enabled});
    if (Window* found = FindWindow(window)) SetStyleBit(*found, style::kDisabled, !enabled);
}

bool IsEnabled(NativeWindow window) noexcept {
    Record("IsEnabled", window);
    const Window* found = FindWindow(window);
    return found != nullptr && (found->style & style::kDisabled) == 0;
}

void Focus(NativeWindow window) {
    Record("Focus", window);
    if (FindWindow(window) != nullptr) State().focus = window;
}

void Activate(NativeWindow window) {
    Record("Activate", window);
    if (FindWindow(window) != nullptr) State().active = window;
}

void MoveTo(NativeWindow window, std::int32_t left, std::int32_t top, std::int32_t width,
            std::int32_t height) {
    Record("MoveTo", window, {left, top, width, height});
    if (Window* found = FindWindow(window)) found->frame = {left, top, left + width, top + height};
}

Rectangle OuterFrame(NativeWindow window) noexcept {
    Record("OuterFrame", window);
    const Window* found = FindWindow(window);
    if (found == nullptr) return {};
    Rectangle frame = found->frame;
    if (!IsChild(*found) || FindWindow(found->parent) == nullptr) return frame;
    const Window& parent = *FindWindow(found->parent);
    const std::int32_t x = parent.frame.left + (IsChild(parent) ? 0 : kFrameSide);
    const std::int32_t y = parent.frame.top + (IsChild(parent) ? 0 : kFrameTop);
    return {frame.left + x, frame.top + y, frame.right + x, frame.bottom + y};
}

Rectangle ClientArea(NativeWindow window) noexcept {
    Record("ClientArea", window);
    const Window* found = FindWindow(window);
    if (found == nullptr) return {};
    const Rectangle& frame = found->frame;
    if (IsChild(*found)) return {0, 0, frame.Width(), frame.Height()};
    return {0, 0, frame.Width() - 2 * kFrameSide, frame.Height() - kFrameTop - kFrameSide};
}

Rectangle FrameInParent(NativeWindow window) noexcept {
    Record("FrameInParent", window);
    const Window* found = FindWindow(window);
    return found != nullptr ? found->frame : Rectangle{};
}

Extent WorkArea() noexcept {
    Record("WorkArea");
    return {1024, 740};
}

NativeWindow ParentOf(NativeWindow window) noexcept {
    Record("ParentOf", window);
    const Window* found = FindWindow(window);
    return found != nullptr ? found->parent : nullptr;
}

NativeWindow TopLevelOf(NativeWindow window) noexcept {
    Record("TopLevelOf", window);
    Window* found = FindWindow(window);
    while (found != nullptr && IsChild(*found) && FindWindow(found->parent) != nullptr)
        found = FindWindow(found->parent);
    return found != nullptr ? found->handle : nullptr;
}

NativeWindow OwnerOfDialog(NativeWindow parent) noexcept {
    Record("OwnerOfDialog", parent);
    const NativeWindow root = TopLevelOf(parent);
    return root != State().desktop ? root : nullptr;
}

NativeWindow ChildWithId(NativeWindow window, std::uint16_t id) noexcept {
    Record("ChildWithId", window, {id});
    for (auto& child : State().windows)
        if (window != nullptr && child->parent == window && IsChild(*child) && child->id == id)
            return child->handle;
    return nullptr;
}

NativeWindow TopChild(NativeWindow window) noexcept {
    Record("TopChild", window);
    for (auto& child : State().windows)
        if (window != nullptr && child->parent == window && IsChild(*child)) return child->handle;
    return nullptr;
}

NativeWindow NextSibling(NativeWindow window) noexcept {
    Record("NextSibling", window);
    const Window* found = FindWindow(window);
    bool isPast = false;
    for (auto& child : State().windows) {
        if (found != nullptr && isPast && child->parent == found->parent && IsChild(*child))
            return child->handle;
        isPast = isPast || child.get() == found;
    }
    return nullptr;
}

NativeWindow PreviousSibling(NativeWindow window) noexcept {
    Record("PreviousSibling", window);
    const Window* found = FindWindow(window);
    NativeWindow previous = nullptr;
    for (auto& child : State().windows) {
        if (found == nullptr || child.get() == found) break;
        if (child->parent == found->parent && IsChild(*child)) previous = child->handle;
    }
    return previous;
}

void PutBefore(NativeWindow window, NativeWindow sibling) {
    Record("PutBefore", window, {HandleNumber(sibling)});
    auto& windows = State().windows;
    const auto isWindow = [](NativeWindow wanted) {
        return [wanted](const auto& each) { return each->handle == wanted; };
    };
    const auto from = std::find_if(windows.begin(), windows.end(), isWindow(window));
    const auto to = std::find_if(windows.begin(), windows.end(), isWindow(sibling));
    if (from == windows.end() || to == windows.end()) return;
    if (from < to) std::rotate(from, from + 1, to);
    if (to < from) std::rotate(to, from, from + 1);
}

NativeWindow ChildOfClassAndStyle(NativeWindow window, const char16_t* className,
                                  std::uint32_t style) noexcept {
    Record("ChildOfClassAndStyle", window, {style}, className);
    for (auto& child : State().windows)
        if (window != nullptr && child->parent == window && IsChild(*child) && child->style == style &&
            SameClass(child->className, className))
            return child->handle;
    return nullptr;
}

bool IsOfClass(NativeWindow window, const char16_t* className) noexcept {
    Record("IsOfClass", window, {}, className);
    const Window* found = FindWindow(window);
    return found != nullptr && SameClass(found->className, className);
}

std::uint16_t IdOf(NativeWindow window) noexcept {
    Record("IdOf", window);
    const Window* found = FindWindow(window);
    return found != nullptr ? found->id : std::uint16_t(0);
}

std::uint32_t StyleOf(NativeWindow window) noexcept {
    Record("StyleOf", window);
    const Window* found = FindWindow(window);
    return found != nullptr ? found->style : 0;
}

std::uint32_t ExtendedStyleOf(NativeWindow window) noexcept {
    Record("ExtendedStyleOf", window);
    const Window* found = FindWindow(window);
    return found != nullptr ? found->extendedStyle : 0;
}

void SetStyle(NativeWindow window, std::uint32_t style) {
    Record("SetStyle", window, {style});
    if (Window* found = FindWindow(window)) found->style = style;
}

void InsertTab(NativeWindow window, std::int32_t index, const char16_t* text) {
    Record("InsertTab", window, {index}, text);
}

void TrimSystemMenu(NativeWindow window) noexcept {
    Record("TrimSystemMenu", window);
    if (Window* found = FindWindow(window)) found->menuTrimmed = true;
}

void GrayCloseItem(NativeWindow window) noexcept {
    Record("GrayCloseItem", window);
    if (Window* found = FindWindow(window)) found->closeGrayed = true;
}

void SetInputMethodOpen(NativeWindow window, bool open) {
    Record("SetInputMethodOpen", window, {open});
    if (Window* found = FindWindow(window)) found->inputMethodOpen = open;
}

void ShowErrorMessage(NativeWindow owner, const char16_t* text) {
    Record("ShowErrorMessage", owner, {}, text);
    if (State().duringErrorMessage) State().duringErrorMessage();
}

std::string DecimalSign() { return State().decimalSign; }

} // namespace platform
} // namespace brixen::zeve
