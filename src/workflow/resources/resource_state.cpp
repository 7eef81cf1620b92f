#include "workflow/resources/resource_state.h"

#include "workflow/resources/resource_manager.h"

namespace brixen::pvn::pvn_workflow {

ResourceState::ResourceState() = default;
ResourceState::~ResourceState() = default;

ResourceState& TheResourceState() {
    static ResourceState state;
    return state;
}

} // namespace brixen::pvn::pvn_workflow
