// The window side of a pane host: a handle and a message map.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>

namespace brixen::zeve {
class EventRecord;
}

namespace brixen::pvn::pvn_workflow {

struct WindowMessage {
    zeve::NativeWindow window = nullptr;
    std::uint32_t number = 0;
    std::uintptr_t wparam = 0;
    std::intptr_t lparam = 0;
};

// The message that a record of kWhatMessage tells of.
WindowMessage MessageOf(const zeve::EventRecord& record);

class PVNHostWindow {
public:
    virtual ~PVNHostWindow() = default;
    // Returns whether the message was handled; only then `result` counts.
    virtual bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) = 0;

    zeve::NativeWindow Window() const { return window; }

protected:
    zeve::NativeWindow window = nullptr; // the toolkit's; null before it exists and once the run has ended
};

} // namespace brixen::pvn::pvn_workflow
