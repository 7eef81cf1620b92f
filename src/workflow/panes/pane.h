// A pane: the small object behind one state. It knows which group of controls is its own, what to write into
// them and which button is the default. It lives from Build to Cleanup, so its members survive a step back
// and forth.
#pragma once

#include "toolkit/platform/native_types.h"
#include "workflow/context/workflow_object.h"

#include <cstdint>
#include <string>

namespace brixen::zeve {
class EventRecord;
class ZeveDialog;
} // namespace brixen::zeve

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlowContext;

// An event that stands in no table, so that a handler which delivers it changes nothing.
inline constexpr char kEventNone[] = "ZevePassUpEventChain";

class PVNPane : public PVNWorkFlowObject<zeve::ZeveDialog> {
public:
    PVNPane() : PVNWorkFlowObject(nullptr) {}

    // The host says before each Enter in which dialog and for which run the pane works.
    void Attach(zeve::ZeveDialog* dialog, PVNWorkFlowContext* runContext) {
        ref = dialog;
        context = runContext;
    }

    // Filters a window event by name. The hosts route by control id and do not ask.
    virtual std::string HandleZeveEvent(const zeve::EventRecord& record);
    virtual std::string ProcessEvent(zeve::NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                     std::intptr_t lparam);
    // Shows the pane's group, writes its words, names its default button. Must not send events to the
    // machine.
    virtual void Enter() {}
    // Hides and disables the group. All else stays until the next visit.
    virtual void Leave() {}

protected:
    PVNWorkFlowContext* context = nullptr; // not owned
};

} // namespace brixen::pvn::pvn_workflow
