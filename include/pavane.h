/*
 * Pavane: guided dialog workflows for desktop applications on 64-bit Windows.
 *
 * Conventions
 *
 *  1. Order of calls: Pavane_Initialize once; then any number of Pavane_RunWorkflow, each after an optional
 *     Pavane_PreloadWorkflow; at the end Pavane_Terminate. A new Pavane_Initialize may follow.
 *  2. Status: 0 is success, any other value is a failure or a decision of the user. A value means the same
 *     wherever it appears. Pavane_Info_GetErrorCode returns the latest one.
 *  3. Threads: make all calls on one thread, the one that owns the parent window and runs a message loop.
 *     Pavane_GetVersion and Pavane_Info_GetErrorCode may be called on any thread, at any time.
 *  4. Ownership: the library passes no memory to the host, and the host frees nothing. The parent window
 *     remains the host's.
 *  5. Language: the words of the dialogs follow the language of the host options (see PAVANE_HOST_OPTIONS).
 *     It is looked up each time a workflow is prepared: by its preload, or else by its run.
 *  6. Units: numbers have the widths of <stdint.h>. A window is passed as a pointer, so that this header
 *     needs no header of the system: (void*)window for a window handle.
 *  7. Failures: no exception of the library leaves a call. The details are in "pvn.log" in the user's
 *     temporary folder.
 *  8. Loading: calls use the C convention of the platform. The folder "PVResources" is beside the library.
 *     The first successful Pavane_Initialize keeps the library loaded until the process ends; FreeLibrary
 *     does not unload it from then on. Loading it and Pavane_GetVersion alone do not. The first run also
 *     loads svhservices.dll, if that is beside the library or in the working directory of the process. A
 *     working directory on the network or inside the user's temporary folder is not searched.
 *
 * While a dialog is open
 *
 *  1. Pavane_RunWorkflow runs a message loop of its own, which dispatches the messages of every window of the
 *     thread. So the host's window procedures are called during the run.
 *  2. Calls: Pavane_RunWorkflow and Pavane_PreloadWorkflow return PAVANE_BAD_ARGUMENT, on any thread.
 *     Pavane_Terminate is remembered and carried out when the run has ended. Pavane_Initialize returns as any
 *     second call does. None of them disturbs the run.
 *  3. Windows: the library disables the window that owns the dialog, the top-level window of the parent
 *     window, and enables it again before the call returns if it was enabled before. The other windows of the
 *     host stay enabled: disable them yourself if the user must not reach them.
 *  4. Messages: the loop knows nothing of the host's accelerators and modeless dialogs, so these rest until
 *     the call returns. A message that is posted to the thread and not to a window is lost.
 *  5. Quit: a WM_QUIT that the loop takes belongs to the host. The run ends, and the call returns as if the
 *     user had canceled; the message is posted again with its code, so that the loop of the host ends next.
 *     A WM_QUIT that is pending when the call begins has the same effect, and no window is shown. One that
 *     another loop takes for itself is not seen: that of a menu, that of moving or sizing a window, or a loop
 *     that the host runs inside one of its window procedures.
 *  6. A window's end: when the dialog or the window that owns it (see 3) is destroyed during the run, the run
 *     ends as a cancel. After a call to the service, an end by 5 or 6 has the status of that call instead.
 *  7. Exceptions of the host: a C++ exception that leaves one of the host's window procedures during a
 *     message that the library dispatches or sends ends the run with PAVANE_EXCEPTION. Nothing is promised
 *     for a procedure that the system itself calls, as during EnableWindow, ShowWindow, DestroyWindow or
 *     SetFocus: the system may swallow the exception or end the process. Catch exceptions in the procedure.
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

/*
 * Status codes, each with the words that a host may show. Families by the top byte. docs/statuses.md has the
 * same words, and what to do about each.
 */
#define PAVANE_SUCCESS 0x0000 /* Done. */

/* 0x81: the caller broke a precondition. */
#define PAVANE_NOT_INITIALIZED 0x8101 /* The library is not initialized. */
#define PAVANE_NULL_ARGUMENT 0x8102   /* A required pointer was null. */
#define PAVANE_BAD_ARGUMENT 0x8106    /* An argument is outside its set, or a workflow is running. */

/* 0x82: the system refused a resource, or an exception was caught. */
#define PAVANE_NO_MEMORY 0x8206 /* There is not enough memory. */
#define PAVANE_EXCEPTION 0x8209 /* The workflow failed by an exception. */
#define PAVANE_NO_THREAD 0x8282 /* The system refused a thread. */

/*
 * PAVANE_EXCEPTION says that a run or its preparing failed by an exception, and nothing more. What the log
 * holds about it:
 *
 *  1. "Missing Resource": a view or a dictionary is missing beside the library. A missing bitmap has the same
 *     line, and only leaves its place empty.
 *  2. "the description stops at line ..., column ...: ...": a view has a fault, or memory ran out while it
 *     was read. A line "View cannot be read" or "View has no window" has the path of the file.
 *  3. "line: 394, value: 33289": preparing failed. There is no Start and no End line then.
 *  4. Only the Start and the End line of the workflow: an exception of a window procedure of the host, or
 *     memory that ran out anywhere else in the run.
 *  5. The Start line without an End line: the host itself caught a structured exception outside the call.
 */

/* 0x83: stored data or a configuration value is missing or wrong. The generic code returns none of them. */

/* 0x84: the workflow reached an outcome that has no status. */
#define PAVANE_UNMAPPED_OUTCOME 0x8401 /* The workflow reached an outcome that has no status. */

/* 0x85: the service's own replies. Those without a name mean the same as PAVANE_SERVICE_UNAVAILABLE. */
#define PAVANE_SERVICE_DENIED 0x8501      /* The service denied the request. */
#define PAVANE_SERVICE_UNAVAILABLE 0x8502 /* The service is not available now. */
#define PAVANE_IS_SERVICE_REPLY(status) (((unsigned)(status) >> 8) == 0x85u)

/* 0x89: decisions of the user. These are no faults. Each workflow defines the meaning of the last two. */
#define PAVANE_USER_QUIT 0x8901     /* The user chose to quit the application. */
#define PAVANE_USER_CANCEL 0x8902   /* The user canceled the workflow. */
#define PAVANE_USER_OUTCOME3 0x8903 /* The user decided otherwise: the workflow's third outcome. */
#define PAVANE_USER_OUTCOME4 0x8904 /* The user decided otherwise: the workflow's fourth outcome. */
#define PAVANE_IS_USER_DECISION(status) (((unsigned)(status) >> 8) == 0x89u)

/* 0xD0: the call to the service failed. */
#define PAVANE_CALL_CANCELED 0xD001        /* The call to the service was canceled. */
#define PAVANE_CALL_TIMED_OUT 0xD002       /* The service did not answer in time. */
#define PAVANE_CALL_BAD_ANSWER 0xD003      /* The service's answer could not be read. */
#define PAVANE_CALL_SYSTEM_ERROR 0xD0A1    /* The system refused the call to the service. */
#define PAVANE_CALL_NO_MEMORY 0xD0A2       /* There is not enough memory for the call to the service. */
#define PAVANE_CALL_HTTP_ERROR 0xD0A3      /* The call to the service failed. */
#define PAVANE_CALL_INVALID_URL 0xD0B1     /* The service's address is not valid. */
#define PAVANE_CALL_NAME_UNRESOLVED 0xD0B2 /* The service's name is unknown. */
#define PAVANE_CALL_SECURE_FAILURE 0xD0B3  /* The service's certificate is not trusted. */

/*
 * Host options: a Windows language identifier in the high word and flags in the low word.
 *
 * The language is the one that the host speaks to its user, such as 0x0409 (English, United States) or 0x040D
 * (Hebrew, Israel). For 0 (the default), and for an identifier that the system does not know, it is the
 * user-interface language of the calling thread. A language without a folder of its own in PVResources is
 * shown in en_US.
 */
#define PAVANE_HOST_OPTIONS(languageIdentifier, flags)                                                       \
    (((uint32_t)(uint16_t)(languageIdentifier) << 16) | (uint32_t)(uint16_t)(flags))

/* Flag: panes that show long work offer no Cancel. The other flags are reserved and ignored: leave them 0. */
#define PAVANE_OPTION_WITHHOLD_CANCEL 0x0001

/*
 * Opens the log and makes the library ready. `hostApp` is a number by which the host identifies its kind, 0
 * for none; 2 is refused. `hostOptions` is 0 or made with PAVANE_HOST_OPTIONS.
 *
 * Returns PAVANE_SUCCESS, or PAVANE_BAD_ARGUMENT or PAVANE_NO_MEMORY, after which nothing is initialized. A
 * second call without Pavane_Terminate in between returns PAVANE_SUCCESS and ignores its arguments.
 */
uint16_t Pavane_Initialize(int32_t hostApp, uint32_t hostOptions);

/* Returns the version of the loaded library, to compare with PAVANE_VERSION. Needs no initialization. */
uint32_t Pavane_GetVersion(void);

/*
 * Prepares a workflow ahead of its run, so that the run starts at once. Optional. A failure is kept: the run
 * of the same workflow returns it without trying again, unless another call has changed the latest status. A
 * workflow that was prepared and not run counts as prepared after Pavane_Terminate and a new
 * Pavane_Initialize too.
 *
 * Returns PAVANE_SUCCESS, PAVANE_NOT_INITIALIZED, PAVANE_BAD_ARGUMENT or PAVANE_EXCEPTION. When `workflow` is
 * the one prepared last (0 at first and after each run), does nothing and returns the latest status.
 */
uint16_t Pavane_PreloadWorkflow(uint16_t workflow);

/*
 * Shows a workflow as a modal dialog and returns when it has ended. `parentWindow` is the parent of the
 * dialog. NULL, an invalid handle, the desktop window and HWND_MESSAGE mean no parent.
 *
 * Returns PAVANE_SUCCESS when the user completed the workflow, a decision of the user, or a failure.
 * Workflow 0 does not exist, but counts as prepared after each run: it returns the latest status if that is
 * not PAVANE_SUCCESS.
 */
uint16_t Pavane_RunWorkflow(uint16_t workflow, void* parentWindow);

/* Returns the latest status, 0 before the first. Needs no initialization, and outlives Pavane_Terminate. */
uint16_t Pavane_Info_GetErrorCode(void);

/* Frees everything and closes the log. Safe at any time, also repeatedly and without Pavane_Initialize. */
void Pavane_Terminate(void);

/* The types of these calls, for a host that loads the library with LoadLibrary and GetProcAddress. */
typedef uint16_t (*PavaneInitializeFunction)(int32_t hostApp, uint32_t hostOptions);
typedef uint32_t (*PavaneGetVersionFunction)(void);
typedef uint16_t (*PavanePreloadWorkflowFunction)(uint16_t workflow);
typedef uint16_t (*PavaneRunWorkflowFunction)(uint16_t workflow, void* parentWindow);
typedef uint16_t (*PavaneInfoGetErrorCodeFunction)(void);
typedef void (*PavaneTerminateFunction)(void);

#ifdef __cplusplus
}
#endif

#endif
