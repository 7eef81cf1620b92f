// Scripts of notifications, and the surroundings of a test of the transport.
#pragma once

#include "net/platform/posix/net_twin.h"
#include "net/transport/call_limit.h"
#include "net/transport/http_send.h"

#include "support/log_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace brixen::pvn {

using Script = std::vector<ScriptedNotice>;

inline ScriptedNotice Notice(HttpNotice notice, std::uint32_t number = 0) {
    ScriptedNotice scripted;
    scripted.notice = notice;
    scripted.number = number;
    return scripted;
}

inline ScriptedNotice Read(const std::string& bytes) {
    ScriptedNotice scripted = Notice(HttpNotice::kRead);
    scripted.bytes = bytes;
    return scripted;
}

// The same notification with something that happens just before it.
inline ScriptedNotice After(std::function<void()> before, ScriptedNotice scripted) {
    scripted.before = std::move(before);
    return scripted;
}

inline ScriptedNotice Late(ScriptedNotice scripted) {
    scripted.isLate = true;
    return scripted;
}

// Signals the cancel event, then sends a notification that only writes a log line.
inline ScriptedNotice Cancel() { return After(CancelTransaction, Notice(HttpNotice::kSecureFailure)); }

inline Script HeadersOfAnswer() { return {Notice(HttpNotice::kSent), Notice(HttpNotice::kHeaders)}; }

inline void AddPart(Script& script, const std::string& bytes) {
    script.push_back(Notice(HttpNotice::kDataAvailable, static_cast<std::uint32_t>(bytes.size())));
    script.push_back(Read(bytes));
}

// An answer that arrives in these parts.
inline Script Answer(const std::vector<std::string>& parts) {
    Script script = HeadersOfAnswer();
    for (const std::string& part : parts) AddPart(script, part);
    AddPart(script, "");
    return script;
}

// A door that other threads wait at until the test opens it.
struct Door {
    std::atomic<bool> isOpen = false;

    void Pass() const {
        while (!isOpen) std::this_thread::yield();
    }
};

class TransportTest : public testing::Test {
protected:
    TransportTest() {
        ResetNetTwin();
        OpenLog(false);
        detail.timeoutSeconds = kDefaultTimeoutSeconds;
        GetNetTwin().script = Answer({"answer"});
    }
    ~TransportTest() override {
        AwaitClosedRequests();
        // An abandoned look-up closes its own handles.
        while (OpenNetHandles() != 0) std::this_thread::yield();
        EXPECT_EQ(GetFrameTwin().openThreadHandles, 0);
        ResetNetTwin();
    }

    // Returns the status; the answer is in `response`.
    Status Send(const char* url = "http://service.test/call", const char* body = "body") {
        return PVN_HTTPSend(url, detail, body, response);
    }

    // The recorded calls whose first word is `name`, without it.
    static std::vector<std::string> Calls(const std::string& name) {
        std::vector<std::string> found;
        for (const std::string& call : NetTwinCalls()) {
            if (call == name) found.emplace_back();
            if (call.starts_with(name + " ")) found.push_back(call.substr(name.size() + 1));
        }
        return found;
    }

    // Waits for a call of another thread.
    static void AwaitCalls(const std::string& name, std::size_t count) {
        while (Calls(name).size() < count) std::this_thread::yield();
    }

    // From then on the waiting thread allocates nothing until the call has ended. For the thread of the
    // script.
    static void AwaitWaiter() { AwaitCalls("WaitForEither", 1); }

    pavane_test::LogFile log;
    Door door; // outlives whatever waits at it
    CommunicationDetail detail;
    std::string response = "an earlier answer";
};

} // namespace brixen::pvn
