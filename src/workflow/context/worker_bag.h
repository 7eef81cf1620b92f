// The private bag of one worker, the copy of what it needs of the context. The context and the worker own it
// together, because a worker can outlive its run.
//
// The dialog's thread fills it before the start and leaves it alone until the worker has reported its end.
// The worker leaves it alone from then on.
#pragma once

#include "net/transport/communication_detail.h"
#include "values/storage.h"
#include "values/wipe.h"

namespace brixen::pvn::pvn_workflow {

struct WorkerBag {
    T_Storage values;

    WorkerBag() = default;
    WorkerBag(const WorkerBag&) = delete;
    WorkerBag& operator=(const WorkerBag&) = delete;
    // Overwrites the password.
    ~WorkerBag() { RemoveSecret(values, PvnWFKey_ProxyPassword); }
};

} // namespace brixen::pvn::pvn_workflow
