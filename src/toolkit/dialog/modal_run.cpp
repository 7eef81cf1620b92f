#include "toolkit/dialog/modal_run.h"

#include "toolkit/dialog_link.h"
#include "toolkit/boxes/eve_box.h"
#include "toolkit/event_record.h"
#include "toolkit/kept_exception.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/toolkit_state.h"
#include "toolkit/window_messages.h"

#include <optional>

namespace brixen::zeve {

// One run under way, for as long as it lives on the stack.
class ModalRun {
public:
    explicit ModalRun(const DialogLink& dialog) : fDialog(&dialog), fOuter(gToolkit.innermostRun) {
        gToolkit.innermostRun = this;
    }
    ModalRun(const ModalRun&) = delete;
    ModalRun& operator=(const ModalRun&) = delete;
    ~ModalRun() {
        gToolkit.innermostRun = fOuter;
        if (fOuter != nullptr) fOuter->PostHeldQuit();
    }

    // The innermost run of that dialog, from this one outwards.
    ModalRun* Find(const DialogLink& dialog) {
        ModalRun* run = this;
        while (run != nullptr && run->fDialog != &dialog) run = run->fOuter;
        return run;
    }

    // Whether a dialog below waits for its own end.
    bool IsQuitHeldBelow() const {
        for (const ModalRun* run = fOuter; run != nullptr; run = run->fOuter)
            if (run->fHeldQuit) return true;
        return false;
    }

    void HoldQuit(std::int32_t code) { fHeldQuit = code; }

    // Posts the quit again for which this run, or one below it, still waits.
    void PostHeldQuit() const {
        if (fHeldQuit || IsQuitHeldBelow()) platform::PostQuit(fHeldQuit.value_or(kQuitNegative));
    }

private:
    const DialogLink* fDialog; // compared only: it may be deleted during its run
    ModalRun* fOuter;
    // The code of a quit for this dialog. The loop of another dialog above it, one that runs already or one
    // that begins before this loop gets that far, takes the quit message and ends too. So may a loop of the
    // host's own, inside the handler of a message, and forget it.
    std::optional<std::int32_t> fHeldQuit;
};

namespace {

// Keeps the parent disabled while it lives.
class DisabledParent {
public:
    explicit DisabledParent(NativeWindow parent) : fParent(parent) {
        if (!platform::IsWindowAlive(fParent)) return;
        platform::Enable(fParent, false);
        platform::Send(fParent, kMessageActivate, 0, 0);
    }
    DisabledParent(const DisabledParent&) = delete;
    DisabledParent& operator=(const DisabledParent&) = delete;
    ~DisabledParent() {
        if (!platform::IsWindowAlive(fParent)) return;
        platform::Enable(fParent, true);
        platform::Send(fParent, kMessageActivate, 1, 0);
        platform::Activate(fParent);
    }

private:
    NativeWindow fParent;
};

bool HandleMessages(NativeWindow window, const ModalRun& run) {
    std::uintptr_t code = 0;
    platform::LoopStep step = platform::HandleNextMessage(window, code);
    while (step == platform::LoopStep::Handled) {
        run.PostHeldQuit();
        step = platform::HandleNextMessage(window, code);
    }
    return step == platform::LoopStep::Quit && code == kQuitPositive;
}

bool ShowAndRun(const DialogLink& dialog, NativeWindow window, NativeWindow parent) {
    const DisabledParent disabled(parent);
    // What the parent's host threw: no quit was posted for this loop, which has not begun.
    ThrowKeptException();
    const ModalRun run(dialog);
    platform::ShowOrHide(window, true);
    platform::PaintNow(window);
    return HandleMessages(window, run) && !run.IsQuitHeldBelow();
}

void AnnounceRun(const DialogLink& dialog) {
    if (dialog.callback == nullptr) return;
    EventRecord record;
    dialog.callback(kWhatModalRun, record, dialog.callbackParams);
    ThrowKeptException();
}

} // namespace

bool RunModally(DialogLink& dialog, NativeWindow parent) {
    const NativeWindow window = dialog.rootBox != nullptr ? dialog.rootBox->TopLevelWindow() : nullptr;
    if (!platform::IsWindowAlive(window)) return false;
    AnnounceRun(dialog);
    // The host may have closed the window just now; a loop without it would never end.
    if (!platform::IsWindowAlive(window)) return false;
    const bool positive = ShowAndRun(dialog, window, parent);
    ThrowKeptException();
    return positive;
}

bool IsModalRunUnderWay() noexcept { return gToolkit.innermostRun != nullptr; }

bool IsRunning(const DialogLink& dialog) noexcept {
    return gToolkit.innermostRun != nullptr && gToolkit.innermostRun->Find(dialog) != nullptr;
}

void EndRun(const DialogLink& dialog, std::int32_t code) noexcept {
    ModalRun* run = gToolkit.innermostRun != nullptr ? gToolkit.innermostRun->Find(dialog) : nullptr;
    if (run != nullptr) run->HoldQuit(code);
    platform::PostQuit(code);
}

void AbortInnermostRun() noexcept {
    if (gToolkit.innermostRun == nullptr) return;
    gToolkit.innermostRun->HoldQuit(kQuitNegative);
    platform::PostQuit(kQuitNegative);
}

} // namespace brixen::zeve
