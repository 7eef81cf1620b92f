// The mark of a run: it lasts as long as Pavane_RunWorkflow and turns other calls away meanwhile.
#pragma once

#include "frame/status.h"

namespace brixen::pvn {

// Sets the mark for its own lifetime. A terminate that was deferred is carried out at the end and still
// belongs to the run, so that a call from another thread never works on a context that is being freed.
class RunMark {
public:
    RunMark() noexcept;
    ~RunMark();
    RunMark(const RunMark&) = delete;
    RunMark& operator=(const RunMark&) = delete;

    // Returns false when another run has the mark.
    [[nodiscard]] bool IsOurs() const noexcept { return isOurs; }

    // Returns the latest status from before the mark. A call that is refused during the run does not change
    // it.
    [[nodiscard]] Status StatusBefore() const noexcept { return statusBefore; }

private:
    Status statusBefore;
    bool isOurs;
};

// Clears the mark and carries out a deferred terminate; does nothing without a mark. For RunMark, and for a
// run whose stack was left without destructors.
void ClearRunMark() noexcept;

// Returns whether a run is under way. Any thread.
[[nodiscard]] bool IsRunUnderWay() noexcept;

// Remembers a terminate for the end of the run. Returns false when no run is under way. Any thread.
[[nodiscard]] bool DeferTerminate() noexcept;

} // namespace brixen::pvn
