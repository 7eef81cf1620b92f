// One paint of a dialog's backdrop with the shipped logo's and label's sizes: the part of the device is read
// once, changed in memory and written once, which the recorded calls confirm at the start.
#include "toolkit/platform/headless/headless.h"
#include "workflow/controls/backdrop.h"
#include "workflow/controls/overlay.h"
#include "workflow/platform/headless/painting_recorder.h"

#include <benchmark/benchmark.h>

#include <cstdint>

namespace bench {
namespace {

using namespace brixen::pvn::pvn_workflow;
namespace zeve = brixen::zeve;
using zeve::platform::Rectangle;

constexpr Rectangle kClient{0, 0, 560, 420};

zeve::NativeBitmap Bitmap(std::uintptr_t number, zeve::platform::Extent extent, std::int32_t pixelBytes) {
    const auto bitmap = reinterpret_cast<zeve::NativeBitmap>(number);
    platform::GivePixels(bitmap,
                         {.extent = extent, .pixelBytes = pixelBytes, .isBottomUp = true, .bytes = {}});
    return bitmap;
}

void PaintBackdropWithOverlay(benchmark::State& state) {
    platform::PaintingRecorder& recorder = platform::ThePaintingRecorder();
    recorder.Reset();
    const auto device = reinterpret_cast<zeve::NativeDrawing>(std::uintptr_t{0x77});
    const zeve::NativeBitmap panel = Bitmap(1, {560, 420}, 4);
    const OverlayBitmaps bitmaps{Bitmap(2, {44, 44}, 4), Bitmap(3, {176, 56}, 3)};
    const auto paint = [&] {
        DrawBackdrop(device, kClient, panel);
        DrawOverlay(device, kClient, bitmaps);
    };
    paint();
    if (platform::PaintingCallsOf("ReadPixels").size() != 1 ||
        platform::PaintingCallsOf("WritePixels").size() != 1 ||
        platform::PaintingCallsOf("DrawBitmap").size() != 1) {
        state.SkipWithError("one paint must read once and write once");
    }
    recorder.keepsCalls = false;
    for (auto _ : state) paint();
    state.SetItemsProcessed(state.iterations());
    recorder.Reset();
}
BENCHMARK(PaintBackdropWithOverlay);

} // namespace
} // namespace bench
