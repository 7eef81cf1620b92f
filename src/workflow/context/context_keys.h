// The names of the values that the engine itself reads or writes in the bag of a run, and of its own actions.
// Each text is its own name.
#pragma once

namespace brixen::pvn::pvn_workflow {

// Long: the number of the workflow type. Written by the launcher; panes may branch on it.
inline constexpr char PvnWFKey_WorkFlow_Type[] = "PvnWFKey_WorkFlow_Type";
// Ptr: parent window of the dialog. Written by the launcher.
inline constexpr char PvnWFKey_MainWindow[] = "PvnWFKey_MainWindow";
// Long: the application that runs the workflow. Written by the launcher.
inline constexpr char PvnWFKey_HostApp[] = "PvnWFKey_HostApp";
// String: a locale such as "en_US". Written by the launcher.
inline constexpr char PvnWFKey_Language[] = "PvnWFKey_Language";
// String: the locale of the pages, which are English where the language of the run has no words. Written by
// the host of a workflow that calls the service.
inline constexpr char PvnWFKey_PageLocale[] = "PvnWFKey_PageLocale";
// Long: 1 if the busy panes offer cancel. Written by the launcher.
inline constexpr char PvnWFKey_AllowCancel[] = "PvnWFKey_AllowCancel";
// String: display name of the application, used in titles. Written by the launcher, or found by the context.
inline constexpr char PvnWFKey_ProductName[] = "PvnWFKey_ProductName";
// Long: the outcome, a status. Written by the engine's entry and by the code that decides the outcome.
inline constexpr char PvnWFKey_WorkFlowResult[] = "PvnWFKey_WorkFlowResult";
// Ptr: the open zeve::ZeveDialog. Written by the pane host.
inline constexpr char PvnWFKey_ZeveRef[] = "PvnWFKey_ZeveRef";
// Ptr: the PVNPaneHost, for panes that need it. Written while the workflow is built.
inline constexpr char PvnWFKey_AppDialog[] = "PvnWFKey_AppDialog";
// Ptr: the pane that shows a running action, null otherwise. Written by busy panes.
inline constexpr char PvnWFKey_CurrentPane[] = "PvnWFKey_CurrentPane";
// Ptr: the WorkerCallback through which a worker reports, ProgressNotifier. Written by the context.
inline constexpr char PvnWFKey_ProgressNotifierProc[] = "PvnWFKey_ProgressNotifierProc";
// Long: 1 after a call to the service has failed. Kept: the presence of a proxy's host and port decides
// whether they are used, not this key.
inline constexpr char PvnWFKey_UseUserProxySetting[] = "PvnWFKey_UseUserProxySetting";
// String: the address of the service. Written into the worker's bag only.
inline constexpr char PvnWFKey_ServiceUrl[] = "PvnWFKey_ServiceUrl";
// Long: write only. Never reaches the bag: it sets or clears the engine's cancel flag, and 1 also ends the
// call that a worker waits for.
inline constexpr char PvnWFKey_CancelFlag[] = "PvnWFKey_CancelFlag";
// String: name of the bitmap of the product label.
inline constexpr char PvnWFKey_ProductLabelName[] = "PvnWFKey_ProductLabelName";
// Long: not 0 after an action has changed the display name, so that the window is painted again.
inline constexpr char PvnWFKey_HasChangedProductName[] = "PvnWFKey_HasChangedProductName";

// Returns the folder of the service layer, or the empty text.
inline constexpr char PvnWFAction_GetSVHPath[] = "PvnWFAction_GetSVHPath";
// Returns the dictionary's text for a failed run, with the two bytes of PvnWFKey_WorkFlowResult in it.
inline constexpr char PvnWF_GetFormattedWorkflowResult[] = "PvnWF_GetFormattedWorkflowResult";

} // namespace brixen::pvn::pvn_workflow
