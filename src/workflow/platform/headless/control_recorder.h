// What the twin of the control platform keeps for tests: tooltips, cursors, what was opened, and the answers
// to give. Native builds only.
#pragma once

#include "toolkit/platform/headless/headless.h"
#include "workflow/platform/control_platform.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow::platform {

struct Tool {
    zeve::NativeWindow tooltip = nullptr, control = nullptr;
    zeve::platform::Rectangle area;
    std::u16string text;
};

struct ControlRecorder {
    std::vector<Tool> tools; // every SetTooltip
    std::vector<zeve::headless::Message> relayed;
    Point mouse; // in every window
    bool isKeyHeld = false;
    int cursorsShown = 0;
    std::vector<zeve::NativeWindow> leavesAskedFor;
    std::u16string settingsKey;                     // that the latest setting was read from
    std::map<std::u16string, UserSetting> settings; // by value name
    std::vector<std::u16string> opened;             // by the shell, refused ones included
    bool refuseToOpen = false;
    std::function<void()> whileOpening;

    void Reset() { *this = ControlRecorder(); }
};

ControlRecorder& TheControlRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
