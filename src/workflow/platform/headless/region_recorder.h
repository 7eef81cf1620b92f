// What the twin of the region platform answers. Native builds only.
#pragma once

#include <map>
#include <string>

namespace brixen::pvn::pvn_workflow::platform {

struct RegionRecorder {
    std::string country;                            // of the user
    std::map<std::u16string, std::string> sortKeys; // by text; the units of any other text are its key
    std::string locale;                             // of the latest question for a key

    void Reset() { *this = RegionRecorder(); }
};

RegionRecorder& TheRegionRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
