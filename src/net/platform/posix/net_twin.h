// The native twin of the net platform. Events work as the system's do. HTTP only records its calls, answers
// what a test has set, refuses on demand, and plays a list of notifications from a thread of its own.
#pragma once

#include "net/platform/net_platform.h"

#include <functional>
#include <string>
#include <vector>

namespace brixen::pvn {

// One notification of the script. It is played when the request is sent; kHeaders, kDataAvailable and kRead
// wait for the call that they answer. Of the notifications after the closing of the request only the late
// ones are played.
struct ScriptedNotice {
    HttpNotice notice;
    std::uint32_t number = 0;          // of kRead: the length of the bytes
    std::string bytes = {};            // of kRead: written to where the latest ReadData wanted them
    bool isLate = false;               // played after the request was closed
    std::function<void()> before = {}; // called on the thread of the player just before the notification
};

struct NetTwin {
    UrlParts urlParts = {u"service.test", u"/call", 80, false};
    ProxySettings settings;
    std::optional<std::u16string> proxyForUrl; // the answer of AskForProxy
    std::function<void()> whileAsked;          // called inside AskForProxy, on its thread
    std::vector<ScriptedNotice> script;
    bool readsNeedACall = true; // false: kRead is played when the request has been sent
    std::function<void(std::string_view body)> onSend; // called inside SendRequest
    std::function<void()> onReceive;                   // called inside ReceiveResponse, before its record
    std::function<void()> onSignal;                    // called inside SignalEventNamed, before the signal
    // Called inside WaitForEither, on the thread that waits: before the wait, and after it.
    std::function<void()> beforeWait;
    std::function<void()> afterWait;

    // The function of this name fails with this error, each time.
    std::string refusedCall;
    std::uint32_t error = 0;
};

// Belongs to the test's thread; set everything before the call under test.
[[nodiscard]] NetTwin& GetNetTwin() noexcept;
// Waits until every observed request has closed, and restores the defaults. Forgets the records.
void ResetNetTwin();

// The records of all threads, in their order: "OpenSession PVN_CLIENT proxy:80".
[[nodiscard]] std::vector<std::string> NetTwinCalls();
// The number of open handles of events, sessions, connections and requests.
[[nodiscard]] int OpenNetHandles() noexcept;
// Waits until every observed request has had its last notification.
void AwaitClosedRequests();

// For the twin's own files.
void RecordNetCall(const std::string& call);
// Records the call, whose name is its first word, and returns whether it is refused.
[[nodiscard]] bool IsNetCallRefused(const std::string& call);
void CountNetHandles(int change) noexcept;

} // namespace brixen::pvn
