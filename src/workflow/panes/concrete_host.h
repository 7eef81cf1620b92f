// A pane host of one workflow: `Host` derives from PVNConcreteHost<Host> and brings
//
//     static std::span<const Command> Commands();   // from control id to handler
//
// A handler composes an event name and returns what DeliverEvent returns, or 0 if the answer is no event.
#pragma once

#include "workflow/panes/pane_host.h"

#include <span>

namespace brixen::pvn::pvn_workflow {

template <class Host>
class PVNConcreteHost : public PVNPaneHost {
public:
    using PVNPaneHost::PVNPaneHost;

protected:
    struct Command {
        std::uint16_t id;
        std::intptr_t (Host::*handler)();
    };

    bool HandleCommand(std::uint16_t id, std::intptr_t& result) final {
        for (const auto& command : Host::Commands()) {
            if (command.id != id) continue;
            result = (static_cast<Host&>(*this).*command.handler)();
            return true;
        }
        return false;
    }

    bool& RepaintedFlag() final { return gRepainted; }

private:
    static inline bool gRepainted = false;
};

} // namespace brixen::pvn::pvn_workflow
