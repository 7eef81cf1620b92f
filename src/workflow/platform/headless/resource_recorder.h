// What the twin of the resource platform keeps for tests: the living bitmaps, whether the decoder runs, and
// what it must refuse. Native builds only.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <set>

namespace brixen::pvn::pvn_workflow::platform {

struct ResourceRecorder {
    std::set<zeve::NativeBitmap> liveBitmaps;
    std::uintptr_t bitmapsMade = 0; // since the last reset
    int decoderStarts = 0;          // since the last reset
    bool decoderRuns = false;
    bool refuseDecoder = false;
    std::uintptr_t refuseBitmap = 0; // the n-th since the last reset, counted from 1; 0 refuses none

    void Reset() { *this = ResourceRecorder(); }
};

ResourceRecorder& TheResourceRecorder();

} // namespace brixen::pvn::pvn_workflow::platform
