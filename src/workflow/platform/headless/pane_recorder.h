// What the twin of the pane platform keeps for tests. Native builds only.
#pragma once

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
    std::u16string installed = u"iexplore.exe"; // the one program that there is
    std::vector<StartedProgram> started;        // those that are not there included

    void Reset() { *this = PaneRecorder(); }
};

PaneRecorder& ThePaneRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
