#include "net/transport/http_send.h"

#include "frame/log.h"
#include "frame/stop_watch.h"
#include "net/transport/call_limit.h"
#include "net/transport/proxy_lookup.h"
#include "net/transport/this_computer.h"
#include "net/transport/transaction.h"
#include "values/fixed_text.h"
#include "values/platform/values_platform.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <string_view>

namespace brixen::pvn {
namespace {

constexpr std::size_t kLongestUrl = 1023;   // UTF-16 units
constexpr std::size_t kProxyTextSize = 256; // bytes, with the terminator
constexpr char kProtocolWord[] = "pvn";

// Empty for a text that is longer, or that is no text in the process's code page: a cut URL would be another
// one.
std::u16string WideText(std::string_view text, std::size_t longest) {
    std::u16string wide(longest, u'\0');
    const lyr::gen::CodePageResult result =
        lyr::gen::CodePageToWide(lyr::gen::kCodePageProcess, text, wide.data(), wide.size());
    wide.resize(result.status == lyr::gen::CodePageStatus::kDone ? result.length : 0);
    return wide;
}

// With one of these, a proxy text is a list or has more than a host and a port.
bool IsForeignToHosts(char byte) {
    constexpr std::string_view kSigns = "@/;=";
    return (byte >= 0 && byte <= ' ') || byte == 0x7F || kSigns.find(byte) != kSigns.npos;
}

// A host without a port is no proxy. A host that is no name has no address, and the call must not go past it.
Status UseUserProxy(const CommunicationDetail& detail, std::u16string& proxy) {
    proxy.clear();
    PvnLog("%s: %s: Use User Proxy Setting:\n", kLogComponent, kLogInfo);
    if (detail.proxyHost[0] == '\0' || detail.proxyPort == 0) return kStatusSuccess;
    PvnLog("%s: %s:      proxy server  : %s\n", kLogComponent, kLogInfo, detail.proxyHost);
    PvnLog("%s: %s:      proxy port    : %d\n", kLogComponent, kLogInfo, detail.proxyPort);
    if (std::ranges::any_of(std::string_view(detail.proxyHost), IsForeignToHosts))
        return kStatusNameNotResolved;
    char text[kProxyTextSize];
    lyr::gen::SafePrintf(text, sizeof text, "%s:%d", detail.proxyHost, detail.proxyPort);
    proxy = WideText(text, kLongestProxy);
    return proxy.empty() ? kStatusNameNotResolved : kStatusSuccess;
}

// Returns early with the status of a look-up that the limit ended.
Status ChooseProxy(const char* url, const CommunicationDetail& detail, const CallLimit& limit,
                   std::u16string& proxy) {
    // Kept: the settings are looked up with a user's proxy too. Nobody waits then, because the result has no
    // use, and a script server that stalls must not end a call that goes past it.
    ProxyLookUp first(url);
    if (detail.useOsProxy != 1) return UseUserProxy(detail, proxy);
    if (const Status early = first.Await(limit, proxy)) return early;
    PvnLog("%s: %s: Use OS Proxy Setting:\n", kLogComponent, kLogInfo);
    return ProxyLookUp(url).Await(limit, proxy);
}

// Whether every proxy of a text such as "localhost:8080;proxy.test:80" is on this computer.
bool AreOnThisComputer(std::u16string_view proxies) {
    while (!proxies.empty()) {
        const std::size_t length = std::min(proxies.find(u';'), proxies.size());
        if (!IsThisComputer(proxies.substr(0, length))) return false;
        proxies.remove_prefix(std::min(length + 1, proxies.size()));
    }
    return true;
}

// Whether a call to this computer would cross the network unencrypted, to a proxy elsewhere.
bool IsExposed(const TransactionRequest& request) {
    const bool isLocal = IsThisComputer(std::u16string_view(request.url.host)) || request.url.host == u"::1";
    return isLocal && !request.url.isSecure && !AreOnThisComputer(request.proxy);
}

Status Send(const char* url, const CommunicationDetail& detail, const char* body, std::string& response) {
    PvnLog("%s: %s: Set Communication Detail:\n", kLogComponent, kLogInfo);
    PvnLog("%s: %s: Endpoint is %s (protocol=%s)\n", kLogComponent, kLogInfo, url, kProtocolWord);
    const CallLimit limit(detail.timeoutSeconds);
    TransactionRequest request;
    request.url = SplitUrl(WideText(url, kLongestUrl).c_str());
    request.body = body;
    if (const Status early = ChooseProxy(url, detail, limit, request.proxy)) return early;
    if (IsExposed(request)) return kStatusInvalidUrl;
    return RunTransaction(request, limit, response);
}

} // namespace

Status PVN_HTTPSend(const char* url, const CommunicationDetail& detail, const char* body,
                    std::string& response) noexcept {
    const DurationLine duration("brixen::pvn::PVN_HTTPSend");
    response.clear();
    try {
        return Send(url ? url : "", detail, body ? body : "", response);
    } catch (const std::bad_alloc&) {
        response.clear();
        return kStatusCallNoMemory;
    }
}

} // namespace brixen::pvn
