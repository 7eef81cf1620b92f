// The root of what takes part in a workflow: something that refers to one other thing of the run.
#pragma once

namespace brixen::pvn::pvn_workflow {

template <class Reference>
class PVNWorkFlowObject {
public:
    explicit PVNWorkFlowObject(Reference* reference) : ref(reference) {}
    PVNWorkFlowObject(const PVNWorkFlowObject&) = delete;
    PVNWorkFlowObject& operator=(const PVNWorkFlowObject&) = delete;
    virtual ~PVNWorkFlowObject() = default;

protected:
    Reference* ref; // not owned
};

} // namespace brixen::pvn::pvn_workflow
