#include "net/transport/communication_detail.h"

#include "values/fixed_text.h"
#include "values/wipe.h"

#include <cstddef>
#include <cstring>

namespace brixen::pvn {
namespace {

// Copies the bag's own text, so that no other copy of it remains.
template <std::size_t size>
void CopyText(T_StorageInterface& bag, const char* key, char (&field)[size]) {
    const char* text = nullptr;
    if (bag.Get(key, kValueTypeString, &text)) lyr::gen::SafeCopy(field, text, size);
}

} // namespace

CommunicationDetail::~CommunicationDetail() {
    Wipe(proxyHost, sizeof proxyHost);
    Wipe(proxyUserName, sizeof proxyUserName);
    Wipe(proxyPassword, sizeof proxyPassword);
}

Status ReadCommunicationDetail(CommunicationDetail& out, T_StorageInterface& bag) {
    const char* host = nullptr;
    std::uint32_t port = 0;
    const bool hasHost = bag.Get(PvnWFKey_ProxyHost, kValueTypeString, &host);
    const bool hasPort = GetLong(bag, PvnWFKey_ProxyPort, port);
    out = CommunicationDetail();
    out.timeoutSeconds = kDefaultTimeoutSeconds;
    out.useOsProxy = hasHost && hasPort ? 0 : 1;
    if (out.useOsProxy == 1) return kStatusSuccess;
    out.proxyPort = static_cast<std::int32_t>(port);
    CopyText(bag, PvnWFKey_ProxyHost, out.proxyHost);
    CopyText(bag, PvnWFKey_ProxyUserName, out.proxyUserName);
    CopyText(bag, PvnWFKey_ProxyPassword, out.proxyPassword);
    return std::strlen(host) < sizeof out.proxyHost ? kStatusSuccess : kStatusNameNotResolved;
}

} // namespace brixen::pvn
