/*
 * Pavane: guided dialog workflows for desktop applications on 64-bit Windows.
 *
 * Conventions
 *
 *  1. Order of calls: Pavane_Initialize once; then any number of Pavane_RunWorkflow, each after an optional
 *     Pavane_PreloadWorkflow; at the end Pavane_Terminate. A new Pavane_Initialize may follow.
 *  2. Status: 0 is success, any other value a failure or the user's decision. A value means the same
 *     wherever it appears; the codes stand below. The latest is read back with Pavane_Info_GetErrorCode.
 *  3. Threads: call everything on one thread, the one that owns the parent window and runs a message loop.
 *     Only Pavane_GetVersion and Pavane_Info_GetErrorCode may be called from any thread, at any time.
 *  4. During a run (Pavane_RunWorkflow has not returned; the host's own code may be called by the messages
 *     that it dispatches): Pavane_RunWorkflow and Pavane_PreloadWorkflow answer PAVANE_BAD_ARGUMENT, from
 *     any thread; Pavane_Terminate is remembered and carried out when the run has ended; Pavane_Initialize
 *     answers as any second one. None of them disturbs the run.
 *  5. Ownership: nothing that the library makes reaches the host, and the host frees nothing. The parent
 *     window stays the host's; it is disabled while a dialog is open and enabled again before the call
 *     returns. A host that destroys it during a run takes the dialog along, which ends the run as a cancel.
 *     So does a quit message that the host posts during a run, and no loop of the host's sees that one: post
 *     it when the call has returned.
 *  6. Language: the words of the dialogs follow the language of the host options (see PAVANE_HOST_OPTIONS),
 *     and stand from the first use after Pavane_Initialize. A new language takes a Pavane_Terminate and a
 *     Pavane_Initialize.
 *  7. Units: numbers have the widths of <stdint.h>. A window is passed as a pointer, so that this header
 *     needs none of the system's: (void*)window for a window handle.
 *  8. Failures: no exception leaves a call. Details stand in "pvn.log" in the user's temporary folder.
 *  9. Calls use the C convention of the platform. The folder "PVResources" must stand beside the library.
 *
 * This header is plain C11, and C++ as well.
 */
#ifndef PAVANE_H
#define PAVANE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The version that this header belongs to: major 3, minor 0, patch 11, build 10077. */
#define PAVANE_VERSION UINT32_C(0x1805A75D)

/* Workflows. */
#define PAVANE_WORKFLOW_WELCOME 1
#define PAVANE_WORKFLOW_REGISTRATION 2
#define PAVANE_WORKFLOW_PRIVACY 3
#define PAVANE_WORKFLOW_CONNECTION 4
#define PAVANE_WORKFLOW_FEEDBACK 5

/* Status codes. Families by the top byte. */
#define PAVANE_SUCCESS 0x0000

/* 0x81: the caller broke a precondition. */
#define PAVANE_NOT_INITIALIZED 0x8101 /* there was no successful Pavane_Initialize */
#define PAVANE_NULL_ARGUMENT 0x8102   /* a required pointer was null */
#define PAVANE_BAD_ARGUMENT 0x8106    /* hostApp 2, an unknown workflow, or a workflow call during a run */

/* 0x82: the system refused a resource, or an exception was caught. */
#define PAVANE_NO_MEMORY 0x8206
#define PAVANE_EXCEPTION 0x8209 /* also: a missing view or dictionary beside the library */
#define PAVANE_NO_THREAD 0x8282

/* 0x83: stored data or a configuration value is missing or wrong. No code of this family stands here. */

/* 0x84: the workflow reached an outcome that it has no status for. */
#define PAVANE_UNMAPPED_OUTCOME 0x8401

/* 0x89: the user decided. These are no faults. */
#define PAVANE_USER_QUIT 0x8901     /* quit the host application: the host is expected to close */
#define PAVANE_USER_CANCEL 0x8902   /* canceled the workflow */
#define PAVANE_USER_OUTCOME3 0x8903 /* what it says is each workflow's own affair */
#define PAVANE_USER_OUTCOME4 0x8904 /* as above */
#define PAVANE_IS_USER_DECISION(status) (((unsigned)(status) >> 8) == 0x89u)

/* 0xD0: the call to the service failed. */
#define PAVANE_CALL_CANCELED 0xD001
#define PAVANE_CALL_TIMED_OUT 0xD002
#define PAVANE_CALL_BAD_ANSWER 0xD003   /* the answer did not hold what was expected */
#define PAVANE_CALL_SYSTEM_ERROR 0xD0A1 /* any error of the system without a code of its own */
#define PAVANE_CALL_NO_MEMORY 0xD0A2
#define PAVANE_CALL_HTTP_ERROR 0xD0A3 /* any error of the HTTP layer without a code of its own */
#define PAVANE_CALL_INVALID_URL 0xD0B1
#define PAVANE_CALL_NAME_UNRESOLVED 0xD0B2
#define PAVANE_CALL_SECURE_FAILURE 0xD0B3

/*
 * Host options: a Windows language identifier in the high word and flags in the low word.
 *
 * The language is the one in which the host speaks to its user, such as 0x0409 (English, United States) or
 * 0x040D (Hebrew, Israel); 0 (the default), or an identifier that the system does not know, takes the calling
 * thread's user-interface language. A language without a folder of its own in PVResources is shown in en_US.
 */
#define PAVANE_HOST_OPTIONS(languageIdentifier, flags)                                                       \
    (((uint32_t)(uint16_t)(languageIdentifier) << 16) | (uint32_t)(uint16_t)(flags))

/* Flag: panes that show long work offer no Cancel. The other flags are reserved and ignored: leave them 0. */
#define PAVANE_OPTION_WITHHOLD_CANCEL 0x0001

/*
 * Opens the log and makes the library ready. `hostApp` is the host's own number for its kind, 0 for none; 2
 * is refused. `hostOptions` is 0 or built with PAVANE_HOST_OPTIONS.
 *
 * Returns PAVANE_SUCCESS; PAVANE_BAD_ARGUMENT or PAVANE_NO_MEMORY, after which nothing is initialized. A
 * second call without Pavane_Terminate in between returns PAVANE_SUCCESS and ignores its arguments.
 */
uint16_t Pavane_Initialize(int32_t hostApp, uint32_t hostOptions);

/* The version of the loaded library, to compare with PAVANE_VERSION. Needs no initialization. */
uint32_t Pavane_GetVersion(void);

/*
 * Prepares a workflow ahead of its run, so that the run starts at once. Optional. A failure is kept, and is
 * what the run of the same workflow then returns, without trying again. What was prepared and not run yet
 * counts as prepared even after Pavane_Terminate and a new Pavane_Initialize.
 *
 * Returns PAVANE_SUCCESS, PAVANE_NOT_INITIALIZED, PAVANE_BAD_ARGUMENT or PAVANE_EXCEPTION. When `workflow` is
 * the one prepared last (0 at first and after each run), does nothing and returns the latest status.
 */
uint16_t Pavane_PreloadWorkflow(uint16_t workflow);

/*
 * Shows a workflow as a modal dialog and returns when it has ended. `parentWindow` owns the dialog; one that
 * is null, or no window, counts as none, and any other window is used as it is, one of another
 * thread and the desktop too.
 *
 * Returns PAVANE_SUCCESS when the user went through to the end; one of the user's decisions; or a failure.
 */
uint16_t Pavane_RunWorkflow(uint16_t workflow, void* parentWindow);

/* The latest status, 0 before the first. Needs no initialization, and outlives Pavane_Terminate. */
uint16_t Pavane_Info_GetErrorCode(void);

/* Frees everything and closes the log. Safe at any time, also repeatedly and without Pavane_Initialize. */
void Pavane_Terminate(void);

#ifdef __cplusplus
}
#endif

#endif
