#include "toolkit/dialog/abandon_dialogs.h"

#include "toolkit/boxes/eve_box.h"
#include "toolkit/dialog/dpi_unaware_scope.h"
#include "toolkit/dialog/modal_run.h"
#include "toolkit/dialog_link.h"
#include "toolkit/kept_exception.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/toolkit_state.h"
#include "view/reader/reader_state.h"

#include <utility>
#include <vector>

namespace brixen::zeve {

namespace {

void CloseWindowOf(const DialogLink& dialog) noexcept {
    if (dialog.rootBox != nullptr) platform::CloseWindow(dialog.rootBox->TopLevelWindow());
}

} // namespace

void AbandonDialogs() noexcept {
    // The registry is emptied first, so that no message of a window reaches its host.
    const std::vector<DialogLink*> dialogs = std::exchange(gToolkit.dialogs, {});
    platform::UnlockUpdates();
    AbandonReading();
    AbandonModalRuns();
    ForgetKeptException();
    for (auto dialog = dialogs.rbegin(); dialog != dialogs.rend(); ++dialog) CloseWindowOf(**dialog);
    DpiUnawareScope::AbandonAll();
}

} // namespace brixen::zeve
