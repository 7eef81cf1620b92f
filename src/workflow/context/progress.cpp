#include "workflow/context/progress.h"

namespace brixen::pvn::pvn_workflow {

constinit std::atomic<bool> gProgressCancel = false;

} // namespace brixen::pvn::pvn_workflow
