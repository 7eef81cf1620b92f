// The pane of a state that runs an operation: a busy bar, a line that says what happens, and a Cancel button
// where the run offers one.
#pragma once

#include "workflow/controls/busy_bar.h"
#include "workflow/panes/page_pane.h"
#include "workflow/worker/operation.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

// The messages that a busy pane posts to its dialog when it is on screen: its worker may start. Each workflow
// has one of them; the host takes both.
inline constexpr std::uint32_t kMessageStartWorker = 0x1634;       // 5684
inline constexpr std::uint32_t kMessageStartSecondWorker = 0x1635; // 5685

inline constexpr std::uint16_t kNoBusyControl = 0;

// What distinguishes the busy panes. View ids, or kNoBusyControl.
struct BusyTraits {
    const OperationTraits& operation;
    std::uint16_t bar;          // a control without a procedure of its own, such as a picture
    std::uint16_t statusText;   // says that the pane waits, or cancels
    std::uint16_t cancelButton; // not among the buttons of the page
    std::uint16_t cancelNote;   // shown with the button
    std::uint32_t startMessage = kMessageStartWorker;
};

class BusyPane : public PagePane {
public:
    // The traits are borrowed. In a tour of the panes (`demo`) no worker is started.
    BusyPane(const PageTraits& page, const BusyTraits& busyTraits, bool demo = false);

    void Enter() override;
    void Leave() override;

    const OperationTraits& Operation() const { return traits.operation; }
    // Returns whether the worker is to be started: once after each Enter, never in a tour.
    [[nodiscard]] bool TakeStart();
    // Shows the full bar.
    void ShowFinished();

    // Whether PvnWFKey_AllowCancel of the run is 1.
    [[nodiscard]] bool OffersCancel() const;
    // Asks the worker to stop, says so and disables the button. Harmless when repeated.
    void Cancel();
    [[nodiscard]] bool IsCanceling() const { return isCanceling; }

private:
    zeve::NativeWindow ControlOf(std::uint16_t viewId) const;
    void ShowCancel(bool visible);
    void ShowStatus(const char* key);

    const BusyTraits& traits;
    BusyBar bar;
    bool isDemo;
    bool isRunning = false; // between Enter and Leave
    bool isCanceling = false;
    bool startsWorker = false;
};

} // namespace brixen::pvn::pvn_workflow
