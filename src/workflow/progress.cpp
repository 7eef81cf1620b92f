#include "workflow/progress.h"

namespace brixen::pvn::pvn_workflow {

bool gProgressCancel = false;

} // namespace brixen::pvn::pvn_workflow
