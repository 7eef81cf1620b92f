// The context of a run: the launcher's bag, with keys that act instead of being stored, keys that are
// computed at their first reading, and the engine's actions. It is a bag itself. It belongs to the dialog's
// thread.
//
// A workflow with keys and actions of its own derives from it and replaces the three hooks.
#pragma once

#include "workflow/context/context_storage.h"

namespace brixen::pvn::pvn_workflow {

class PVNWorkFlowContext : public PVNContextStorage {
public:
    using PVNContextStorage::PVNContextStorage;

    // PvnWFKey_CancelFlag never reaches the bag: a Long there sets or clears the engine's cancel flag.
    bool Set(std::string_view key, std::string_view typeName, const void* value) override;
    // An absent value of a computed key is computed once and stored.
    bool Get(std::string_view key, std::string_view typeName, void* out) override;
    // Returns the empty text for an unknown name, which is no error.
    std::string Action(std::string_view name) override;

    // Called once, after the dialog was made: sets the dictionary variables whose values are in the context.
    virtual void RefreshDictionaryVariables() {}

protected:
    // Acts on a key instead of storing it. Returns whether the key is one of these.
    virtual bool InterceptValue(std::string_view key, std::string_view typeName, const void* value);
    // Computes a value and stores it with the Set helpers. Returns whether it did.
    virtual bool ComputeValue(std::string_view key, std::string_view typeName);
    // Runs an action that the engine does not have. Returns whether the name is known here; only then
    // `result` counts.
    virtual bool RunAction(std::string_view name, std::string& result);

private:
    std::string GetServicePath();
    std::string GetFormattedWorkflowResult();
};

} // namespace brixen::pvn::pvn_workflow
