#include "workflow/panes/pane.h"

#include "toolkit/message_numbers.h"
#include "workflow/panes/window_message.h"

namespace brixen::pvn::pvn_workflow {

std::string PVNPane::HandleZeveEvent(const zeve::EventRecord& record) {
    const WindowMessage message = MessageOf(record);
    return ProcessEvent(message.window, message.number, message.wparam, message.lparam);
}

std::string PVNPane::ProcessEvent(zeve::NativeWindow, std::uint32_t message, std::uintptr_t, std::intptr_t) {
    return message == zeve::kMessageClose ? "ZeveCloseWindow" : kEventNone;
}

} // namespace brixen::pvn::pvn_workflow
