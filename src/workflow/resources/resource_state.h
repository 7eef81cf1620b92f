// The process-wide state of the resource layer.
#pragma once

#include <memory>
#include <mutex>

namespace brixen::pvn::pvn_workflow {

class PVNResourceManager;

struct ResourceState {
    // Nobody shares it: this pointer owns a class that it need not know.
    std::shared_ptr<PVNResourceManager> manager;
    bool isSetUp = false;
    std::mutex decoderLock; // guards decoderUsers: handlers may live on other threads of the host
    int decoderUsers = 0;
};

ResourceState& TheResourceState();

} // namespace brixen::pvn::pvn_workflow
