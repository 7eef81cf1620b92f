// What undoes all dialogs when a host leaves a run by a structured exception or a jump that it catches
// itself.
#pragma once

namespace brixen::zeve {

// Call it while the stack of the run is still in memory and none of its destructors has run or will run. All
// owners are enabled again, all dialogs and their windows are gone, the thread has its resolution back, and
// the toolkit can be used anew. The hosts of the dialogs hear nothing of it. The memory of dialogs and boxes
// is lost.
void AbandonDialogs() noexcept;

} // namespace brixen::zeve
