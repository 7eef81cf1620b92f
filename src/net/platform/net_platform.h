// What the transport asks of the system: events, the parts of a URL, proxy settings and HTTP.
//
// Nothing throws but the functions that return text; those throw std::bad_alloc. Any thread may call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace brixen::pvn {

// Returns the number of the error of the calling thread's latest call that failed.
[[nodiscard]] std::uint32_t LastSystemError() noexcept;

// --- Events: a signal ends one wait and is then gone. Without a wait it stays. ---

using NativeEvent = struct NativeEventTag*;

// Makes an event without a signal. One with a name is shared by all processes of the session: if it exists,
// the handle is one more of the same event. A null name makes an event of its own. Returns null on failure.
[[nodiscard]] NativeEvent MakeEvent(const char16_t* name) noexcept;
void SignalEvent(NativeEvent event) noexcept;
void ClearEvent(NativeEvent event) noexcept;
void CloseEvent(NativeEvent event) noexcept;
// Signals the event of that name. Does nothing when no handle of such an event is open.
void SignalEventNamed(const char16_t* name) noexcept;

enum class WaitResult { kFirst, kSecond, kTimeOut, kFailed };
// Waits until one of both has a signal, and takes it; the first one's if both have one. A null `second` is
// never signaled.
[[nodiscard]] WaitResult WaitForEither(NativeEvent first, NativeEvent second,
                                       std::uint32_t milliseconds) noexcept;

struct EventCloser {
    void operator()(NativeEvent event) const noexcept { CloseEvent(event); }
};
using EventHandle = std::unique_ptr<NativeEventTag, EventCloser>;

// --- URLs and proxies ---

struct UrlParts {
    std::u16string host; // at most 255 units
    std::u16string path; // at most 1023 units; with the query, and with its escapes decoded
    std::uint16_t port = 0;
    bool isSecure = false; // https
};
// Returns empty parts for a URL that the system cannot read.
[[nodiscard]] UrlParts SplitUrl(const char16_t* url);

// The proxy settings of the current user. A text that is not set is absent.
struct ProxySettings {
    std::optional<std::u16string>
        proxy; // one proxy for all protocols, or a list such as "http=a:1;https=b:2"
    std::optional<std::u16string> scriptUrl; // of a configuration script
    bool detectsScript = false;
};
[[nodiscard]] ProxySettings ReadProxySettings();

// --- HTTP: sessions, connections and requests. All are closed with CloseHttp, the last one first. ---

using NativeHttp = struct NativeHttpTag*;

// Opens a session for requests that do not block. A null `proxy` leaves the way out to the system. Returns
// null on failure, as the next three functions do.
[[nodiscard]] NativeHttp OpenSession(const char16_t* agent, const char16_t* proxy) noexcept;
// Opens a session for AskForProxy: it blocks and uses no proxy.
[[nodiscard]] NativeHttp OpenLookUpSession(const char16_t* agent) noexcept;
// Port 0 is the usual one of the protocol.
[[nodiscard]] NativeHttp OpenConnection(NativeHttp session, const char16_t* host,
                                        std::uint16_t port) noexcept;
[[nodiscard]] NativeHttp OpenRequest(NativeHttp connection, const char16_t* verb, const char16_t* path,
                                     bool isSecure) noexcept;
// Closing a request ends it. Its observer may be notified until kClosed, which may be after the return.
void CloseHttp(NativeHttp handle) noexcept;

// Asks the configuration script at `scriptUrl`, or with a null one the script that the network offers, for
// the proxies of a URL. Allows a log-on when challenged. Returns nothing for a direct way and on failure. May
// block for minutes.
[[nodiscard]] std::optional<std::u16string> AskForProxy(NativeHttp session, const char16_t* url,
                                                        const char16_t* scriptUrl);

// Sets how long the system itself waits in each phase of a request.
void SetPhaseLimits(NativeHttp session, std::uint32_t milliseconds) noexcept;
void AddHeader(NativeHttp request, const char16_t* line) noexcept;

enum class HttpNotice {
    kSent,          // the request was sent
    kHeaders,       // the headers of the answer are there
    kDataAvailable, // number: the bytes that can be read at once
    kRead,          // number: the bytes that were read; 0 at the end of the answer
    kError,         // number: the system's error. The request is over.
    kSecureFailure, // number: the system's flags for the reasons. kError follows.
    kClosed,        // always the last notification, and there is always one
};

class HttpObserver {
public:
    // Called on threads of the system, one call after the other, and also inside of calls that the observer
    // makes. Must not throw.
    virtual void OnNotice(NativeHttp request, HttpNotice notice, std::uint32_t number) noexcept = 0;

protected:
    HttpObserver() = default;
    HttpObserver(const HttpObserver&) = default;
    HttpObserver& operator=(const HttpObserver&) = default;
    ~HttpObserver() = default;
};

// Returns false, and never notifies, when the system refuses. The observer must live until kClosed.
[[nodiscard]] bool ObserveRequest(NativeHttp request, HttpObserver& observer) noexcept;

// The steps of an observed request. Each returns at once, and a notification says how it ended. A step that
// the system refuses has no notification. `body`, of less than 4 GiB, and `out` must last until kClosed.
void SendRequest(NativeHttp request, HttpObserver& observer, std::string_view body) noexcept;
void ReceiveResponse(NativeHttp request) noexcept;
void QueryDataAvailable(NativeHttp request) noexcept;
void ReadData(NativeHttp request, void* out, std::uint32_t size) noexcept;

struct HttpCloser {
    void operator()(NativeHttp handle) const noexcept { CloseHttp(handle); }
};
using HttpHandle = std::unique_ptr<NativeHttpTag, HttpCloser>;

} // namespace brixen::pvn
