// What the transport asks of the system's HTTP: each function's parameters, recorded on their way.
#include "connection_settings.h"
#include "loopback_server.h"
#include "replaced_import.h"

#include "net/platform/net_platform.h"
#include "net/transport/http_send.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <winhttp.h>

#include <mutex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace brixen::pvn {
namespace {

using pavane_test::ConnectionSettings;
using pavane_test::Conversation;
using pavane_test::LoopbackServer;
using pavane_test::ReplacedImport;
using testing::ElementsAre;

// --- The records

std::mutex gLock;
std::vector<std::string> gCalls;
std::multiset<const void*> gSystemTexts; // given out and not yet freed

// Texts of the tests are ASCII; a null one is "-".
std::string Narrow(const wchar_t* text) {
    if (!text) return "-";
    std::string narrow;
    for (; *text; ++text) narrow += static_cast<char>(*text);
    return narrow;
}

template <class... Values>
void Record(const Values&... values) {
    std::ostringstream line;
    const char* separator = "";
    ((line << separator << values, separator = " "), ...);
    const std::lock_guard guard(gLock);
    gCalls.push_back(line.str());
}

std::vector<std::string> Recorded() {
    const std::lock_guard guard(gLock);
    return gCalls;
}

wchar_t* SystemText(const wchar_t* text) {
    if (!text) return nullptr;
    const std::size_t size = (std::wcslen(text) + 1) * sizeof *text;
    void* const copy = GlobalAlloc(GMEM_FIXED, size);
    std::memcpy(copy, text, size);
    gSystemTexts.insert(copy);
    return static_cast<wchar_t*>(copy);
}

// --- The replacements. Those of a request also make the call.

#define PAVANE_REPLACED(name) ReplacedImport<decltype(&(name))>

template <class Function>
Function& Original() {
    static Function original = nullptr;
    return original;
}

HGLOBAL WINAPI FreeText(HGLOBAL text) {
    if (const auto found = gSystemTexts.find(text); found != gSystemTexts.end()) gSystemTexts.erase(found);
    return LocalFree(text);
}

BOOL WINAPI GiveSettings(WINHTTP_CURRENT_USER_IE_PROXY_CONFIG* settings) {
    *settings = {TRUE, SystemText(L"http://script.test/"), SystemText(L"proxy.test:80"),
                 SystemText(L"<local>")};
    return TRUE;
}
BOOL WINAPI GiveEmptySettings(WINHTTP_CURRENT_USER_IE_PROXY_CONFIG* settings) {
    *settings = {FALSE, nullptr, nullptr, nullptr};
    return TRUE;
}
BOOL WINAPI RefuseSettings(WINHTTP_CURRENT_USER_IE_PROXY_CONFIG* settings) {
    *settings = {TRUE, nullptr, nullptr, nullptr};
    return FALSE;
}

bool gHasProxy = true;
BOOL WINAPI GiveProxy(HINTERNET session, LPCWSTR url, WINHTTP_AUTOPROXY_OPTIONS* options,
                      WINHTTP_PROXY_INFO* found) {
    Record(reinterpret_cast<std::uintptr_t>(session), Narrow(url), options->dwFlags,
           options->dwAutoDetectFlags, Narrow(options->lpszAutoConfigUrl), options->fAutoLogonIfChallenged);
    *found = {WINHTTP_ACCESS_TYPE_NAMED_PROXY, SystemText(gHasProxy ? L"proxy.test:80" : nullptr),
              SystemText(L"<local>")};
    return TRUE;
}
BOOL WINAPI RefuseProxy(HINTERNET, LPCWSTR, WINHTTP_AUTOPROXY_OPTIONS*, WINHTTP_PROXY_INFO*) { return FALSE; }

HINTERNET WINAPI RecordOpen(LPCWSTR agent, DWORD access, LPCWSTR proxy, LPCWSTR bypass, DWORD flags) {
    Record("Open", Narrow(agent), access, Narrow(proxy), Narrow(bypass), flags);
    return nullptr;
}

BOOL WINAPI RecordCrack(LPCWSTR url, DWORD length, DWORD flags, URL_COMPONENTSW* parts) {
    Record("Crack", Narrow(url), length, flags, parts->dwStructSize, parts->dwHostNameLength,
           parts->dwUrlPathLength,
           parts->dwSchemeLength + parts->dwUserNameLength + parts->dwPasswordLength +
               parts->dwExtraInfoLength);
    return Original<decltype(&WinHttpCrackUrl)>()(url, length, flags, parts);
}

HINTERNET WINAPI PassConnect(HINTERNET session, LPCWSTR host, INTERNET_PORT port, DWORD reserved) {
    Record("Connect", Narrow(host), reserved);
    return Original<decltype(&WinHttpConnect)>()(session, host, port, reserved);
}
HINTERNET WINAPI PassOpenRequest(HINTERNET connection, LPCWSTR verb, LPCWSTR path, LPCWSTR version,
                                 LPCWSTR referrer, LPCWSTR* types, DWORD flags) {
    Record("OpenRequest", Narrow(verb), Narrow(path), Narrow(version), Narrow(referrer), types == nullptr,
           flags);
    return Original<decltype(&WinHttpOpenRequest)>()(connection, verb, path, version, referrer, types, flags);
}
BOOL WINAPI PassAddHeader(HINTERNET request, LPCWSTR line, DWORD length, DWORD flags) {
    Record("AddHeader", Narrow(line).substr(0, 5), length == static_cast<DWORD>(-1), flags);
    return Original<decltype(&WinHttpAddRequestHeaders)>()(request, line, length, flags);
}
BOOL WINAPI PassSetTimeouts(HINTERNET session, int resolve, int connect, int send, int receive) {
    Record("SetTimeouts", resolve, connect, send, receive);
    return Original<decltype(&WinHttpSetTimeouts)>()(session, resolve, connect, send, receive);
}
BOOL WINAPI PassSetOption(HINTERNET handle, DWORD option, void* value, DWORD size) {
    const bool isLimit = option == WINHTTP_OPTION_RECEIVE_RESPONSE_TIMEOUT;
    Record("SetOption", option, size, isLimit ? *static_cast<const DWORD*>(value) : 0);
    return Original<decltype(&WinHttpSetOption)>()(handle, option, value, size);
}
WINHTTP_STATUS_CALLBACK WINAPI PassSetCallback(HINTERNET request, WINHTTP_STATUS_CALLBACK callback,
                                               DWORD mask, DWORD_PTR reserved) {
    Record("SetCallback", callback != nullptr, mask & 0x7F0000, mask & ~DWORD{0x7F0000}, reserved);
    return Original<decltype(&WinHttpSetStatusCallback)>()(request, callback, mask, reserved);
}
BOOL WINAPI PassSend(HINTERNET request, LPCWSTR headers, DWORD headerLength, void* body, DWORD length,
                     DWORD total, DWORD_PTR context) {
    Record("Send", Narrow(headers), headerLength, std::string(static_cast<const char*>(body), length), total,
           context != 0);
    return Original<decltype(&WinHttpSendRequest)>()(request, headers, headerLength, body, length, total,
                                                     context);
}

WINHTTP_STATUS_CALLBACK gCallback = nullptr;
WINHTTP_STATUS_CALLBACK WINAPI KeepCallback(HINTERNET, WINHTTP_STATUS_CALLBACK callback, DWORD, DWORD_PTR) {
    gCallback = callback;
    return nullptr;
}
BOOL WINAPI AcceptOption(HINTERNET, DWORD, void*, DWORD) { return TRUE; }

class RecordingObserver final : public HttpObserver {
public:
    void OnNotice(NativeHttp request, HttpNotice notice, std::uint32_t number) noexcept override {
        Record(reinterpret_cast<std::uintptr_t>(request), static_cast<int>(notice), number);
    }
};

class SystemCalls : public testing::Test {
protected:
    SystemCalls() {
        gCalls.clear();
        gSystemTexts.clear();
        gHasProxy = true;
    }
    // Every text that the system allocated was freed.
    ~SystemCalls() override { EXPECT_TRUE(gSystemTexts.empty()); }

    PAVANE_REPLACED(GlobalFree) freeing{"kernel32.dll", "GlobalFree", FreeText};
};

TEST_F(SystemCalls, TheSettingsHaveThreeParts) {
    {
        const PAVANE_REPLACED(WinHttpGetIEProxyConfigForCurrentUser)
            settings("winhttp.dll", "WinHttpGetIEProxyConfigForCurrentUser", GiveSettings);
        const ProxySettings read = ReadProxySettings();
        EXPECT_EQ(read.proxy, u"proxy.test:80");
        EXPECT_EQ(read.scriptUrl, u"http://script.test/");
        EXPECT_TRUE(read.detectsScript);
    }
    for (const auto give : {GiveEmptySettings, RefuseSettings}) {
        const PAVANE_REPLACED(WinHttpGetIEProxyConfigForCurrentUser)
            settings("winhttp.dll", "WinHttpGetIEProxyConfigForCurrentUser", give);
        const ProxySettings read = ReadProxySettings();
        EXPECT_FALSE(read.proxy || read.scriptUrl || read.detectsScript);
    }
}

TEST_F(SystemCalls, TheFlagOfAutomaticDetectionIsRead) {
    const ConnectionSettings settings;
    EXPECT_FALSE(ReadProxySettings().detectsScript);
    settings.Write("", "", true);
    EXPECT_TRUE(ReadProxySettings().detectsScript);
    EXPECT_FALSE(ReadProxySettings().proxy || ReadProxySettings().scriptUrl);
}

TEST_F(SystemCalls, AScriptIsAskedByItsAddressAndLogsOnWhenChallenged) {
    const PAVANE_REPLACED(WinHttpGetProxyForUrl) asking("winhttp.dll", "WinHttpGetProxyForUrl", GiveProxy);
    EXPECT_EQ(AskForProxy(reinterpret_cast<NativeHttp>(7), u"http://a.test/", u"http://script.test/"),
              u"proxy.test:80");
    EXPECT_THAT(Recorded(), ElementsAre("7 http://a.test/ 2 0 http://script.test/ 1"));
}

TEST_F(SystemCalls, ADetectedScriptIsSoughtInBothWaysAndLogsOnWhenChallenged) {
    const PAVANE_REPLACED(WinHttpGetProxyForUrl) asking("winhttp.dll", "WinHttpGetProxyForUrl", GiveProxy);
    EXPECT_EQ(AskForProxy(nullptr, u"http://a.test/", nullptr), u"proxy.test:80");
    EXPECT_THAT(Recorded(), ElementsAre("0 http://a.test/ 1 3 - 1"));
    gHasProxy = false;
    EXPECT_EQ(AskForProxy(nullptr, u"http://a.test/", nullptr), std::nullopt);
}

TEST_F(SystemCalls, AScriptThatCannotBeAskedHasNoProxy) {
    const PAVANE_REPLACED(WinHttpGetProxyForUrl) asking("winhttp.dll", "WinHttpGetProxyForUrl", RefuseProxy);
    EXPECT_EQ(AskForProxy(nullptr, u"http://a.test/", nullptr), std::nullopt);
}

TEST_F(SystemCalls, EachKindOfSessionHasItsModes) {
    const PAVANE_REPLACED(WinHttpOpen) opening("winhttp.dll", "WinHttpOpen", RecordOpen);
    EXPECT_FALSE(OpenLookUpSession(u"WinHTTP AutoProxy"));
    EXPECT_FALSE(OpenSession(u"PVN_CLIENT", nullptr));
    EXPECT_FALSE(OpenSession(u"PVN_CLIENT", u"proxy.test:80"));
    EXPECT_THAT(Recorded(), ElementsAre("Open WinHTTP AutoProxy 1 - - 0", // no proxy, synchronous
                                        "Open PVN_CLIENT 0 - - 268435456",
                                        "Open PVN_CLIENT 3 proxy.test:80 - 268435456"));
}

TEST_F(SystemCalls, AUrlIsSplitWithDecodedEscapesIntoPartsOfFixedSizes) {
    PAVANE_REPLACED(WinHttpCrackUrl) splitting("winhttp.dll", "WinHttpCrackUrl", RecordCrack);
    Original<decltype(&WinHttpCrackUrl)>() = splitting.Original();
    UrlParts parts = SplitUrl(u"https://service.test:8443/a%20b?c");
    EXPECT_THAT(Recorded(), ElementsAre("Crack https://service.test:8443/a%20b?c 0 268435456 " +
                                        std::to_string(sizeof(URL_COMPONENTSW)) + " 256 1024 0"));
    EXPECT_EQ(parts.host, u"service.test");
    EXPECT_EQ(parts.path, u"/a b?c");
    EXPECT_EQ(parts.port, 8443);
    EXPECT_TRUE(parts.isSecure);
    parts = SplitUrl(u"http://service.test");
    EXPECT_EQ(parts.path, u"");
    EXPECT_EQ(parts.port, 80);
    EXPECT_FALSE(parts.isSecure);
}

TEST_F(SystemCalls, PartsOfAUrlThatDoNotFitMakeNoUrl) {
    const std::u16string host = u"http://" + std::u16string(251, u'h'), path = u"http://a/";
    EXPECT_EQ(SplitUrl((host + u".com").c_str()).host.size(), 255u);
    EXPECT_EQ(SplitUrl((host + u"h.com").c_str()).host, u"");
    EXPECT_EQ(SplitUrl((path + std::u16string(1022, u'p')).c_str()).path.size(), 1023u);
    const UrlParts parts = SplitUrl((path + std::u16string(1023, u'p')).c_str());
    EXPECT_EQ(parts.path, u"");
    EXPECT_EQ(parts.host, u"") << "no call to the root of the host instead";
}

// Never more: no option that relaxes certificates, redirects or a log-in.
TEST_F(SystemCalls, ARequestIsMadeOfTheseCallsAlone) {
    const ConnectionSettings direct;
    PAVANE_REPLACED(WinHttpConnect) connect("winhttp.dll", "WinHttpConnect", PassConnect);
    Original<decltype(&WinHttpConnect)>() = connect.Original();
    PAVANE_REPLACED(WinHttpOpenRequest) open("winhttp.dll", "WinHttpOpenRequest", PassOpenRequest);
    Original<decltype(&WinHttpOpenRequest)>() = open.Original();
    PAVANE_REPLACED(WinHttpAddRequestHeaders) add("winhttp.dll", "WinHttpAddRequestHeaders", PassAddHeader);
    Original<decltype(&WinHttpAddRequestHeaders)>() = add.Original();
    PAVANE_REPLACED(WinHttpSetTimeouts) timeouts("winhttp.dll", "WinHttpSetTimeouts", PassSetTimeouts);
    Original<decltype(&WinHttpSetTimeouts)>() = timeouts.Original();
    PAVANE_REPLACED(WinHttpSetOption) option("winhttp.dll", "WinHttpSetOption", PassSetOption);
    Original<decltype(&WinHttpSetOption)>() = option.Original();
    PAVANE_REPLACED(WinHttpSetStatusCallback)
    callback("winhttp.dll", "WinHttpSetStatusCallback", PassSetCallback);
    Original<decltype(&WinHttpSetStatusCallback)>() = callback.Original();
    PAVANE_REPLACED(WinHttpSendRequest) send("winhttp.dll", "WinHttpSendRequest", PassSend);
    Original<decltype(&WinHttpSendRequest)>() = send.Original();

    LoopbackServer server([](const Conversation& client) { client.SendAnswer("answer"); });
    CommunicationDetail detail;
    detail.timeoutSeconds = 20;
    std::string response;
    EXPECT_EQ(PVN_HTTPSend(server.Url().c_str(), detail, "the body", response), kStatusSuccess);
    EXPECT_THAT(Recorded(), ElementsAre("SetTimeouts 21000 21000 21000 21000", "SetOption 7 4 21000",
                                        "Connect 127.0.0.1 0", "OpenRequest POST /call - - 1 0",
                                        "AddHeader Host: 1 536870912", "AddHeader User- 1 536870912",
                                        "AddHeader Conte 1 536870912", "AddHeader Conne 1 536870912",
                                        "AddHeader SOAPA 1 536870912", "SetOption 45 8 0",
                                        "SetCallback 1 8323072 3072 0", "Send - 0 the body 8 1"));
    EXPECT_EQ(PVN_HTTPSend("https://localhost:1/", detail, "", response), kStatusHttpError);
    EXPECT_THAT(Recorded(), testing::Contains("OpenRequest POST / - - 1 8388608")) << "secure";
}

// The test calls in place of the system, which makes some of these notifications at rare faults alone.
TEST_F(SystemCalls, ANotificationReachesTheObserverWithItsNumber) {
    const PAVANE_REPLACED(WinHttpSetOption) option("winhttp.dll", "WinHttpSetOption", AcceptOption);
    const PAVANE_REPLACED(WinHttpSetStatusCallback)
        callback("winhttp.dll", "WinHttpSetStatusCallback", KeepCallback);
    RecordingObserver observer;
    ASSERT_TRUE(ObserveRequest(reinterpret_cast<NativeHttp>(7), observer));
    const auto notify = [](HttpObserver* to, DWORD status, void* information, DWORD length) {
        gCallback(reinterpret_cast<HINTERNET>(7), reinterpret_cast<DWORD_PTR>(to), status, information,
                  length);
    };
    DWORD available = 300, reasons = WINHTTP_CALLBACK_STATUS_FLAG_INVALID_CA;
    WINHTTP_ASYNC_RESULT failure = {API_SEND_REQUEST, ERROR_WINHTTP_CANNOT_CONNECT};
    notify(&observer, WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE, nullptr, 1);
    notify(&observer, WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE, nullptr, 2);
    notify(&observer, WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE, &available, sizeof available);
    notify(&observer, WINHTTP_CALLBACK_STATUS_READ_COMPLETE, &available, 200);
    notify(&observer, WINHTTP_CALLBACK_STATUS_REQUEST_ERROR, &failure, sizeof failure);
    notify(&observer, WINHTTP_CALLBACK_STATUS_SECURE_FAILURE, &reasons, sizeof reasons);
    notify(&observer, WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING, nullptr, 3);
    notify(&observer, WINHTTP_CALLBACK_STATUS_REDIRECT, nullptr, 4);
    notify(nullptr, WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING, nullptr, 0); // of a handle without an observer
    const auto line = [](HttpNotice notice, DWORD number) {
        return "7 " + std::to_string(static_cast<int>(notice)) + " " + std::to_string(number);
    };
    EXPECT_THAT(Recorded(),
                ElementsAre(line(HttpNotice::kSent, 0), line(HttpNotice::kHeaders, 0),
                            line(HttpNotice::kDataAvailable, 300), line(HttpNotice::kRead, 200),
                            line(HttpNotice::kError, ERROR_WINHTTP_CANNOT_CONNECT),
                            line(HttpNotice::kSecureFailure, WINHTTP_CALLBACK_STATUS_FLAG_INVALID_CA),
                            line(HttpNotice::kClosed, 0)));
}

TEST(Waiting, ThatTheSystemRefusesIsNoTimeOut) {
    EXPECT_EQ(WaitForEither(nullptr, nullptr, 0), WaitResult::kFailed);
}

} // namespace
} // namespace brixen::pvn
