// What the twin of the pane platform keeps for tests. Native builds only.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow::platform {

struct StartedProgram {
    std::u16string program, arguments;
    std::int32_t showCommand = 0;
};

struct PaneRecorder {
    bool isHighContrast = false;
    zeve::NativeWindow withoutCaret = nullptr; // the latest edit control whose caret was hidden
    int hiddenCarets = 0;
    std::u16string installed = u"iexplore.exe"; // the only program that is installed
    std::vector<StartedProgram> started;        // missing ones included

    void Reset() { *this = PaneRecorder(); }
};

PaneRecorder& ThePaneRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
