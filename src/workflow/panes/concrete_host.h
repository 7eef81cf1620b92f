// A pane host of one workflow: `Host` derives from PVNConcreteHost<Host, Pane> and has
//
//     static std::span<const Command> Commands();   // from control id to handler
//
// A handler composes an event name and returns the result of DeliverEvent, or 0 if there is nothing to
// deliver. A row is for what the user does with the control: a press, another choice, a changed text. A row
// that names a notification is for that one alone, such as the focus coming or going. A host extends the
// table of another host by naming it as its `Base`: what its own table lacks is looked up there.
#pragma once

#include "workflow/panes/pane.h"
#include "workflow/panes/pane_host.h"
#include "workflow/platform/message_numbers.h"

#include <concepts>
#include <cstdint>
#include <optional>
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
        using Handler = std::intptr_t (Host::*)();
        constexpr Command(std::uint16_t ofControl, Handler itsHandler,
                          std::optional<std::uint16_t> notification = {})
            : handler(itsHandler), id(ofControl), code(notification) {}

        Handler handler;
        std::uint16_t id;
        std::optional<std::uint16_t> code; // the notification of the row
    };

    // Returns the pane of the state last entered, or null.
    Pane* CurrentPane() const { return static_cast<Pane*>(PVNPaneHost::CurrentPane()); }

    bool HandleCommand(Notification notification, std::intptr_t& result) override {
        for (const auto& command : Host::Commands()) {
            if (!Matches(command, notification)) continue;
            result = (static_cast<Host&>(*this).*command.handler)();
            return true;
        }
        return Base::HandleCommand(notification, result);
    }

    bool& RepaintedFlag() override { return gRepainted; }

private:
    static bool Matches(const Command& row, Notification notification) {
        if (row.id != notification.id) return false;
        return row.code ? *row.code == notification.code : IsUseOfControl(notification.code);
    }

    static inline bool gRepainted = false;
};

} // namespace brixen::pvn::pvn_workflow
