#include "workflow/panes/window_message.h"

#include "toolkit/event_record.h"

namespace brixen::pvn::pvn_workflow {

WindowMessage MessageOf(const zeve::EventRecord& record) {
    return {record.ReadPointer<zeve::NativeWindow>(zeve::kKeyWindow),
            static_cast<std::uint32_t>(record.Read(zeve::kKeyEventRecord)),
            static_cast<std::uintptr_t>(record.Read(zeve::kKeyWparam)),
            static_cast<std::intptr_t>(record.Read(zeve::kKeyLparam))};
}

} // namespace brixen::pvn::pvn_workflow
