// The C face of the library: one line a call, inside the exception boundary.
#include "pavane.h"

#include "frame/exception_boundary.h"
#include "frame/exports/exported_operations.h"
#include "frame/frame_state.h"
#include "frame/version.h"

using namespace brixen::pvn;

uint16_t Pavane_Initialize(int32_t hostApp, uint32_t hostOptions) {
    return StatusAtBoundary([=] { return Initialize(hostApp, hostOptions); });
}

uint32_t Pavane_GetVersion(void) { return kVersionWord; }

uint16_t Pavane_PreloadWorkflow(uint16_t workflow) {
    return StatusAtBoundary([=] { return PreloadWorkflow(workflow); });
}

uint16_t Pavane_RunWorkflow(uint16_t workflow, void* parentWindow) {
    return StatusAtBoundary([=] { return RunWorkflow(workflow, parentWindow); });
}

uint16_t Pavane_Info_GetErrorCode(void) { return GetFrameState().gLastError; }

void Pavane_Terminate(void) { Terminate(); }
