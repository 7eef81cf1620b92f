#include "workflow/platform/region.h"

#include "workflow/platform/headless/region_recorder.h"

namespace brixen::pvn::pvn_workflow::platform {

RegionRecorder& TheRegionRecorder() {
    static RegionRecorder recorder;
    return recorder;
}

std::string UserCountry() { return TheRegionRecorder().country; }

std::string SortKey(std::string_view locale, std::u16string_view text) {
    RegionRecorder& recorder = TheRegionRecorder();
    recorder.locale = locale;
    const auto answer = recorder.sortKeys.find(std::u16string(text));
    if (answer != recorder.sortKeys.end()) return answer->second;
    std::string key;
    for (const char16_t unit : text) {
        key += static_cast<char>(unit >> 8);
        key += static_cast<char>(unit & 0xFF);
    }
    return key;
}

} // namespace brixen::pvn::pvn_workflow::platform
