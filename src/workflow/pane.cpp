#include "workflow/pane.h"

#include "toolkit/event_record.h"
#include "toolkit/window_messages.h"

namespace brixen::pvn::pvn_workflow {

std::string PVNPane::HandleZeveEvent(const zeve::EventRecord& record) {
    return ProcessEvent(record.ReadPointer<zeve::NativeWindow>(zeve::kKeyWindow),
                        static_cast<std::uint32_t>(record.Read(zeve::kKeyEventRecord)),
                        static_cast<std::uintptr_t>(record.Read(zeve::kKeyWparam)),
                        static_cast<std::intptr_t>(record.Read(zeve::kKeyLparam)));
}

std::string PVNPane::ProcessEvent(zeve::NativeWindow, std::uint32_t message, std::uintptr_t, std::intptr_t) {
    return message == zeve::kMessageClose ? "ZeveCloseWindow" : kEventNone;
}

} // namespace brixen::pvn::pvn_workflow
