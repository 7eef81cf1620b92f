// An asynchronous request, and the way of its notifications to an observer.
#include "net/platform/net_platform.h"

#include "values/unicode/platform/win32/wide.h"

#include <windows.h>
#include <winhttp.h>

namespace brixen::pvn {
namespace {

using lyr::gen::Wide;

// All completions, and the making and closing of handles. The first number is written out, because a header's
// name for it may hold more or less.
constexpr DWORD kNotifications = 0x7F0000 | WINHTTP_CALLBACK_FLAG_HANDLES;

HINTERNET HandleOf(NativeHttp handle) { return reinterpret_cast<HINTERNET>(handle); }

void CALLBACK Notify(HINTERNET handle, DWORD_PTR context, DWORD status, void* information, DWORD length) {
    auto* const observer = reinterpret_cast<HttpObserver*>(context);
    if (!observer) return;
    const auto notify = [&](HttpNotice notice, DWORD number) {
        observer->OnNotice(reinterpret_cast<NativeHttp>(handle), notice, number);
    };
    switch (status) {
    case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE: return notify(HttpNotice::kSent, 0);
    case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE: return notify(HttpNotice::kHeaders, 0);
    case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
        return notify(HttpNotice::kDataAvailable, *static_cast<const DWORD*>(information));
    case WINHTTP_CALLBACK_STATUS_READ_COMPLETE: return notify(HttpNotice::kRead, length);
    case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
        return notify(HttpNotice::kError, static_cast<const WINHTTP_ASYNC_RESULT*>(information)->dwError);
    case WINHTTP_CALLBACK_STATUS_SECURE_FAILURE:
        return notify(HttpNotice::kSecureFailure, *static_cast<const DWORD*>(information));
    case WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING: return notify(HttpNotice::kClosed, 0);
    default: return;
    }
}

} // namespace

void SetPhaseLimits(NativeHttp session, std::uint32_t milliseconds) noexcept {
    const auto limit = static_cast<int>(milliseconds);
    WinHttpSetTimeouts(HandleOf(session), limit, limit, limit, limit);
    DWORD forAnswer = milliseconds;
    WinHttpSetOption(HandleOf(session), WINHTTP_OPTION_RECEIVE_RESPONSE_TIMEOUT, &forAnswer,
                     sizeof forAnswer);
}

void AddHeader(NativeHttp request, const char16_t* line) noexcept {
    WinHttpAddRequestHeaders(HandleOf(request), Wide(line), static_cast<DWORD>(-1), WINHTTP_ADDREQ_FLAG_ADD);
}

bool ObserveRequest(NativeHttp request, HttpObserver& observer) noexcept {
    // The context is set before the request is sent: a request that is closed unsent notifies too.
    auto context = reinterpret_cast<DWORD_PTR>(&observer);
    return WinHttpSetOption(HandleOf(request), WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context) &&
           WinHttpSetStatusCallback(HandleOf(request), Notify, kNotifications, 0) !=
               WINHTTP_INVALID_STATUS_CALLBACK;
}

void SendRequest(NativeHttp request, HttpObserver& observer, std::string_view body) noexcept {
    const auto length = static_cast<DWORD>(body.size());
    WinHttpSendRequest(HandleOf(request), WINHTTP_NO_ADDITIONAL_HEADERS, 0, const_cast<char*>(body.data()),
                       length, length, reinterpret_cast<DWORD_PTR>(&observer));
}

void ReceiveResponse(NativeHttp request) noexcept { WinHttpReceiveResponse(HandleOf(request), nullptr); }

void QueryDataAvailable(NativeHttp request) noexcept {
    WinHttpQueryDataAvailable(HandleOf(request), nullptr);
}

void ReadData(NativeHttp request, void* out, std::uint32_t size) noexcept {
    WinHttpReadData(HandleOf(request), out, size, nullptr);
}

} // namespace brixen::pvn
