// The frame of a workflow: what is built, run and torn down. A concrete workflow fills the tables in Build
// and has nothing else to do.
#pragma once

#include "workflow/context/workflow_object.h"

#include <cstdint>
#include <memory>

namespace brixen::pvn::pvn_workflow {

class PVNDialogStateMachine;
class PVNPane;
class PVNPaneHost;
class PVNWorkFlowContext;

class PVNWorkFlow : public PVNWorkFlowObject<PVNWorkFlowContext> {
public:
    // The context is not owned and must outlive this.
    explicit PVNWorkFlow(PVNWorkFlowContext& context);
    ~PVNWorkFlow() override;

    // Makes host, machine and panes. The graph may depend on what the context holds. `demo`: the run is a
    // tour of the panes.
    virtual void Build(bool demo) = 0;
    // Destroys what Build made. One that replaces it releases its own things and then calls this one.
    virtual void Cleanup() noexcept;
    // Builds, runs and cleans up, the last also when an exception leaves. Returns whether the run ended in
    // kWFState_Done.
    bool Run(bool demo);

protected:
    // Takes the host, makes the machine over it and tells both the run. Comes first in Build, behind what the
    // host needs.
    void SetHost(std::unique_ptr<PVNPaneHost> paneHost);
    // Gives a state its pane, which Cleanup destroys. The state must have a transition by now, and no pane
    // yet; throws std::logic_error otherwise.
    void SetPane(std::uint16_t state, std::unique_ptr<PVNPane> pane);

    std::unique_ptr<PVNPaneHost> host;
    std::unique_ptr<PVNDialogStateMachine> machine; // refers to the host, so it goes first

private:
    void DestroyPanes() noexcept;
};

} // namespace brixen::pvn::pvn_workflow
