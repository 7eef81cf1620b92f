// The one dialog window of a workflow, and the action delegate of all its states. It owns the toolkit's
// dialog, routes the window's messages, and lets the pane of each state come and go. Everything runs on the
// thread of the modal loop.
//
// A concrete host derives from PVNConcreteHost (workflow/panes/concrete_host.h) and brings its table from control
// id to handler.
#pragma once

#include "workflow/machine/action_delegate.h"
#include "workflow/panes/dialog_rules.h"
#include "workflow/panes/host_window.h"
#include "workflow/panes/picture_controls.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace brixen::zeve {
class EventRecord;
}

namespace brixen::pvn::pvn_workflow {

class PVNNavStateMachine;
class PVNPane;
class PVNWorkFlowContext;

class PVNPaneHost : public PVNActionDelegate, public PVNHostWindow {
public:
    // `text` is the view description that holds the controls of all panes.
    explicit PVNPaneHost(std::string text);
    PVNPaneHost(const PVNPaneHost&) = delete;
    PVNPaneHost& operator=(const PVNPaneHost&) = delete;
    ~PVNPaneHost() override;

    // Both are not owned and must outlive the run. Comes before Init.
    void Connect(PVNNavStateMachine& runMachine, PVNWorkFlowContext& runContext);
    // Makes the dialog, hidden, with all its controls. Throws when there is no window.
    virtual void Init();
    // Runs the dialog to its end. True if that was kWFState_Done.
    virtual bool RunModal();
    // Deletes the dialog. Harmless without one.
    virtual void Destroy() noexcept;
    // Called once, just before the window is shown.
    virtual std::intptr_t OnInitDialog();

    // The pane of the state comes up in place of the one before. A state without a pane leaves what is shown.
    void Enter(PVNStateMachine& stateMachine, std::uint16_t state) override;
    // The pane that was entered last goes, whatever `state` says.
    void Exit(PVNStateMachine& stateMachine, std::uint16_t state) override;

    // The host's message map.
    bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) override;
    // What the toolkit is answered (see toolkit/zeve_callback.h).
    std::intptr_t RouteHostMessage(const WindowMessage& message);

    PictureControls& Pictures() { return pictures; }

protected:
    // Hands the event to the machine. Returns what a handler answers: kAnswerEndPositive if the workflow is
    // done, kAnswerEndNegative if it was left, else 0. After an end state it delivers nothing more.
    std::intptr_t DeliverEvent(std::string_view event);
    // Calls the handler of a control's id. Returns whether there is one; only then `result` counts.
    virtual bool HandleCommand(std::uint16_t id, std::intptr_t& result) = 0;
    // What the handler of that id answers; 0 if there is none.
    std::intptr_t Press(std::uint16_t id);
    // Does what the current pane put off until it is on screen: it posted kMessageFirstFocus.
    virtual void OnFirstFocus() {}
    // Whether a host of this class was painted again after a changed product name; one flag a class and
    // process.
    virtual bool& RepaintedFlag() = 0;

    PVNWorkFlowContext* context = nullptr; // not owned
    PVNNavStateMachine* machine = nullptr; // not owned
    PVNPane* currentPane = nullptr;        // of the state last entered, or null; not owned
    OwnedDialog zeveRef;

private:
    struct CallbackParams {
        zeve::NativeWindow window = nullptr;
        PVNPaneHost* host = nullptr;
    };
    struct MapEntry {
        std::uint32_t number;
        bool (PVNPaneHost::*handle)(const WindowMessage&, std::intptr_t& result);
    };
    static const MapEntry kMessageMap[];

    static std::uint64_t HostEventCallback(std::int32_t what, zeve::EventRecord& record, void* params);

    void MakeDialog();
    zeve::NativeBitmap LoadHostBitmap(const std::string& name);
    void EnterPane();
    void RepaintForProductName();
    void NoteFirstUserEvent(const WindowMessage& message);

    bool OnInitDialogMessage(const WindowMessage& message, std::intptr_t& result);
    bool OnPaint(const WindowMessage& message, std::intptr_t& result);
    bool OnEraseBackground(const WindowMessage& message, std::intptr_t& result);
    bool OnKeyDown(const WindowMessage& message, std::intptr_t& result);
    bool OnClose(const WindowMessage& message, std::intptr_t& result);
    bool OnFirstFocusMessage(const WindowMessage& message, std::intptr_t& result);
    bool OnCommand(const WindowMessage& message, std::intptr_t& result);

    zeve::NativeBitmap backgroundBitmap = nullptr; // the resource layer's
    zeve::NativeBitmap logoBitmap = nullptr;       // the resource layer's
    PVNWorkFlowContext* activeContext = nullptr;   // null until Init
    std::string viewText;
    CallbackParams callbackParams;
    PictureControls pictures;
    bool sawPane = false, sawUser = false;
};

// Loads a bitmap and shows it in a picture control of the host's dialog. A missing one is shown as nothing.
void ShowBitmapInControl(PVNPaneHost& host, const std::string& name, std::uint16_t viewId);

} // namespace brixen::pvn::pvn_workflow
