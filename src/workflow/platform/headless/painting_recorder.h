// What the twin of painting keeps for tests: every call, the pixels of the living bitmaps, and what it must
// refuse. It draws nothing. Native builds only.
#pragma once

#include "workflow/platform/painting.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::pvn::pvn_workflow::platform {

// The extended style of a mirrored window (WS_EX_LAYOUTRTL).
inline constexpr std::uint32_t kMirroredWindow = 0x00400000;

// One call of a function of painting.h. `numbers` are its other arguments in order, a rectangle as four, a
// handle as its number.
struct PaintingCall {
    std::string name;
    zeve::NativeDrawing device = nullptr;
    std::vector<std::int64_t> numbers;
};

struct BitmapRecord {
    zeve::platform::Extent extent;
    std::int32_t pixelBytes = 4;
    bool isBottomUp = false;
    std::vector<std::byte> bytes; // rows without padding but to four bytes
};

struct PaintingRecorder {
    std::vector<PaintingCall> calls;
    bool keepsCalls = true;                               // a benchmark keeps none
    std::map<zeve::NativeDrawing, std::uint32_t> layouts; // of devices; 0 for all others
    std::map<std::int32_t, Color> systemColors;
    std::map<zeve::NativeBitmap, BitmapRecord> bitmaps; // with pixels
    std::set<zeve::NativeBrush> brushes;                // that live
    std::set<zeve::NativeDrawing> devices;              // made here, that live
    std::vector<std::byte> written;                     // by the last DevicePixels::Write, rows of 4 bytes
    std::byte surface{0};                               // every byte that DevicePixels reads
    bool refuseDevice = false, refuseMemory = false, refuseBitmap = false, refuseBrush = false;
    std::uintptr_t lastHandle = 0x50000;

    void Reset() { *this = PaintingRecorder(); }
};

PaintingRecorder& ThePaintingRecorder();
// Returns the calls of that name, in order.
std::vector<PaintingCall> PaintingCallsOf(std::string_view name);
// Adds pixels to a bitmap of another part of the twin, such as a decoded one.
void GivePixels(zeve::NativeBitmap bitmap, BitmapRecord record);

} // namespace brixen::pvn::pvn_workflow::platform
