// The one dialog window of a workflow, and the action delegate of all its states. It owns the toolkit's
// dialog, routes the window's messages, and enters and leaves the pane of each state. Everything runs on the
// thread of the modal loop.
//
// A concrete host derives from PVNConcreteHost (workflow/panes/concrete_host.h) and has a table from control
// id to handler.
#pragma once

#include "workflow/controls/backdrop.h"
#include "workflow/machine/action_delegate.h"
#include "workflow/panes/dialog_rules.h"
#include "workflow/panes/picture_controls.h"
#include "workflow/panes/window_message.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace brixen::zeve {
class EventRecord;
}

namespace brixen::pvn::pvn_workflow {

class PVNNavStateMachine;
class PVNPane;
class PVNWorkFlowContext;

// The window side of a pane host: a handle and a message map.
class PVNDialogWindow {
public:
    virtual ~PVNDialogWindow() = default;
    // Returns whether the message was handled; only then `result` counts.
    virtual bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) = 0;

    // Returns the toolkit's window: null before Init and after the run has ended.
    zeve::NativeWindow Window() const { return window; }

protected:
    zeve::NativeWindow window = nullptr;
};

class PVNPaneHost : public PVNActionDelegate, public PVNDialogWindow {
public:
    // `text` is the view description with the controls of all panes, `name` its resource name.
    explicit PVNPaneHost(std::string text, std::string name = {});
    PVNPaneHost(const PVNPaneHost&) = delete;
    PVNPaneHost& operator=(const PVNPaneHost&) = delete;
    ~PVNPaneHost() override;

    // Borrows both for the run. Call it before Init.
    void Connect(PVNNavStateMachine& runMachine, PVNWorkFlowContext& runContext);
    // Makes the dialog with all its controls, hidden. Throws if there is no window.
    virtual void Init();
    // Runs the dialog to its end. Returns whether that was kWFState_Done. Throws what a handler or a pane
    // throws.
    virtual bool RunModal();
    // Deletes the dialog. Harmless without one.
    virtual void Destroy() noexcept;
    // Called once, just before the window is shown.
    virtual std::intptr_t OnInitDialog();
    // Draws what lies over the backdrop, logo and product label, on a device that already shows the backdrop.
    // Does nothing in high contrast.
    virtual void PaintOverlay(zeve::NativeDrawing device);

    // Returns whether this host can show the pane.
    virtual bool Accepts(const PVNPane&) const { return true; }

    // Shows the pane of the state. A state without a pane leaves the window as it is.
    void Enter(PVNStateMachine& stateMachine, std::uint16_t state) override;
    // Hides the pane of the state last entered. Kept: `state` is ignored.
    void Exit(PVNStateMachine& stateMachine, std::uint16_t state) override;

    // The host's message map.
    bool ProcessWindowMessage(const WindowMessage& message, std::intptr_t& result) override;
    // Returns the answer to the toolkit (see toolkit/zeve_callback.h).
    std::intptr_t RouteHostMessage(const WindowMessage& message);

    PictureControls& Pictures() { return pictures; }

protected:
    // Hands the event to the machine. Returns the answer of a handler: kAnswerEndPositive if the workflow is
    // done, kAnswerEndNegative if it was left, else 0. Delivers nothing after an end state.
    std::intptr_t DeliverEvent(std::string_view event);
    // Calls the handler of a control's notification. Returns whether there is one; only then `result` counts.
    virtual bool HandleCommand(Notification, std::intptr_t&) { return false; }
    // Presses the control: returns the answer of its handler, or 0 without one.
    std::intptr_t Press(std::uint16_t id);
    // Does what the current pane has put off until it is on screen: it posted kMessageFirstFocus.
    virtual void OnFirstFocus() {}
    // Defines the text variables of the view, see ZeveDefineText. Called by Init, before the dialog is made.
    virtual void DefineTexts(zeve::ZeveDialog&) {}
    // Whether a host of this class was painted again after a changed product name: one flag for each class
    // and process.
    virtual bool& RepaintedFlag() = 0;

    // Returns the pane of the state last entered, or null.
    PVNPane* CurrentPane() const { return currentPane; }
    // Returns the run: null until Init.
    PVNWorkFlowContext* ActiveContext() const { return activeContext; }

    PVNWorkFlowContext* context = nullptr; // borrowed
    PVNNavStateMachine* machine = nullptr; // borrowed
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

    void OpenDialog();
    void ArrangeBackdrop();
    void PaintBackdrop(zeve::NativeDrawing device);
    void ChooseLabel();
    void ReleaseLabel() noexcept;
    platform::Color TextColorOf(zeve::NativeWindow control) const;
    zeve::NativeBitmap LoadHostBitmap(const std::string& name);
    void EnterPane();
    void RepaintForProductName();
    void NoteFirstUserEvent(const WindowMessage& message);

    bool OnInitDialogMessage(const WindowMessage& message, std::intptr_t& result);
    bool OnPaint(const WindowMessage& message, std::intptr_t& result);
    bool OnColorStatic(const WindowMessage& message, std::intptr_t& result);
    bool OnEraseBackground(const WindowMessage& message, std::intptr_t& result);
    bool OnSystemColors(const WindowMessage& message, std::intptr_t& result);
    bool OnKeyDown(const WindowMessage& message, std::intptr_t& result);
    bool OnClose(const WindowMessage& message, std::intptr_t& result);
    bool OnFirstFocusMessage(const WindowMessage& message, std::intptr_t& result);
    bool OnCommand(const WindowMessage& message, std::intptr_t& result);

    zeve::NativeBitmap backgroundBitmap = nullptr; // the resource layer's
    zeve::NativeBitmap labelBitmap = nullptr;      // the resource layer's; at the top left
    zeve::NativeBitmap logoBitmap = nullptr;       // the resource layer's; at the top right
    platform::OwnedBrush panelBrush;               // a pattern of panelBitmap, for text controls
    platform::OwnedBitmap panelBitmap;             // the backdrop as it looks on the screen
    std::unique_ptr<PanelRenderer> panel;          // draws panelBitmap
    PVNWorkFlowContext* activeContext = nullptr;   // null until Init
    PVNPane* currentPane = nullptr;                // borrowed
    std::string viewText, viewName;
    std::string labelName;      // of labelBitmap
    bool isLabelLoaded = false; // or was found missing
    CallbackParams callbackParams;
    PictureControls pictures;
    bool sawUser = false;
};

// Loads a bitmap and shows it in a picture control of the host's dialog. Without the bitmap the control is
// empty.
void ShowBitmapInControl(PVNPaneHost& host, const std::string& name, std::uint16_t viewId);

} // namespace brixen::pvn::pvn_workflow
