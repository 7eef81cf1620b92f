#include "workflow/resources/resource_state.h"

namespace brixen::pvn::pvn_workflow {

ResourceState& TheResourceState() {
    static ResourceState state;
    return state;
}

} // namespace brixen::pvn::pvn_workflow
