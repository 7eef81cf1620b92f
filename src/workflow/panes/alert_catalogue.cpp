#include "workflow/panes/alert_catalogue.h"

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr AlertEntry kAlerts[] = {
    {kAlertQuit, "quit_alert", false},
};

} // namespace

AlertEntry FindAlert(std::string_view name) {
    for (const AlertEntry& alert : kAlerts) {
        if (alert.name == name) return alert;
    }
    return {name, name, false};
}

} // namespace brixen::pvn::pvn_workflow
