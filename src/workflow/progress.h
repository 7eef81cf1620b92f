// What the dialog's thread and a worker share: plain process-wide variables, no lock.
#pragma once

namespace brixen::pvn::pvn_workflow {

// The user wants the running operation stopped. Written by the dialog's thread only.
extern bool gProgressCancel;

} // namespace brixen::pvn::pvn_workflow
