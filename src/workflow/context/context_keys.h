// The names of the values that the engine itself reads or writes in the bag of a run, and of the actions that
// it knows itself. Each text is its own name.
#pragma once

namespace brixen::pvn::pvn_workflow {

// Long: the number of the workflow type. Written by the launcher; panes may branch on it.
inline constexpr char PvnWFKey_WorkFlow_Type[] = "PvnWFKey_WorkFlow_Type";
// Ptr: parent window of the dialog. Written by the launcher.
inline constexpr char PvnWFKey_MainWindow[] = "PvnWFKey_MainWindow";
// Long: which host runs the workflow. Written by the launcher.
inline constexpr char PvnWFKey_HostApp[] = "PvnWFKey_HostApp";
// String: a locale such as "en_US". Written by the launcher.
inline constexpr char PvnWFKey_Language[] = "PvnWFKey_Language";
// Long: 1 if the busy panes offer cancel. Written by the launcher.
inline constexpr char PvnWFKey_AllowCancel[] = "PvnWFKey_AllowCancel";
// String: display name of the host, used in titles. Written by the launcher, or found by the context.
inline constexpr char PvnWFKey_ProductName[] = "PvnWFKey_ProductName";
// Long: the outcome, a status. Written by the engine's entry and by whatever decides the outcome.
inline constexpr char PvnWFKey_WorkFlowResult[] = "PvnWFKey_WorkFlowResult";
// Ptr: the ZeveDialog that is open. Written by the pane host.
inline constexpr char PvnWFKey_ZeveRef[] = "PvnWFKey_ZeveRef";
// Ptr: the PVNPaneHost, for panes that need it. Written by Build.
inline constexpr char PvnWFKey_AppDialog[] = "PvnWFKey_AppDialog";
// Ptr: the pane that shows a running action, null otherwise. Written by busy panes.
inline constexpr char PvnWFKey_CurrentPane[] = "PvnWFKey_CurrentPane";
// Long: write only. Never reaches the bag: it sets or clears the engine's cancel flag.
inline constexpr char PvnWFKey_CancelFlag[] = "PvnWFKey_CancelFlag";
// Long: not 0 once an action changed the display name, so that what shows it is painted again.
inline constexpr char PvnWFKey_HasChangedProductName[] = "PvnWFKey_HasChangedProductName";

// Gives the folder of the service layer, or the empty text.
inline constexpr char PvnWFAction_GetSVHPath[] = "PvnWFAction_GetSVHPath";
// Gives the dictionary's text for a failed run, with the two bytes of PvnWFKey_WorkFlowResult in it.
inline constexpr char PvnWF_GetFormattedWorkflowResult[] = "PvnWF_GetFormattedWorkflowResult";

} // namespace brixen::pvn::pvn_workflow
