#include "net/platform/net_platform.h"

#include "values/unicode/platform/win32/wide.h"

#include <windows.h>
#include <winhttp.h>

namespace brixen::pvn {
namespace {

using lyr::gen::Wide;

HANDLE HandleOf(NativeEvent event) { return reinterpret_cast<HANDLE>(event); }
HINTERNET HandleOf(NativeHttp handle) { return reinterpret_cast<HINTERNET>(handle); }
NativeHttp HttpOf(HINTERNET handle) { return reinterpret_cast<NativeHttp>(handle); }

// A text that the system allocated, or null.
class SystemText {
public:
    explicit SystemText(wchar_t* text) : text(text) {}
    SystemText(const SystemText&) = delete;
    SystemText& operator=(const SystemText&) = delete;
    ~SystemText() {
        if (text) GlobalFree(text);
    }

    std::optional<std::u16string> Copy() const {
        if (!text) return std::nullopt;
        return std::u16string(reinterpret_cast<const char16_t*>(text));
    }

private:
    wchar_t* text;
};

} // namespace

std::uint32_t LastSystemError() noexcept { return GetLastError(); }

NativeEvent MakeEvent(const char16_t* name) noexcept {
    return reinterpret_cast<NativeEvent>(CreateEventW(nullptr, FALSE, FALSE, Wide(name)));
}
void SignalEvent(NativeEvent event) noexcept { SetEvent(HandleOf(event)); }
void ClearEvent(NativeEvent event) noexcept { ResetEvent(HandleOf(event)); }
void CloseEvent(NativeEvent event) noexcept { CloseHandle(HandleOf(event)); }

void SignalEventNamed(const char16_t* name) noexcept {
    const HANDLE event = OpenEventW(EVENT_MODIFY_STATE, FALSE, Wide(name));
    if (!event) return;
    SetEvent(event);
    CloseHandle(event);
}

WaitResult WaitForEither(NativeEvent first, NativeEvent second, std::uint32_t milliseconds) noexcept {
    const HANDLE events[] = {HandleOf(first), HandleOf(second)};
    switch (WaitForMultipleObjects(second ? 2 : 1, events, FALSE, milliseconds)) {
    case WAIT_OBJECT_0: return WaitResult::kFirst;
    case WAIT_OBJECT_0 + 1: return WaitResult::kSecond;
    case WAIT_TIMEOUT: return WaitResult::kTimeOut;
    default: return WaitResult::kFailed;
    }
}

UrlParts SplitUrl(const char16_t* url) {
    wchar_t host[256] = {};
    wchar_t path[1024] = {};
    URL_COMPONENTS parts = {};
    parts.dwStructSize = sizeof parts;
    parts.lpszHostName = host;
    parts.dwHostNameLength = ARRAYSIZE(host);
    parts.lpszUrlPath = path;
    parts.dwUrlPathLength = ARRAYSIZE(path);
    if (!WinHttpCrackUrl(Wide(url), 0, ICU_DECODE, &parts)) return {};
    return {reinterpret_cast<const char16_t*>(host), reinterpret_cast<const char16_t*>(path), parts.nPort,
            parts.nScheme == INTERNET_SCHEME_HTTPS};
}

ProxySettings ReadProxySettings() {
    WINHTTP_CURRENT_USER_IE_PROXY_CONFIG found = {};
    if (!WinHttpGetIEProxyConfigForCurrentUser(&found)) return {};
    const SystemText scriptUrl(found.lpszAutoConfigUrl);
    const SystemText proxy(found.lpszProxy);
    const SystemText bypass(found.lpszProxyBypass);
    return {proxy.Copy(), scriptUrl.Copy(), found.fAutoDetect != FALSE};
}

NativeHttp OpenSession(const char16_t* agent, const char16_t* proxy) noexcept {
    const DWORD access = proxy ? WINHTTP_ACCESS_TYPE_NAMED_PROXY : WINHTTP_ACCESS_TYPE_DEFAULT_PROXY;
    return HttpOf(WinHttpOpen(Wide(agent), access, Wide(proxy), WINHTTP_NO_PROXY_BYPASS, WINHTTP_FLAG_ASYNC));
}

NativeHttp OpenLookUpSession(const char16_t* agent) noexcept {
    return HttpOf(WinHttpOpen(Wide(agent), WINHTTP_ACCESS_TYPE_NO_PROXY, WINHTTP_NO_PROXY_NAME,
                              WINHTTP_NO_PROXY_BYPASS, 0));
}

NativeHttp OpenConnection(NativeHttp session, const char16_t* host, std::uint16_t port) noexcept {
    return HttpOf(WinHttpConnect(HandleOf(session), Wide(host), port, 0));
}

NativeHttp OpenRequest(NativeHttp connection, const char16_t* verb, const char16_t* path,
                       bool isSecure) noexcept {
    return HttpOf(WinHttpOpenRequest(HandleOf(connection), Wide(verb), Wide(path), nullptr,
                                     WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
                                     isSecure ? WINHTTP_FLAG_SECURE : 0));
}

void CloseHttp(NativeHttp handle) noexcept { WinHttpCloseHandle(HandleOf(handle)); }

std::optional<std::u16string> AskForProxy(NativeHttp session, const char16_t* url,
                                          const char16_t* scriptUrl) {
    WINHTTP_AUTOPROXY_OPTIONS options = {};
    options.dwFlags = scriptUrl ? WINHTTP_AUTOPROXY_CONFIG_URL : WINHTTP_AUTOPROXY_AUTO_DETECT;
    options.dwAutoDetectFlags =
        scriptUrl ? 0 : WINHTTP_AUTO_DETECT_TYPE_DHCP | WINHTTP_AUTO_DETECT_TYPE_DNS_A;
    options.lpszAutoConfigUrl = Wide(scriptUrl);
    options.fAutoLogonIfChallenged = TRUE;
    WINHTTP_PROXY_INFO found = {};
    if (!WinHttpGetProxyForUrl(HandleOf(session), Wide(url), &options, &found)) return std::nullopt;
    const SystemText proxy(found.lpszProxy);
    const SystemText bypass(found.lpszProxyBypass);
    return proxy.Copy();
}

} // namespace brixen::pvn
