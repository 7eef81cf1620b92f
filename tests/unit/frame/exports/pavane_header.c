/* A host in C: everything that the public header offers, used as C11. */
#include "pavane.h"

uint32_t VersionSeenFromC(void);
uint16_t WholeRoundFromC(int32_t hostApp, uint32_t hostOptions);
uint32_t HostOptionsFromC(uint16_t language, uint16_t flags);

uint32_t VersionSeenFromC(void) { return Pavane_GetVersion(); }

uint16_t WholeRoundFromC(int32_t hostApp, uint32_t hostOptions) {
    uint16_t status = Pavane_Initialize(hostApp, hostOptions);
    if (status == PAVANE_SUCCESS) status = Pavane_PreloadWorkflow(PAVANE_WORKFLOW_WELCOME);
    if (status == PAVANE_SUCCESS) status = Pavane_RunWorkflow(PAVANE_WORKFLOW_WELCOME, (void*)0);
    if (status != Pavane_Info_GetErrorCode()) status = PAVANE_EXCEPTION;
    Pavane_Terminate();
    return status;
}

uint32_t HostOptionsFromC(uint16_t language, uint16_t flags) { return PAVANE_HOST_OPTIONS(language, flags); }
