// The frame of a workflow: it builds, runs and cleans up. A concrete workflow fills the tables in Build and
// has nothing else to do.
#pragma once

#include "workflow/context/workflow_object.h"

#include <cstdint>
#include <map>
#include <memory>

namespace brixen::pvn::pvn_workflow {

class PVNDialogStateMachine;
class PVNPane;
class PVNPaneHost;
class PVNWorkFlowContext;

class PVNWorkFlow : public PVNWorkFlowObject<PVNWorkFlowContext> {
public:
    // The class of the run's context. A workflow with keys or actions of its own names a class derived from
    // it, and takes that in its constructor.
    using Context = PVNWorkFlowContext;

    // The context is borrowed and must outlive this.
    explicit PVNWorkFlow(PVNWorkFlowContext& context);
    ~PVNWorkFlow() override;

    // Makes host, machine and panes. The graph may depend on the context. `demo`: the run is a tour of the
    // panes.
    virtual void Build(bool demo) = 0;
    // Destroys the panes, in the order of their states, then machine and host. An override first frees its
    // own things and then calls this one.
    virtual void Cleanup() noexcept;
    // Builds, runs, and cleans up on every way out. Returns whether the run ended in kWFState_Done. Throws
    // what Build, a pane or a handler throws.
    bool Run(bool demo);

protected:
    // Takes the host and makes the machine over it. Call it first in Build, after the resources of the host
    // are loaded.
    void SetHost(std::unique_ptr<PVNPaneHost> paneHost);
    // Gives a state its pane, which lives until Cleanup. Throws std::logic_error if the state has no
    // transition yet or already has a pane, and if the host does not accept the pane.
    void SetPane(std::uint16_t state, std::unique_ptr<PVNPane> pane);

    std::unique_ptr<PVNPaneHost> host;
    std::unique_ptr<PVNDialogStateMachine> machine; // borrows the host, so it is destroyed first

private:
    void DestroyPanes() noexcept;

    // By state, as a signed number: the order in which the machine lists its states. The machine borrows
    // them.
    std::map<std::int16_t, std::unique_ptr<PVNPane>> panes;
};

} // namespace brixen::pvn::pvn_workflow
