// The process-wide state of the resource layer.
#pragma once

#include "workflow/resources/resource_manager.h"

#include <memory>
#include <mutex>

namespace brixen::pvn::pvn_workflow {

struct ResourceState {
    std::unique_ptr<PVNResourceManager> manager;
    bool isSetUp = false;
    std::mutex decoderLock; // guards decoderUsers: handlers may live on other threads of the host
    int decoderUsers = 0;
};

ResourceState& TheResourceState();

} // namespace brixen::pvn::pvn_workflow
