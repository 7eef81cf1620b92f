#include "workflow/context/worker_notifier.h"

#include <algorithm>

namespace brixen::pvn::pvn_workflow {

bool WorkerNotifier::Report(std::uint16_t percent) const noexcept {
    constexpr std::uint16_t kHighest = kPercentFinished - 1;
    return NotifyOfRun(run, callback, std::min(percent, kHighest), kStatusSuccess);
}

} // namespace brixen::pvn::pvn_workflow
