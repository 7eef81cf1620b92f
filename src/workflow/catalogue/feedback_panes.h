// The panes of Feedback that show or take something. That of the storage has a file of its own.
#pragma once

#include "workflow/catalogue/field_pane.h"
#include "workflow/catalogue/problem_pane.h"
#include "workflow/worker/busy_pane.h"

#include <cstdint>
#include <optional>
#include <string>

namespace brixen::pvn::pvn_workflow::feedback {

extern const PageTraits kSettingsTraits; // of the page of connection settings
extern const PageTraits kSendingTraits;  // of the busy pane
extern const BusyTraits kSendingBusy;
extern const ProblemTraits kProblemTraits;

// What the feedback is about.
class PicturePane final : public FieldPane {
public:
    PicturePane();

    void Enter() override;
    [[nodiscard]] bool TakeEntries() override;

private:
    std::optional<FieldFault> FaultOfEntries() const;
    std::string Subject() const;
    std::string Category() const;

    bool isFrequencyMarked = false;
};

// Numbers of the camera, each of which may be left out: only those whose check box is set are sent, and the
// other fields are disabled. The fields begin with usual values, so that their units are seen.
class CapturePane final : public FieldPane {
public:
    CapturePane();

    void Enter() override;
    void Leave() override;
    void OnMessage(const WindowMessage& message) override;
    [[nodiscard]] bool TakeEntries() override;

protected:
    // A disabled field cannot take the focus: its check box does.
    zeve::NativeWindow FirstControl() const override;

private:
    void ShowUsualValues();
    void ShowCheckBoxes(bool visible);
    // The check box of the field reports something.
    void OnCheckBox(std::uint16_t field, std::uint16_t notification);
    void ShowFocusFrame(std::uint16_t field);
    void HideFocusFrame();

    bool isFilled = false;
};

// How much of it the service has got.
class ReceivedPane final : public FieldPane {
public:
    ReceivedPane();

    void Enter() override;
};

} // namespace brixen::pvn::pvn_workflow::feedback
