#include "workflow/worker/busy_pane.h"

#include "dictionaries/translation.h"
#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/workflow_context.h"
#include "workflow/panes/pane_helpers.h"
#include "workflow/platform/accessible.h"

#include <stdexcept>
#include <utility>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr char kWaitingKey[] = "$$$/pvn/busy/waiting";
constexpr char kCancelingKey[] = "$$$/pvn/busy/canceling";

} // namespace

BusyPane::BusyPane(const PageTraits& page, const BusyTraits& busyTraits, bool demo)
    : PagePane(page), traits(busyTraits), isDemo(demo) {}

zeve::NativeWindow BusyPane::ControlOf(std::uint16_t viewId) const {
    return zeve::platform::ChildWithId(zeve::ZeveTopWindow(ref), viewId);
}

void BusyPane::Enter() {
    const zeve::NativeWindow dialog = zeve::ZeveTopWindow(ref);
    PagePane::Enter();
    SetPtr(*context, PvnWFKey_CurrentPane, static_cast<PVNPane*>(this));
    isRunning = true;
    isCanceling = false;
    if (!bar.Window()) bar.Attach(ControlOf(traits.bar));
    bar.Start(kBusyStep);
    ShowStatus(kWaitingKey);
    startsWorker = !isDemo;
    if (startsWorker) {
        zeve::platform::Post(dialog, zeve::kMessagePaint, 0, 0);
        // Without it the pane would wait forever.
        if (!zeve::platform::Post(dialog, traits.startMessage, 0, 0)) {
            throw std::runtime_error("no message for the start of a worker");
        }
    }
    ShowCancel(OffersCancel());
    zeve::platform::Focus(dialog);
}

void BusyPane::Leave() {
    if (std::exchange(isRunning, false)) bar.Stop();
    startsWorker = false;
    ShowCancel(false);
    PagePane::Leave();
    zeve::platform::GrayCloseItem(zeve::ZeveTopWindow(ref));
    SetPtr(*context, PvnWFKey_CurrentPane, nullptr);
}

bool BusyPane::TakeStart() { return std::exchange(startsWorker, false); }

void BusyPane::ShowFinished() { bar.SetFinished(); }

// In a tour the button is the way on.
bool BusyPane::OffersCancel() const {
    if (traits.cancelButton == kNoBusyControl || isDemo) return traits.cancelButton != kNoBusyControl;
    std::uint32_t allowed = 0;
    return GetLong(*context, PvnWFKey_AllowCancel, allowed) && allowed == 1;
}

void BusyPane::Cancel() {
    if (isDemo || std::exchange(isCanceling, true)) return;
    SetLong(*context, PvnWFKey_CancelFlag, 1);
    ShowStatus(kCancelingKey);
    platform::Announce(ControlOf(traits.statusText), platform::AccessibleChange::kName);
    // A disabled button that has the focus would take the keyboard with it.
    SetEnabled(ref, traits.cancelButton, false);
    zeve::platform::Focus(zeve::ZeveTopWindow(ref));
}

void BusyPane::ShowCancel(bool visible) {
    if (visible) MakeNormalButton(ref, traits.cancelButton);
    if (visible) SetEnabled(ref, traits.cancelButton, true);
    SetVisible(ref, traits.cancelButton, visible);
    SetVisible(ref, traits.cancelNote, visible);
}

void BusyPane::ShowStatus(const char* key) {
    SetControlText(ref, traits.statusText, zeve::ZeveTranslate(key));
}

} // namespace brixen::pvn::pvn_workflow
