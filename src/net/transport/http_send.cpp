#include "net/transport/http_send.h"

#include "frame/log.h"
#include "frame/stop_watch.h"
#include "net/transport/call_limit.h"
#include "net/transport/proxy_lookup.h"
#include "net/transport/transaction.h"
#include "values/fixed_text.h"
#include "values/platform/values_platform.h"

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

// A host without a port is no proxy. A host that is no text has no address, and the call must not go past it.
Status UseUserProxy(const CommunicationDetail& detail, std::u16string& proxy) {
    proxy.clear();
    PvnLog("%s: %s: Use User Proxy Setting:\n", kLogComponent, kLogInfo);
    if (detail.proxyHost[0] == '\0' || detail.proxyPort == 0) return kStatusSuccess;
    PvnLog("%s: %s:      proxy server  : %s\n", kLogComponent, kLogInfo, detail.proxyHost);
    PvnLog("%s: %s:      proxy port    : %d\n", kLogComponent, kLogInfo, detail.proxyPort);
    char text[kProxyTextSize];
    lyr::gen::SafePrintf(text, sizeof text, "%s:%d", detail.proxyHost, detail.proxyPort);
    proxy = WideText(text, kLongestProxy);
    return proxy.empty() ? kStatusNameNotResolved : kStatusSuccess;
}

// Returns early with the status of a look-up that the limit ended.
Status ChooseProxy(const char* url, const CommunicationDetail& detail, const CallLimit& limit,
                   std::u16string& proxy) {
    // Kept: the settings are looked up with a user's proxy too.
    if (const Status early = LookUpSystemProxy(url, limit, proxy)) return early;
    if (detail.useOsProxy == 1) {
        PvnLog("%s: %s: Use OS Proxy Setting:\n", kLogComponent, kLogInfo);
        return LookUpSystemProxy(url, limit, proxy);
    }
    return UseUserProxy(detail, proxy);
}

Status Send(const char* url, const CommunicationDetail& detail, const char* body, std::string& response) {
    PvnLog("%s: %s: Set Communication Detail:\n", kLogComponent, kLogInfo);
    PvnLog("%s: %s: Endpoint is %s (protocol=%s)\n", kLogComponent, kLogInfo, url, kProtocolWord);
    const CallLimit limit(detail.timeoutSeconds);
    TransactionRequest request;
    request.url = SplitUrl(WideText(url, kLongestUrl).c_str());
    request.body = body;
    if (const Status early = ChooseProxy(url, detail, limit, request.proxy)) return early;
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
