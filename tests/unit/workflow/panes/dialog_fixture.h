// A run with the window system's twin: what the user does is scripted, what the window system is asked is
// recorded.
#pragma once

#include "frame/frame_state.h"
#include "frame/pavane_context.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/headless/headless.h"
#include "toolkit/toolkit_state.h"
#include "unit/workflow/resources/resource_fixture.h"
#include "workflow/platform/headless/painting_recorder.h"
#include "workflow/platform/headless/pane_recorder.h"
#include "workflow/platform/message_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

class DialogFixture : public ResourceFixture {
protected:
    using Window = zeve::NativeWindow;

    // After some hundred runs in one process the ids that views get by themselves meet those of the views.
    static constexpr std::uint16_t kFirstId = 10000;

    DialogFixture() : savedContext(GetFrameState().gPavaneContext) {
        zeve::headless::Reset();
        platform::ThePaneRecorder().Reset();
        platform::ThePaintingRecorder().Reset();
        zeve::gToolkit.lastViewId = kFirstId;
        GetFrameState().gPavaneContext = &frame;
    }
    ~DialogFixture() override {
        GetFrameState().gPavaneContext = savedContext;
        zeve::headless::Reset();
        platform::ThePaneRecorder().Reset();
        platform::ThePaintingRecorder().Reset();
    }

    static zeve::headless::System& System() { return zeve::headless::State(); }

    static Window MakeMainWindow() {
        zeve::platform::WindowRequest request;
        request.className = u"HostWindow";
        request.style = 0x10CF0000;
        return zeve::platform::MakeWindow(request);
    }

    // The dialog on top: the newest one.
    static Window TopDialog() {
        for (auto window = System().windows.rbegin(); window != System().windows.rend(); ++window) {
            if ((*window)->className == u"#32770") return (*window)->handle;
        }
        return nullptr;
    }
    static zeve::headless::Window* Control(std::uint16_t id) {
        return zeve::headless::FindWindow(zeve::platform::ChildWithId(TopDialog(), id));
    }
    static bool IsControlShown(std::uint16_t id) {
        const auto* control = Control(id);
        return control && (control->style & 0x10000000) != 0;
    }
    static std::intptr_t Tell(Window window, std::uint32_t number, std::uintptr_t wparam = 0,
                              std::intptr_t lparam = 0) {
        return zeve::platform::Send(window, number, wparam, lparam);
    }

    // What the user will do, in this order. A message goes to the dialog that is then on top.
    static void Then(std::function<void()> action) { System().script.push_back(std::move(action)); }
    static void ThenPress(std::uint16_t id) {
        Then([id] { Tell(TopDialog(), zeve::kMessageCommand, id); });
    }

    // For the end of a run: panes and their controls are destroyed after the dialog, and must leave its
    // windows alone.
    static void ExpectNoUseOfClosedWindows() {
        const auto& calls = System().calls;
        const auto isClosing = [](const auto& call) { return call.name == "CloseWindow"; };
        const auto lastClosing = std::find_if(calls.rbegin(), calls.rend(), isClosing).base();
        for (auto call = lastClosing; call != calls.end(); ++call) {
            const std::int64_t number = call->numbers.empty() ? 0 : call->numbers[0];
            const bool isOfClosing = number == kMessageDestroy || number == zeve::kMessageWindowGone;
            if (!call->window || isOfClosing) continue;
            EXPECT_TRUE(zeve::headless::FindWindow(call->window)) << call->name << " " << number;
        }
    }

    PavaneContext frame;

private:
    PavaneContext* savedContext;
};

} // namespace brixen::pvn::pvn_workflow
