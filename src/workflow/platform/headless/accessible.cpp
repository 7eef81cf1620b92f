#include "workflow/platform/accessible.h"

#include "workflow/platform/headless/accessible_recorder.h"

#include <new>

namespace brixen::pvn::pvn_workflow::platform {

AccessibleRecorder& TheAccessibleRecorder() {
    static AccessibleRecorder recorder;
    return recorder;
}

AccessibleConnection::AccessibleConnection(AccessibleControl& itsControl)
    : control(itsControl), shared(std::make_shared<AccessibleControl*>(&itsControl)) {}

AccessibleConnection::~AccessibleConnection() { Cut(); }

std::optional<std::intptr_t> AccessibleConnection::Answer(zeve::NativeWindow, std::uintptr_t,
                                                          std::intptr_t lparam) noexcept try {
    if (lparam != kObjectOfControl || TheAccessibleRecorder().refuseObjects) return {};
    if (!shared) shared = std::make_shared<AccessibleControl*>(&control);
    TheAccessibleRecorder().objects.push_back(shared);
    return 1;
} catch (const std::bad_alloc&) {
    return {};
}

void AccessibleConnection::Cut() noexcept {
    if (shared) *shared = nullptr;
    shared.reset();
}

void Announce(zeve::NativeWindow window, AccessibleChange change) noexcept try {
    TheAccessibleRecorder().announced.push_back({window, change});
    if (const auto& onAnnounce = TheAccessibleRecorder().onAnnounce) onAnnounce();
} catch (const std::bad_alloc&) {
    // A test that lets memory run out reads no announcements.
}

} // namespace brixen::pvn::pvn_workflow::platform
