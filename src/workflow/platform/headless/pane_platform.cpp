#include "workflow/platform/pane_platform.h"

#include "workflow/platform/headless/pane_recorder.h"

#include <new>

namespace brixen::pvn::pvn_workflow::platform {

PaneRecorder& ThePaneRecorder() {
    static PaneRecorder recorder;
    return recorder;
}

bool IsHighContrast() noexcept { return ThePaneRecorder().isHighContrast; }

void HideCaret(zeve::NativeWindow edit) noexcept {
    ThePaneRecorder().withoutCaret = edit;
    ++ThePaneRecorder().hiddenCarets;
}

bool StartProgram(const char16_t* program, const char16_t* arguments, std::int32_t showCommand) noexcept {
    try {
        ThePaneRecorder().started.push_back({program, arguments, showCommand});
    } catch (const std::bad_alloc&) {
        return false;
    }
    return ThePaneRecorder().installed == program;
}

} // namespace brixen::pvn::pvn_workflow::platform
