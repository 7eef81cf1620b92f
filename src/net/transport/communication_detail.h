// How a call gets out: its time limit and the user's proxy.
#pragma once

#include "frame/status.h"
#include "values/storage.h"

#include <cstdint>

namespace brixen::pvn {

// Keys of the bag: texts, and the port as a Long.
inline constexpr char PvnWFKey_ProxyHost[] = "PvnWFKey_ProxyHost";
inline constexpr char PvnWFKey_ProxyPort[] = "PvnWFKey_ProxyPort";
inline constexpr char PvnWFKey_ProxyUserName[] = "PvnWFKey_ProxyUserName";
inline constexpr char PvnWFKey_ProxyPassword[] = "PvnWFKey_ProxyPassword";

inline constexpr std::uint16_t kDefaultTimeoutSeconds = 60;

// Texts are NUL-terminated. The record may hold a password, so its destructor overwrites it.
struct CommunicationDetail {
    std::uint16_t timeoutSeconds = 0; // of the whole call, look-ups included
    std::int32_t useOsProxy = 0;      // 1: the proxy of the system's settings. 0: the fields below.
    std::int32_t proxyPort = 0;
    char proxyHost[129] = {};
    char proxyUserName[33] = {}; // carried for the caller, as the password is; the transport applies neither
    char proxyPassword[33] = {};

    CommunicationDetail() = default;
    CommunicationDetail(const CommunicationDetail&) = default;
    CommunicationDetail& operator=(const CommunicationDetail&) = default;
    ~CommunicationDetail();
};

// Replaces `out` by the settings of the bag. With both a host and a port in the bag these are the proxy, and
// the texts are cut to their fields; without either the system's settings count, and all texts stay empty.
// The time limit is kDefaultTimeoutSeconds. Returns 0, or kStatusNameNotResolved for a host that was cut: it
// is another host, which must not be called. Throws std::bad_alloc.
[[nodiscard]] Status ReadCommunicationDetail(CommunicationDetail& out, T_StorageInterface& bag);

} // namespace brixen::pvn
