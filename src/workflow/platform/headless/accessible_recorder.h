// What the twin of accessibility keeps for tests: the controls that were asked for, and what was announced.
// Native builds only.
#pragma once

#include "workflow/platform/accessible.h"

#include <functional>
#include <vector>

namespace brixen::pvn::pvn_workflow::platform {

struct Announcement {
    zeve::NativeWindow window = nullptr;
    AccessibleChange change{};
    bool operator==(const Announcement&) const = default;
};

// The object ids that kMessageGetObject asks for in lparam.
inline constexpr std::intptr_t kObjectOfControl = 0xFFFFFFFC; // OBJID_CLIENT
inline constexpr std::intptr_t kObjectOfWindow = 0;           // OBJID_WINDOW

struct AccessibleRecorder {
    // One for each object; each points to null after its connection was cut.
    std::vector<std::shared_ptr<AccessibleControl*>> objects;
    std::vector<Announcement> announced;
    std::function<void()> onAnnounce; // called when a reader would look at the control
    bool refuseObjects = false;

    void Reset() { *this = AccessibleRecorder(); }
};

AccessibleRecorder& TheAccessibleRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
