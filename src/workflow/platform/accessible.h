// What assistive technology, such as a screen reader, learns about a control that is painted by hand: the
// control answers for itself, and its standard object for the rest. Everything belongs to the thread of the
// windows.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace brixen::pvn::pvn_workflow::platform {

inline constexpr std::uint32_t kMessageGetObject = 0x003D; // WM_GETOBJECT

inline constexpr std::int32_t kRoleLink = 0x1E;        // ROLE_SYSTEM_LINK
inline constexpr std::int32_t kRoleProgressBar = 0x30; // ROLE_SYSTEM_PROGRESSBAR

// States, added up. The standard object adds its own, such as that the window is invisible.
inline constexpr std::uint32_t kStateUnavailable = 0x1;    // STATE_SYSTEM_UNAVAILABLE
inline constexpr std::uint32_t kStateFocused = 0x4;        // STATE_SYSTEM_FOCUSED
inline constexpr std::uint32_t kStateReadOnly = 0x40;      // STATE_SYSTEM_READONLY
inline constexpr std::uint32_t kStateBusy = 0x800;         // STATE_SYSTEM_BUSY
inline constexpr std::uint32_t kStateFocusable = 0x100000; // STATE_SYSTEM_FOCUSABLE
inline constexpr std::uint32_t kStateLinked = 0x400000;    // STATE_SYSTEM_LINKED
inline constexpr std::uint32_t kStateTraversed = 0x800000; // STATE_SYSTEM_TRAVERSED

// The answers of a control. Of the texts an empty one means that there is none; the standard object then has
// the name. An exception counts as a failure of the question.
class AccessibleControl {
public:
    virtual std::int32_t AccessibleRole() const = 0;
    virtual std::u16string AccessibleName() const { return {}; }
    virtual std::u16string AccessibleDescription() const { return {}; }
    virtual std::u16string AccessibleValue() const { return {}; }
    virtual std::uint32_t AccessibleState() const { return 0; }
    virtual std::u16string DefaultActionName() const { return {}; }
    // Begins the default action. Must return soon and call no host: it posts a message.
    virtual void DoDefaultAction() {}

protected:
    AccessibleControl() = default;
    AccessibleControl(const AccessibleControl&) = default;
    AccessibleControl& operator=(const AccessibleControl&) = default;
    ~AccessibleControl() = default;
};

// Hands out objects that ask the control. An object may outlive both: from then on it fails each question.
class AccessibleConnection {
public:
    // Borrows the control.
    explicit AccessibleConnection(AccessibleControl& control);
    AccessibleConnection(const AccessibleConnection&) = delete;
    AccessibleConnection& operator=(const AccessibleConnection&) = delete;
    ~AccessibleConnection();

    // Returns the answer to kMessageGetObject; nothing if the message asks for anything but the control
    // itself, or the system refuses. The control's window then answers.
    std::optional<std::intptr_t> Answer(zeve::NativeWindow window, std::uintptr_t wparam,
                                        std::intptr_t lparam) noexcept;
    // Makes each object fail that was handed out.
    void Cut() noexcept;

private:
    AccessibleControl& control;
    std::shared_ptr<AccessibleControl*> shared; // with the objects; it points to null after Cut
};

enum class AccessibleChange : std::uint32_t {
    kState = 0x800A, // EVENT_OBJECT_STATECHANGE
    kName = 0x800C,  // EVENT_OBJECT_NAMECHANGE
    kValue = 0x800E, // EVENT_OBJECT_VALUECHANGE
};
// Tells assistive technology that the control of the window has changed.
void Announce(zeve::NativeWindow window, AccessibleChange change) noexcept;

} // namespace brixen::pvn::pvn_workflow::platform
