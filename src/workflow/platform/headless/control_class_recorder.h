// What the twin of control classes keeps for tests. Native builds only.
#pragma once

#include "workflow/platform/control_class.h"

#include <cstdint>
#include <map>
#include <optional>
#include <utility>

namespace brixen::pvn::pvn_workflow::platform {

struct ControlClassRecorder {
    std::optional<ControlClass> registered;
    int registrations = 0; // that reached the system
    bool refuseClass = false;
    std::map<std::pair<zeve::NativeWindow, std::int32_t>, std::intptr_t> numbers; // in the memory of windows

    void Reset() { *this = ControlClassRecorder(); }
};

ControlClassRecorder& TheControlClassRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
