// A pane host of one workflow: `Host` derives from PVNConcreteHost<Host, Pane> and has
//
//     static std::span<const Command> Commands();   // from control id to handler
//
// A handler composes an event name and returns the result of DeliverEvent, or 0 if there is nothing to
// deliver. A host extends the table of another host by naming it as its `Base`: an id that its own table
// lacks is looked up there.
#pragma once

#include "workflow/panes/pane.h"
#include "workflow/panes/pane_host.h"

#include <concepts>
#include <cstdint>
#include <span>

namespace brixen::pvn::pvn_workflow {

// All panes of the workflow are of the type `Pane`.
template <class Host, std::derived_from<PVNPane> Pane, std::derived_from<PVNPaneHost> Base = PVNPaneHost>
class PVNConcreteHost : public Base {
public:
    using Base::Base;

    bool Accepts(const PVNPane& pane) const override {
        return Base::Accepts(pane) && dynamic_cast<const Pane*>(&pane) != nullptr;
    }

protected:
    struct Command {
        std::uint16_t id;
        std::intptr_t (Host::*handler)();
    };

    // Returns the pane of the state last entered, or null.
    Pane* CurrentPane() const { return static_cast<Pane*>(PVNPaneHost::CurrentPane()); }

    bool HandleCommand(std::uint16_t id, std::intptr_t& result) override {
        for (const auto& command : Host::Commands()) {
            if (command.id != id) continue;
            result = (static_cast<Host&>(*this).*command.handler)();
            return true;
        }
        return Base::HandleCommand(id, result);
    }

    bool& RepaintedFlag() override { return gRepainted; }

private:
    static inline bool gRepainted = false;
};

} // namespace brixen::pvn::pvn_workflow
