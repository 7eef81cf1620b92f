// The context of a run: the launcher's bag, with keys that act instead of being stored, keys that are
// computed when first asked for, and the engine's actions. It goes wherever a bag goes. It belongs to the
// dialog's thread.
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
    // A value that is absent is computed once, stored, and from then on found.
    bool Get(std::string_view key, std::string_view typeName, void* out) override;
    // Empty for an unknown name, which is no error.
    std::string Action(std::string_view name) override;

    // Called once the dialog exists: puts into the dictionary what its texts take from the context.
    virtual void RefreshDictionaryVariables() {}

protected:
    // Acts on a key instead of storing it. Returns whether it did.
    virtual bool InterceptValue(std::string_view key, std::string_view typeName, const void* value);
    // Computes a value and stores it with the Set helpers. Returns whether it did.
    virtual bool ComputeValue(std::string_view key, std::string_view typeName);
    // Runs a named action that the engine itself does not know. Returns whether the name is known here.
    virtual bool RunAction(std::string_view name, std::string& result);

private:
    std::string GetServicePath();
    std::string GetFormattedWorkflowResult();
};

} // namespace brixen::pvn::pvn_workflow
