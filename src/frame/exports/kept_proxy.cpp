#include "frame/exports/kept_proxy.h"

#include "frame/frame_state.h"
#include "frame/pavane_context.h"
#include "net/transport/communication_detail.h"
#include "values/scope_guard.h"
#include "values/wipe.h"

#include <memory>
#include <new>

namespace brixen::pvn {
namespace {

class KeptProxy final : public AuxObject {
public:
    ~KeptProxy() override { RemoveSecret(bag, PvnWFKey_ProxyPassword); }

    T_Storage bag;
};

KeptProxy* Kept() { return static_cast<KeptProxy*>(GetFrameState().gPavaneContext->auxObject); }

void Forget() noexcept {
    delete GetFrameState().gPavaneContext->auxObject;
    GetFrameState().gPavaneContext->auxObject = nullptr;
}

void CopyProxy(T_StorageInterface& from, T_StorageInterface& to) {
    CopyString(from, to, PvnWFKey_ProxyHost);
    CopyLong(from, to, PvnWFKey_ProxyPort);
    CopyString(from, to, PvnWFKey_ProxyUserName);
    CopySecret(from, to, PvnWFKey_ProxyPassword);
}

bool HasProxy(T_StorageInterface& bag) {
    const char* host = nullptr;
    std::uint32_t port = 0;
    return bag.Get(PvnWFKey_ProxyHost, kValueTypeString, &host) && GetLong(bag, PvnWFKey_ProxyPort, port);
}

} // namespace

void PutKeptProxy(T_StorageInterface& bag) {
    if (Kept()) CopyProxy(Kept()->bag, bag);
}

void KeepProxyOf(T_StorageInterface& bag) noexcept {
    const pvn_workflow::ScopeGuard wipe([&bag]() noexcept { RemoveSecret(bag, PvnWFKey_ProxyPassword); });
    Forget();
    if (!HasProxy(bag)) return;
    try {
        auto kept = std::make_unique<KeptProxy>();
        CopyProxy(bag, kept->bag);
        GetFrameState().gPavaneContext->auxObject = kept.release();
    } catch (const std::bad_alloc&) {
        // See the header.
    }
}

} // namespace brixen::pvn
