// Undoes all dialogs when a host leaves a run by a structured exception or a jump that it catches itself.
#pragma once

namespace brixen::zeve {

// Enables the owners of all dialogs again, closes the windows of all dialogs, restores the thread's
// resolution, and leaves the toolkit ready for use. The hosts of the dialogs are not called. The memory of
// dialogs and boxes is leaked. Call it while the stack of the run is still in memory and none of its
// destructors has run or will run.
void AbandonDialogs() noexcept;

} // namespace brixen::zeve
