// The twin of painting, empty before and after each test.
#pragma once

#include "toolkit/platform/headless/headless.h"
#include "workflow/platform/headless/painting_recorder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace brixen::pvn::pvn_workflow {

class PaintingFixture : public testing::Test {
protected:
    PaintingFixture() { Clear(); }
    ~PaintingFixture() override { Clear(); }

    static platform::PaintingRecorder& Recorder() { return platform::ThePaintingRecorder(); }
    static zeve::NativeDrawing Device() {
        return reinterpret_cast<zeve::NativeDrawing>(std::uintptr_t{0x77});
    }

    static zeve::NativeWindow MakeWindow(zeve::platform::WindowRequest request) {
        request.className = u"Static";
        return zeve::platform::MakeWindow(request);
    }
    // A dialog with a client area of 300 by 200 pixels.
    static zeve::NativeWindow MakeDialog(std::uint32_t extendedStyle = 0) {
        return MakeWindow({.extendedStyle = extendedStyle, .style = 0x10C00000, .width = 306, .height = 225});
    }
    static zeve::NativeWindow MakeControl(zeve::NativeWindow dialog, std::int32_t left, std::int32_t top,
                                          std::int32_t width, std::int32_t height, std::uint16_t id = 0) {
        return MakeWindow({.style = 0x50000000,
                           .left = left,
                           .top = top,
                           .width = width,
                           .height = height,
                           .parent = dialog,
                           .id = id});
    }

    // The names of the drawing calls, in order.
    static std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const auto& call : Recorder().calls) names.push_back(call.name);
        return names;
    }
    static std::vector<std::int64_t> NumbersOf(const char* name) {
        const auto calls = platform::PaintingCallsOf(name);
        return calls.size() == 1 ? calls[0].numbers : std::vector<std::int64_t>{};
    }
    template <class Handle>
    static std::int64_t Number(Handle handle) {
        return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(handle));
    }

private:
    static void Clear() {
        Recorder().Reset();
        zeve::headless::Reset();
    }
};

} // namespace brixen::pvn::pvn_workflow
