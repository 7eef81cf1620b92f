// A call through the transport against a bare one of the system's HTTP with the same handles, headers and
// look-ups, to the same server on the loopback interface.
//   transport_bench [ROUNDS]     prints the medians and their difference
#include "windows/transport/connection_settings.h"
#include "windows/transport/loopback_server.h"

#include "net/transport/http_send.h"

#include <windows.h>
#include <winhttp.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace bench {
namespace {

constexpr double kShareBar = 0.10;
constexpr double kTimeBar = 0.3; // milliseconds

// --- The bare call

struct BareCall {
    HANDLE done = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    std::string answer;
    std::string part;
};

void CALLBACK Notify(HINTERNET request, DWORD_PTR context, DWORD status, void* information, DWORD length) {
    auto& call = *reinterpret_cast<BareCall*>(context);
    switch (status) {
    case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE: WinHttpReceiveResponse(request, nullptr); break;
    case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE: WinHttpQueryDataAvailable(request, nullptr); break;
    case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
        call.part.resize(*static_cast<const DWORD*>(information));
        WinHttpReadData(request, call.part.data(), static_cast<DWORD>(call.part.size()), nullptr);
        break;
    case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
        call.answer.append(call.part, 0, length);
        if (length == 0)
            SetEvent(call.done);
        else
            WinHttpQueryDataAvailable(request, nullptr);
        break;
    case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR: SetEvent(call.done); break;
    default: break;
    }
}

void LookUp() {
    WINHTTP_CURRENT_USER_IE_PROXY_CONFIG found = {};
    WinHttpGetIEProxyConfigForCurrentUser(&found);
    WinHttpCloseHandle(WinHttpOpen(L"WinHTTP AutoProxy", WINHTTP_ACCESS_TYPE_NO_PROXY, nullptr, nullptr, 0));
    for (wchar_t* const text : {found.lpszAutoConfigUrl, found.lpszProxy, found.lpszProxyBypass}) {
        if (text) GlobalFree(text);
    }
}

std::string CallBare(int port, const std::string& body) {
    BareCall call;
    LookUp();
    LookUp();
    const HINTERNET session =
        WinHttpOpen(L"PVN_CLIENT", WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, nullptr, nullptr, WINHTTP_FLAG_ASYNC);
    const HINTERNET connection = WinHttpConnect(session, L"127.0.0.1", static_cast<INTERNET_PORT>(port), 0);
    const HINTERNET request = WinHttpOpenRequest(connection, L"POST", L"/call", nullptr, nullptr, nullptr, 0);
    for (const wchar_t* const header :
         {L"Host: ops", L"User-Agent: PVN", L"Content-Type: text/xml; charset=utf-8", L"Connection: close",
          L"SOAPAction: urn:#pvnCallRequest"}) {
        WinHttpAddRequestHeaders(request, header, static_cast<DWORD>(-1), WINHTTP_ADDREQ_FLAG_ADD);
    }
    WinHttpSetStatusCallback(request, Notify, WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS, 0);
    const auto length = static_cast<DWORD>(body.size());
    WinHttpSendRequest(request, nullptr, 0, const_cast<char*>(body.data()), length, length,
                       reinterpret_cast<DWORD_PTR>(&call));
    WaitForSingleObject(call.done, 20'000);
    for (const HINTERNET handle : {request, connection, session}) WinHttpCloseHandle(handle);
    CloseHandle(call.done);
    return call.answer;
}

// --- Through the transport

std::string CallTransport(const std::string& url, const std::string& body) {
    brixen::pvn::CommunicationDetail detail;
    detail.timeoutSeconds = 20;
    detail.useOsProxy = 1;
    std::string answer;
    if (brixen::pvn::PVN_HTTPSend(url.c_str(), detail, body.c_str(), answer) != 0) answer.clear();
    return answer;
}

// --- The comparison

template <class Call>
double Milliseconds(const std::string& expected, Call call) {
    const auto start = std::chrono::steady_clock::now();
    const std::string answer = call();
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    if (answer != expected) {
        std::puts("a call failed");
        std::exit(1);
    }
    return taken.count();
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int Run(int rounds) {
    const pavane_test::ConnectionSettings direct;
    const std::string body(8192, 'b');
    const std::string answer(8300, 'a');
    pavane_test::LoopbackServer server(
        [&](const pavane_test::Conversation& client) { client.SendAnswer(answer); });
    std::vector<double> bare, transport;
    for (int round = 0; round < rounds; ++round) {
        bare.push_back(Milliseconds(answer, [&] { return CallBare(server.Port(), body); }));
        transport.push_back(Milliseconds(answer, [&] { return CallTransport(server.Url(), body); }));
    }
    const double peer = Median(bare), ours = Median(transport), most = std::max(kShareBar * peer, kTimeBar);
    std::printf("bare call %.3f ms, transport %.3f ms: %+.3f ms, at most %.3f   %s\n", peer, ours,
                ours - peer, most, ours - peer <= most ? "met" : "MISSED");
    return 0;
}

} // namespace
} // namespace bench

int main(int argumentCount, char** arguments) {
    return bench::Run(argumentCount > 1 ? std::max(std::atoi(arguments[1]), 1) : 200);
}
