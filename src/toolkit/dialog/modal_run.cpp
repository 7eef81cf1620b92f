#include "toolkit/dialog/modal_run.h"

#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog_link.h"
#include "toolkit/event_record.h"
#include "toolkit/kept_exception.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/toolkit_state.h"

#include <optional>
#include <utility>

namespace brixen::zeve {

namespace {

// The window that owns a dialog, disabled between Disable and Restore.
class DisabledOwner {
public:
    DisabledOwner() = default;
    DisabledOwner(const DisabledOwner&) = delete;
    DisabledOwner& operator=(const DisabledOwner&) = delete;
    ~DisabledOwner() { RestoreQuietly(); }

    // Throws what the owner's window procedure throws.
    void Disable(NativeWindow owner) {
        if (!platform::IsWindowAlive(owner)) return;
        window = owner;
        wasEnabled = platform::IsEnabled(owner);
        platform::Enable(owner, false);
        platform::Send(owner, kMessageActivate, 0, 0);
    }

    // Throws what the owner's window procedure throws; the owner is enabled by then.
    void Restore() {
        const NativeWindow owner = std::exchange(window, nullptr);
        if (!platform::IsWindowAlive(owner)) return;
        if (wasEnabled) platform::Enable(owner, true);
        platform::Send(owner, kMessageActivate, 1, 0);
        platform::Activate(owner);
    }

    void RestoreQuietly() noexcept try { Restore(); } catch (...) {
        // Another exception is in flight already, or no caller is left to catch this one.
    }

private:
    NativeWindow window = nullptr; // null while nothing is disabled
    bool wasEnabled = false;
};

} // namespace

// One run under way, for as long as it lives on the stack.
class ModalRun {
public:
    explicit ModalRun(const DialogLink& runDialog) : dialog(&runDialog), outer(gToolkit.innermostRun) {
        gToolkit.innermostRun = this;
    }
    ModalRun(const ModalRun&) = delete;
    ModalRun& operator=(const ModalRun&) = delete;
    ~ModalRun() { Leave(); }

    // The innermost run of that dialog, from this one outward.
    ModalRun* Find(const DialogLink& wanted) {
        ModalRun* run = this;
        while (run != nullptr && run->dialog != &wanted) run = run->outer;
        return run;
    }
    ModalRun& Outermost() { return outer != nullptr ? outer->Outermost() : *this; }

    void End(std::int32_t newCode) {
        code = newCode;
        platform::WakeLoop();
    }
    bool HasOuterEnded() const { return outer != nullptr && outer->HasEnded(); }
    bool HasEnded() const { return code || quitOfHost || HasOuterEnded(); }
    bool IsPositive() const { return code == kEndPositive && !quitOfHost && !HasOuterEnded(); }

    void CancelForPendingQuit() {
        if (const std::optional<std::int32_t> quit = platform::TakePendingQuit()) CancelAllForQuit(*quit);
    }

    // Throws what window procedures of the host throw.
    void ShowAndHandleMessages(NativeWindow window, NativeWindow parent) {
        owner.Disable(platform::OwnerOfDialog(parent));
        ThrowKeptException(); // the owner may be a dialog of ours
        if (CanWait(window)) {
            platform::ShowOrHide(window, true);
            platform::PaintNow(window);
        }
        while (CanWait(window)) HandleOneMessage(window);
        owner.Restore();
    }

    // The work of the destructor, also called where no destructor will run.
    void Leave() noexcept {
        owner.RestoreQuietly();
        gToolkit.innermostRun = outer;
        if (outer == nullptr) {
            if (quitOfHost) platform::PostQuit(*quitOfHost);
        } else if (outer->HasEnded()) {
            // This run may have begun inside a message that another thread sent while the outer loop waits.
            platform::WakeLoop();
        }
    }

private:
    // A loop whose window is gone would wait forever.
    bool CanWait(NativeWindow window) {
        if (!HasEnded() && !platform::IsWindowAlive(window)) End(kEndNegative);
        return !HasEnded();
    }

    // Throws what a window procedure of the host throws.
    void HandleOneMessage(NativeWindow window) {
        std::int32_t quitCode = 0;
        switch (platform::HandleNextMessage(window, quitCode)) {
        case platform::LoopStep::kHandled: break;
        case platform::LoopStep::kQuit: CancelAllForQuit(quitCode); break;
        case platform::LoopStep::kFailed: End(kEndNegative); break;
        }
    }

    void CancelAllForQuit(std::int32_t quitCode) { Outermost().quitOfHost = quitCode; }

    const DialogLink* dialog; // compared only: it may be deleted during its run
    ModalRun* outer;
    std::optional<std::int32_t> code;       // set once the run has ended by itself
    std::optional<std::int32_t> quitOfHost; // of the outermost run alone
    DisabledOwner owner;
};

namespace {

ModalRun* RunOf(const DialogLink& dialog) {
    return gToolkit.innermostRun != nullptr ? gToolkit.innermostRun->Find(dialog) : nullptr;
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
    ModalRun run(dialog);
    run.CancelForPendingQuit();
    if (run.HasEnded()) return false;
    AnnounceRun(dialog);
    // The host may have ended the run, or closed the window, just now.
    if (run.HasEnded() || !platform::IsWindowAlive(window)) return run.IsPositive();
    run.ShowAndHandleMessages(window, parent);
    ThrowKeptException();
    return run.IsPositive();
}

bool IsModalRunUnderWay() noexcept { return gToolkit.innermostRun != nullptr; }

bool IsRunning(const DialogLink& dialog) noexcept { return RunOf(dialog) != nullptr; }

void EndModalRun(const DialogLink& dialog, std::int32_t code) noexcept {
    if (ModalRun* run = RunOf(dialog)) run->End(code);
}

void EndInnermostRunByException() noexcept {
    KeepException();
    if (gToolkit.innermostRun != nullptr) gToolkit.innermostRun->End(kEndNegative);
}

void AbandonModalRuns() noexcept {
    while (gToolkit.innermostRun != nullptr) gToolkit.innermostRun->Leave();
}

} // namespace brixen::zeve
