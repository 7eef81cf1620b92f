#include "workflow/panes/pane_host.h"

#include "frame/frame_state.h"
#include "frame/pavane_context.h"
#include "toolkit/control_styles.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/event_record.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/scope_guard.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/machine/nav_state_machine.h"
#include "workflow/panes/dialog_rules.h"
#include "workflow/panes/pane.h"
#include "workflow/platform/message_numbers.h"
#include "workflow/resources/resource_layer.h"

#include <new>
#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr char kBackgroundName[] = "background";
constexpr char kLogoName[] = "brixenlogo";
constexpr char kFirstLabelName[] = "productlabel";
constexpr std::uint32_t kButtonKind = 0xF; // BS_TYPEMASK

// Keeps a window from drawing while a pane is left or entered, so that its changes appear at once. The lock
// has effect on the whole process, so it is held during the pane's call only.
class ScreenLock {
public:
    explicit ScreenLock(zeve::NativeWindow window) { zeve::platform::LockUpdates(window); }
    ~ScreenLock() { zeve::platform::UnlockUpdates(); }
    ScreenLock(const ScreenLock&) = delete;
    ScreenLock& operator=(const ScreenLock&) = delete;
};

bool IsGroupBox(zeve::NativeWindow control) {
    return zeve::platform::IsOfClass(control, u"button") &&
           (zeve::platform::StyleOf(control) & kButtonKind) == zeve::style::kGroupBox;
}

// Keeps the backdrop from being drawn over the controls, which would flicker. A group box draws nothing
// inside its frame, and shows the backdrop there, so a dialog with one goes without.
void ClipChildren(zeve::NativeWindow dialog) {
    for (zeve::NativeWindow child = zeve::platform::TopChild(dialog); child;
         child = zeve::platform::NextSibling(child)) {
        if (IsGroupBox(child)) return;
    }
    zeve::platform::SetStyle(dialog, zeve::platform::StyleOf(dialog) | zeve::style::kClipChildren);
}

// Without memory for the path the root stays where it was.
void RestoreRoot() noexcept {
    try {
        SetResourceRootToLibrary();
    } catch (const std::bad_alloc&) {
        // See above.
    }
}

} // namespace

PVNPaneHost::PVNPaneHost(std::string text, std::string name)
    : viewText(std::move(text)), viewName(std::move(name)) {}

PVNPaneHost::~PVNPaneHost() {
    PVNPaneHost::Destroy();
    if (backgroundBitmap) ReleaseBitmapResource(kBackgroundName);
    ReleaseLabel();
    if (logoBitmap) ReleaseBitmapResource(kLogoName);
}

void PVNPaneHost::Connect(PVNNavStateMachine& runMachine, PVNWorkFlowContext& runContext) {
    machine = &runMachine;
    context = &runContext;
}

void PVNPaneHost::Init() {
    activeContext = context;
    backgroundBitmap = LoadHostBitmap(kBackgroundName);
    logoBitmap = LoadHostBitmap(kLogoName);
    labelBitmap = nullptr;
    isLabelLoaded = false;
    panel.reset();
    panelBrush.reset();
    panelBitmap.reset();
    labelName = kFirstLabelName;
    OpenDialog();
    SetPtr(*context, PvnWFKey_ZeveRef, zeveRef.get());
    context->RefreshDictionaryVariables();
}

void PVNPaneHost::OpenDialog() {
    void* mainWindow = nullptr;
    GetPtr(*context, PvnWFKey_MainWindow, mainWindow);
    std::string language;
    GetString(*context, PvnWFKey_Language, language);

    zeveRef = NewDialog(&HostEventCallback, static_cast<zeve::NativeWindow>(mainWindow), language);
    DefineTexts(*zeveRef);
    callbackParams.host = this;
    window = callbackParams.window = MakeDialog(*zeveRef, viewText, viewName, &callbackParams);
    ClipChildren(window);
}

zeve::NativeBitmap PVNPaneHost::LoadHostBitmap(const std::string& name) {
    const std::string folder = context->Action(PvnWFAction_GetSVHPath);
    if (!folder.empty()) SetResourceRootBelow(folder);
    const ScopeGuard restore(&RestoreRoot);
    return LoadBitmapResource(name);
}

bool PVNPaneHost::RunModal() { return zeve::ZeveRunModal(zeveRef.get()); }

void PVNPaneHost::Destroy() noexcept {
    pictures.TakeBack();
    window = callbackParams.window = nullptr;
    zeveRef.reset();
}

std::intptr_t PVNPaneHost::OnInitDialog() {
    ArrangeBackdrop();
    return 1;
}

void PVNPaneHost::Enter(PVNStateMachine& stateMachine, std::uint16_t state) {
    void* pane = nullptr;
    stateMachine.GetProperty(state, kPropertyPaneObject, pane);
    currentPane = static_cast<PVNPane*>(pane);
    if (!currentPane) return;
    SetWorkflowPhase(kPhaseRunning);
    SetPtr(*activeContext, PvnWFKey_ZeveRef, zeveRef.get());
    currentPane->Attach(zeveRef.get(), context);
    EnterPane();
}

void PVNPaneHost::EnterPane() {
    // The first pane is entered while the window is not visible yet.
    if (!zeve::platform::IsShown(window)) return currentPane->Enter();
    const ScreenLock lock(window);
    currentPane->Enter();
    RepaintForProductName();
}

void PVNPaneHost::RepaintForProductName() {
    std::uint32_t hasChanged = 0;
    GetLong(*activeContext, PvnWFKey_HasChangedProductName, hasChanged);
    if (hasChanged == 0 || RepaintedFlag()) return;
    RepaintedFlag() = true;
    zeve::platform::Invalidate(window);
}

void PVNPaneHost::Exit(PVNStateMachine&, std::uint16_t) {
    if (!currentPane) return;
    {
        const ScreenLock lock(window);
        currentPane->Leave();
    }
    zeve::platform::Invalidate(window);
}

std::intptr_t PVNPaneHost::Press(std::uint16_t id) {
    std::intptr_t result = 0;
    HandleCommand({.id = id, .code = kNotificationPressed}, result);
    return result;
}

std::intptr_t PVNPaneHost::DeliverEvent(std::string_view event) {
    // Another event may have ended the run while the handler showed an alert.
    if (!window) return 0;
    const std::uint16_t to = machine->HandleEvent(event);
    if (to != kWFState_Done && to != kWFState_Exit) return 0;
    SetWorkflowPhase(kPhaseEnded);
    return to == kWFState_Done ? zeve::kAnswerEndPositive : zeve::kAnswerEndNegative;
}

void ShowBitmapInControl(PVNPaneHost& host, const std::string& name, std::uint16_t viewId) {
    host.Pictures().Show(name, zeve::platform::ChildWithId(host.Window(), viewId));
}

} // namespace brixen::pvn::pvn_workflow
