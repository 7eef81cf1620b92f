// The root class of workflows and panes: an object that refers to one other object of the run.
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
    Reference* ref; // borrowed
};

} // namespace brixen::pvn::pvn_workflow
