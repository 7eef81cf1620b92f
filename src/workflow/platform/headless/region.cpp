#include "workflow/platform/region.h"

#include "workflow/platform/headless/region_recorder.h"

namespace brixen::pvn::pvn_workflow::platform {

RegionRecorder& TheRegionRecorder() {
    static RegionRecorder recorder;
    return recorder;
}

std::string UserCountry() { return TheRegionRecorder().country; }

} // namespace brixen::pvn::pvn_workflow::platform
