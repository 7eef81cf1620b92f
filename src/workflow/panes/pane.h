// A pane: the small object of one state. It has a group of controls, their words, and a default button. It
// lives from Build to Cleanup, so its members survive a step back and forth.
#pragma once

#include "toolkit/platform/native_types.h"
#include "workflow/context/workflow_object.h"

#include <cstdint>
#include <span>
#include <string>

namespace brixen::zeve {
class EventRecord;
class ZeveDialog;
} // namespace brixen::zeve

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlowContext;

// An event that no table has: a handler that delivers it changes nothing.
inline constexpr char kEventNone[] = "ZevePassUpEventChain";

// The meaning of a text control's color: red for an error, green for a success.
enum class Mark { kError, kSuccess };
struct MarkedControl {
    std::uint16_t viewId;
    Mark mark;
};

class PVNPane : public PVNWorkFlowObject<zeve::ZeveDialog> {
public:
    PVNPane() : PVNWorkFlowObject(nullptr) {}

    // Sets the dialog and the run of the pane, both borrowed. The host calls it before each Enter.
    void Attach(zeve::ZeveDialog* dialog, PVNWorkFlowContext* runContext) {
        ref = dialog;
        context = runContext;
    }

    // Returns the name of a window event, kEventNone for most. Kept: the hosts route by control id and never
    // call these two.
    virtual std::string HandleZeveEvent(const zeve::EventRecord& record);
    virtual std::string ProcessEvent(zeve::NativeWindow window, std::uint32_t message, std::uintptr_t wparam,
                                     std::intptr_t lparam);
    // Shows the pane's group, writes its words, sets its default button. Must not send events to the machine.
    virtual void Enter() {}
    // Hides and disables the group. Everything else keeps its state until the next visit.
    virtual void Leave() {}

    // Returns the text controls in red or green. The pane owns the list.
    virtual std::span<const MarkedControl> MarkedControls() const { return {}; }

protected:
    PVNWorkFlowContext* context = nullptr; // borrowed
};

} // namespace brixen::pvn::pvn_workflow
