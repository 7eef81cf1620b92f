// The context of a run: the launcher's bag, with keys that act instead of being stored, keys that are
// computed at their first reading, and the engine's actions. It is a bag itself. It belongs to the dialog's
// thread.
//
// A workflow with keys and actions of its own derives from it and replaces the three hooks.
#pragma once

#include "workflow/context/context_storage.h"
#include "workflow/context/progress_timer.h"
#include "workflow/context/worker_bag.h"

#include <memory>

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlowContext : public PVNContextStorage {
public:
    // `bag` is borrowed and must outlive this. It gets the notifier of workers.
    explicit PVNWorkFlowContext(T_StorageInterface& bag);
    PVNWorkFlowContext(const PVNWorkFlowContext&) = delete;
    PVNWorkFlowContext& operator=(const PVNWorkFlowContext&) = delete;

    // PvnWFKey_CancelFlag never reaches the bag: a Long there sets or clears the engine's cancel flag, and 1
    // also ends the call that a worker waits for.
    bool Set(std::string_view key, std::string_view typeName, const void* value) override;
    // An absent value of a computed key is computed once and stored.
    bool Get(std::string_view key, std::string_view typeName, void* out) override;
    // Returns the empty text for an unknown name, which is no error.
    std::string Action(std::string_view name) override;

    // Called once, after the dialog was made: sets the dictionary variables whose values are in the context.
    virtual void RefreshDictionaryVariables() {}

    PVNProgressTimer& ProgressTimer() { return *progressTimer; }
    // The bag of the latest worker; null before the first one.
    std::shared_ptr<WorkerBag> workerBag;

protected:
    // Acts on a key instead of storing it. Returns whether the key is one of these.
    virtual bool InterceptValue(std::string_view key, std::string_view typeName, const void* value);
    // Computes a value and stores it with the Set helpers. Returns whether it did.
    virtual bool ComputeValue(std::string_view key, std::string_view typeName);
    // Runs an action that the engine does not have. Returns whether the name is known here; only then
    // `result` counts.
    virtual bool RunAction(std::string_view name, std::string& result);

private:
    // The folder of the base service library, or nothing.
    std::string GetServicePath();
    std::string GetFormattedWorkflowResult();

    std::unique_ptr<PVNProgressTimer> progressTimer;
};

} // namespace brixen::pvn::pvn_workflow
