// A page with controls to fill in: it gives the focus to one of them, and shows what is wrong with it.
#pragma once

#include "workflow/panes/page_pane.h"
#include "workflow/panes/window_message.h"

#include <cstdint>
#include <string>

namespace brixen::pvn::pvn_workflow {

class HyperLink;

// The words of an alert about a field, as keys.
struct FieldAlert {
    const char* title;
    const char* text;
};

// What is wrong with the content of a field.
struct FieldFault {
    std::uint16_t field; // its view id
    FieldAlert alert;
};

class FieldPane : public PagePane {
public:
    static constexpr std::uint16_t kNoControl = 0;

    // `control` takes the focus once the pane is on screen; without one the default button has it.
    explicit FieldPane(const PageTraits& pageTraits, std::uint16_t control = kNoControl)
        : PagePane(pageTraits), firstFocus(control) {}

    void Enter() override;

    // To be called by the host with each message after its own handlers, while the pane is on screen.
    virtual void OnMessage(const WindowMessage& message);
    // Takes what was entered into the run. Shows what is wrong with the first bad field instead, and returns
    // false.
    [[nodiscard]] virtual bool TakeEntries() { return true; }
    // Gives the focus to the first control. The pane is on screen.
    void TakeFirstFocus();

protected:
    // A control of the pane sent a notification to its dialog.
    virtual void OnNotification(Notification notification);

    zeve::NativeWindow ControlOf(std::uint16_t viewId) const;
    // Makes a text of the page a link that presses its id.
    void AttachLink(HyperLink& link, std::uint16_t viewId);
    // Shows the alert, and gives the focus to the field, with all of its text selected.
    void ShowFault(const FieldFault& fault);
    // Gives the focus to an edit field, with all of its text selected.
    void FocusWhole(std::uint16_t field) const;
    // Returns the control that takes the focus first, or null.
    virtual zeve::NativeWindow FirstControl() const { return ControlOf(firstFocus); }

    std::uint16_t firstFocus; // a view id, or kNoControl

private:
    void HaveFocusReported();
    void OnTab();

    std::uint16_t fieldToCorrect = kNoControl; // takes the next focus
};

} // namespace brixen::pvn::pvn_workflow
