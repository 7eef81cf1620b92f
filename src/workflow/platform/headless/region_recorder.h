// What the twin of the region platform answers. Native builds only.
#pragma once

#include <string>

namespace brixen::pvn::pvn_workflow::platform {

struct RegionRecorder {
    std::string country; // of the user

    void Reset() { *this = RegionRecorder(); }
};

RegionRecorder& TheRegionRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
