#include "workflow/platform/control_class.h"

#include "workflow/platform/headless/control_class_recorder.h"

#include <new>

namespace brixen::pvn::pvn_workflow::platform {

ControlClassRecorder& TheControlClassRecorder() {
    static ControlClassRecorder recorder;
    return recorder;
}

bool RegisterControlClass(const ControlClass& controlClass) noexcept {
    ControlClassRecorder& recorder = TheControlClassRecorder();
    if (recorder.registered) return true;
    if (recorder.refuseClass) return false;
    ++recorder.registrations;
    recorder.registered = controlClass;
    return true;
}

void StoreInWindow(zeve::NativeWindow window, std::int32_t offset, std::intptr_t number) noexcept {
    const ControlClassRecorder& recorder = TheControlClassRecorder();
    constexpr auto kNumberBytes = static_cast<std::int32_t>(sizeof number);
    const std::int32_t room = recorder.registered ? recorder.registered->windowBytes : 0;
    if (!window || offset < 0 || offset + kNumberBytes > room) return;
    try {
        TheControlClassRecorder().numbers[{window, offset}] = number;
    } catch (const std::bad_alloc&) {
        // The number stays as it was.
    }
}

std::intptr_t NumberInWindow(zeve::NativeWindow window, std::int32_t offset) noexcept {
    const auto& numbers = TheControlClassRecorder().numbers;
    const auto found = numbers.find({window, offset});
    return found != numbers.end() ? found->second : 0;
}

} // namespace brixen::pvn::pvn_workflow::platform
