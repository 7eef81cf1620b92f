// The transport over the system's own HTTP, against servers on the loopback interface.
#include "connection_settings.h"
#include "loopback_server.h"
#include "process_counts.h"

#include "net/transport/call_limit.h"
#include "net/transport/http_send.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace brixen::pvn {
namespace {

using pavane_test::ConnectionSettings;
using pavane_test::Conversation;
using pavane_test::LoopbackServer;
using pavane_test::OpenHandles;
using pavane_test::RunningThreads;
using pavane_test::UsedMemory;
using testing::AnyOf;
using testing::ElementsAre;
using testing::StartsWith;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kCancelLimit(100);

class Transport : public testing::Test {
protected:
    Transport() {
        detail.timeoutSeconds = 20;
        detail.useOsProxy = 1;
    }

    // The call after each fault works.
    void TearDown() override {
        settings.Write("", "");
        detail = CommunicationDetail();
        detail.timeoutSeconds = 20;
        detail.useOsProxy = 1;
        LoopbackServer server([](const Conversation& client) { client.SendAnswer("the next answer"); });
        EXPECT_EQ(Send(server.Url()), kStatusSuccess) << "the next call";
        EXPECT_EQ(response, "the next answer");
    }

    Status Send(const std::string& url, const std::string& body = "the body") {
        response = "an earlier answer";
        return PVN_HTTPSend(url.c_str(), detail, body.c_str(), response);
    }

    // The status of a call to a server that does this.
    Status SendTo(LoopbackServer::Handler handler) {
        LoopbackServer server(std::move(handler));
        return Send(server.Url());
    }

    void UseProxy(int port) {
        detail.useOsProxy = 0;
        std::snprintf(detail.proxyHost, sizeof detail.proxyHost, "127.0.0.1");
        detail.proxyPort = port;
    }

    // Cancels as soon as the server has the request, and expects that the call ends soon after it.
    void ExpectCancelAtOnce(const std::string& url, LoopbackServer& server) {
        ExpectCancelAtOnce(url, [&server] { server.AwaitRequests(1); });
    }
    void ExpectCancelAtOnce(const std::string& url, const std::function<void()>& awaitMoment) {
        Clock::time_point signaled;
        std::thread canceler([&] {
            awaitMoment();
            signaled = Clock::now();
            CancelTransaction();
        });
        EXPECT_EQ(Send(url), kStatusCallCanceled);
        const Clock::time_point returned = Clock::now();
        canceler.join();
        EXPECT_LT(returned - signaled, kCancelLimit);
        EXPECT_EQ(response, "");
    }

    ConnectionSettings settings;
    CommunicationDetail detail;
    std::string response;
};

std::string Bytes(std::size_t length) { return std::string(length, 'x'); }

TEST_F(Transport, SendsTheFixedHeadersInTheirOrder) {
    LoopbackServer server([](const Conversation& client) { client.SendAnswer("answer"); });
    EXPECT_EQ(Send(server.Url("/a%20b?x=%41"), "<call/>"), kStatusSuccess);
    EXPECT_EQ(response, "answer");
    EXPECT_THAT(server.Requests(), ElementsAre("POST /a%20b?x=A HTTP/1.1\r\n"
                                               "Host: ops\r\n"
                                               "User-Agent: PVN\r\n"
                                               "Content-Type: text/xml; charset=utf-8\r\n"
                                               "Connection: close\r\n"
                                               "SOAPAction: urn:#pvnCallRequest\r\n"
                                               "Content-Length: 7\r\n"
                                               "\r\n"
                                               "<call/>"));
}

TEST_F(Transport, TheStatusOfTheAnswerIsNotRead) {
    for (const char* const status : {"200 OK", "404 Not Found", "500 Internal Server Error",
                                     "401 Unauthorized", "407 Proxy Authentication Required"}) {
        EXPECT_EQ(SendTo([status](const Conversation& client) { client.SendAnswer("a page", status); }),
                  kStatusSuccess)
            << status;
        EXPECT_EQ(response, "a page");
    }
}

TEST_F(Transport, AnswersOfNoBytesAreSuccesses) {
    EXPECT_EQ(SendTo([](const Conversation& client) { client.SendAnswer(""); }), kStatusSuccess);
    EXPECT_EQ(response, "");
    EXPECT_EQ(SendTo([](const Conversation& client) { client.Send("HTTP/1.1 200 OK\r\n\r\n"); }),
              kStatusSuccess);
    EXPECT_EQ(response, "");
}

TEST_F(Transport, TakesAnAnswerInChunks) {
    EXPECT_EQ(SendTo([](const Conversation& client) {
                  client.Send("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
                  client.Send("5\r\nhello\r\n");
                  client.Send("7\r\n, world\r\n0\r\n\r\n");
              }),
              kStatusSuccess);
    EXPECT_EQ(response, "hello, world");
}

TEST_F(Transport, TakesAnAnswerThatDrips) {
    EXPECT_EQ(SendTo([](const Conversation& client) {
                  client.Send("HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n");
                  for (int i = 0; i < 20; ++i) {
                      client.Send("x");
                      Sleep(5);
                  }
              }),
              kStatusSuccess);
    EXPECT_EQ(response, Bytes(20));
}

TEST_F(Transport, TakesTwentyMebibytes) {
    const std::string body = Bytes(20 << 20);
    EXPECT_EQ(SendTo([&body](const Conversation& client) { client.SendAnswer(body); }), kStatusSuccess);
    EXPECT_EQ(response.size(), body.size());
}

TEST_F(Transport, NobodyListening) {
    int port = 0;
    {
        LoopbackServer server([](const Conversation&) {});
        port = server.Port();
    }
    EXPECT_EQ(Send("http://127.0.0.1:" + std::to_string(port) + "/"), kStatusHttpError);
    EXPECT_EQ(response, "");
}

TEST_F(Transport, ANameThatIsNotResolved) {
    EXPECT_EQ(Send("http://service.invalid/"), kStatusNameNotResolved);
}

// Windows may have another status.
TEST_F(Transport, AUrlThatCannotBeReadIsAFailure) {
    for (const std::string& url : {std::string(), std::string("no url"), std::string("ftp://127.0.0.1/"),
                                   "http://127.0.0.1/" + Bytes(1100)}) {
        EXPECT_EQ(Send(url), kStatusHttpError) << url;
        EXPECT_EQ(response, "");
    }
}

TEST_F(Transport, AConnectionCutInTheHead) {
    EXPECT_EQ(SendTo([](const Conversation&) {}), kStatusHttpError);
    EXPECT_EQ(SendTo([](const Conversation& client) { client.Send("HTTP/1.1 20"); }), kStatusHttpError);
    EXPECT_EQ(response, "");
}

// Windows may report an error here; under Wine the answer counts as complete.
TEST_F(Transport, ABodyThatEndsTooEarlyIsTakenAsItIs) {
    EXPECT_EQ(SendTo([](const Conversation& client) {
                  client.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n" + Bytes(50));
              }),
              kStatusSuccess);
    EXPECT_EQ(response, Bytes(50));
}

TEST_F(Transport, AConnectionThatIsResetInTheBody) {
    EXPECT_EQ(SendTo([](const Conversation& client) {
                  client.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n" + Bytes(50));
                  client.Reset();
              }),
              kStatusSystemError);
    EXPECT_EQ(response, "");
}

// Windows may follow it without the body; Wine reports an error.
TEST_F(Transport, ARedirectToAnotherPage) {
    EXPECT_EQ(SendTo([](const Conversation& client) {
                  client.Send("HTTP/1.1 302 Found\r\nLocation: /other\r\nContent-Length: 0\r\n\r\n");
              }),
              kStatusHttpError);
}

TEST_F(Transport, ARedirectThatRepeatsTheBody) {
    LoopbackServer server([](const Conversation& client) {
        if (client.Request().starts_with("POST /call"))
            client.Send("HTTP/1.1 307 Temporary Redirect\r\nLocation: /other\r\nContent-Length: 0\r\n\r\n");
        else
            client.SendAnswer("from the other place");
    });
    EXPECT_EQ(Send(server.Url()), kStatusSuccess);
    EXPECT_EQ(response, "from the other place");
    EXPECT_TRUE(server.Requests().back().ends_with("the body"));
}

TEST_F(Transport, AnAnswerThatIsNoHttp) {
    EXPECT_EQ(SendTo([](const Conversation& client) { client.Send("garbage\r\n\r\n"); }), kStatusHttpError);
}

TEST_F(Transport, ASilentServerEndsByTheLimit) {
    detail.timeoutSeconds = 1;
    std::atomic<bool> isClosed = false;
    LoopbackServer silent([&](const Conversation& client) { isClosed = client.AwaitClose(); });
    EXPECT_EQ(Send(silent.Url()), kStatusCallTimedOut);
    EXPECT_EQ(response, "");
    // The system may keep the connection until its own limit, a second later.
    const Clock::time_point end = Clock::now() + std::chrono::seconds(10);
    while (!isClosed && Clock::now() < end) Sleep(1);
    EXPECT_TRUE(isClosed);
}

TEST_F(Transport, AnAnswerThatLandsOnItsCapacityEndsByTheLimit) {
    detail.timeoutSeconds = 1;
    EXPECT_EQ(SendTo([](const Conversation& client) { client.SendAnswer(Bytes(8190)); }), kStatusSuccess);
    EXPECT_EQ(response, Bytes(8190));
    EXPECT_EQ(SendTo([](const Conversation& client) {
                  client.SendAnswer(Bytes(8191));
                  client.AwaitClose();
              }),
              kStatusCallTimedOut);
}

TEST_F(Transport, CancelBeforeTheCallEndsItAtOnce) {
    const EventHandle cancel = MakeCancelEvent();
    CancelTransaction();
    LoopbackServer server([](const Conversation& client) { client.AwaitClose(); });
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(Send(server.Url()), kStatusCallCanceled);
    EXPECT_LT(Clock::now() - start, kCancelLimit);
}

TEST_F(Transport, CancelWhileTheServerIsSilent) {
    LoopbackServer server([](const Conversation& client) { client.AwaitClose(); });
    ExpectCancelAtOnce(server.Url(), server);
}

TEST_F(Transport, CancelInTheMiddleOfTheAnswer) {
    std::atomic<bool> isHalfSent = false;
    LoopbackServer server([&isHalfSent](const Conversation& client) {
        client.Send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n" + Bytes(50000));
        isHalfSent = true;
        client.AwaitClose();
    });
    ExpectCancelAtOnce(server.Url(), [&isHalfSent] {
        while (!isHalfSent) std::this_thread::yield();
        Sleep(50); // for the client to read it
    });
}

TEST_F(Transport, CancelWhileTheScriptOfTheProxySettingsStalls) {
    LoopbackServer scripts([](const Conversation& client) { client.AwaitClose(); });
    settings.Write("", scripts.Url("/proxy.pac"));
    ExpectCancelAtOnce("http://service.test/", scripts);
}

TEST_F(Transport, AStalledScriptDoesNotHoldUpACallThroughTheUsersProxy) {
    LoopbackServer scripts([](const Conversation& client) { client.AwaitClose(); });
    settings.Write("", scripts.Url("/proxy.pac"));
    LoopbackServer proxy([](const Conversation& client) { client.SendAnswer("through the proxy"); });
    detail.timeoutSeconds = 5;
    UseProxy(proxy.Port());
    EXPECT_EQ(Send("http://service.test/call"), kStatusSuccess);
    EXPECT_EQ(response, "through the proxy");
    scripts.AwaitRequests(1); // the script is asked for all the same
}

TEST_F(Transport, CancelsAtRandomMomentsOfALongAnswer) {
    const std::string body = Bytes(4 << 20);
    LoopbackServer server([&body](const Conversation& client) { client.SendAnswer(body); });
    for (int i = 0; i < 20; ++i) {
        std::thread canceler([i] {
            Sleep(static_cast<DWORD>(i));
            CancelTransaction();
        });
        const Status status = Send(server.Url());
        canceler.join();
        // The whole answer may arrive between the signal and the end of the call.
        if (status == kStatusCallCanceled && response.empty()) continue;
        EXPECT_THAT(status, AnyOf(kStatusSuccess, kStatusCallCanceled));
        EXPECT_EQ(response.size(), body.size()) << "status " << status;
    }
}

TEST_F(Transport, GoesThroughTheUsersProxy) {
    LoopbackServer proxy([](const Conversation& client) { client.SendAnswer("through the proxy"); });
    UseProxy(proxy.Port());
    EXPECT_EQ(Send("http://service.test/call"), kStatusSuccess);
    EXPECT_EQ(response, "through the proxy");
    EXPECT_THAT(proxy.Requests(), ElementsAre(AnyOf(StartsWith("POST http://service.test/call "),
                                                    StartsWith("POST http://service.test:80/call "))));
}

TEST_F(Transport, GoesThroughTheProxyOfTheSystem) {
    LoopbackServer proxy([](const Conversation& client) { client.SendAnswer("through the proxy"); });
    const std::string place = "127.0.0.1:" + std::to_string(proxy.Port());
    settings.Write("http=127.0.0.1:1;https=" + place, "");
    EXPECT_EQ(Send("http://service.test/call"), kStatusSuccess);
    EXPECT_EQ(response, "through the proxy");
    settings.Write(place, "");
    EXPECT_EQ(Send("http://service.test/call"), kStatusSuccess);
    EXPECT_EQ(response, "through the proxy");
}

TEST_F(Transport, GoesThroughTheProxyOfAScript) {
    LoopbackServer proxy([](const Conversation& client) { client.SendAnswer("through the proxy"); });
    const std::string script =
        "function FindProxyForURL(url, host) { return 'PROXY 127.0.0.1:" + std::to_string(proxy.Port()) +
        "; DIRECT'; }";
    LoopbackServer scripts([&script](const Conversation& client) { client.SendAnswer(script); });
    settings.Write("", scripts.Url("/proxy.pac"));
    EXPECT_EQ(Send("http://service.test/call"), kStatusSuccess);
    EXPECT_EQ(response, "through the proxy");
    EXPECT_THAT(scripts.Requests(), testing::Each(StartsWith("GET /proxy.pac ")));
}

TEST_F(Transport, AProxyThatIsDownIsAFailure) {
    UseProxy(1);
    EXPECT_EQ(Send("http://service.test/call"), kStatusHttpError);
}

// Windows gives the page of the proxy too, if the proxy reads the whole call.
TEST_F(Transport, AProxyThatWantsALogInAnswersItself) {
    LoopbackServer proxy(
        [](const Conversation& client) { client.SendAnswer("log in", "407 Proxy Authentication Required"); });
    UseProxy(proxy.Port());
    std::snprintf(detail.proxyUserName, sizeof detail.proxyUserName, "user");
    std::snprintf(detail.proxyPassword, sizeof detail.proxyPassword, "secret");
    EXPECT_EQ(Send("http://service.test/call"), kStatusSuccess);
    EXPECT_EQ(response, "log in");
    ASSERT_EQ(proxy.Requests().size(), 1U);
    EXPECT_THAT(proxy.Requests()[0], testing::Not(testing::HasSubstr("Authorization")));
}

TEST_F(Transport, CancelWhileTheHandshakeStalls) {
    LoopbackServer server([](const Conversation&) {});
    ExpectCancelAtOnce("https://localhost:" + std::to_string(server.Port()) + "/",
                       [&server] { server.AwaitConnections(1); });
}

TEST(ProcessCounts, SeeWhatIsOpen) {
    const std::size_t handles = OpenHandles(), threads = RunningThreads(), memory = UsedMemory();
    {
        const std::vector<char> block(5000);
        const EventHandle event(MakeEvent(nullptr)), second(MakeEvent(nullptr));
        std::atomic<bool> isOver = false;
        std::thread thread([&isOver] {
            while (!isOver) Sleep(1);
        });
        EXPECT_GE(OpenHandles(), handles + 2);
        EXPECT_EQ(RunningThreads(), threads + 1);
        EXPECT_GE(UsedMemory(), memory + block.size());
        isOver = true;
        thread.join();
    }
    EXPECT_EQ(RunningThreads(), threads);
    EXPECT_LT(UsedMemory(), memory + 5000);
}

TEST_F(Transport, LeavesNothingBehindAfterTwoHundredCalls) {
    const auto callOften = [this](int count) {
        LoopbackServer server([](const Conversation& client) { client.SendAnswer(Bytes(1000)); });
        for (int i = 0; i < count; ++i) EXPECT_EQ(Send(server.Url()), kStatusSuccess);
    };
    callOften(20); // the system keeps some threads of its own
    const std::size_t handles = OpenHandles(), threads = RunningThreads(), memory = UsedMemory();
    callOften(200);
    ASSERT_GT(handles, 0U);
    EXPECT_LE(OpenHandles(), handles + 10);
    EXPECT_LE(RunningThreads(), threads + 5);
    EXPECT_LE(UsedMemory(), memory + 2000);
}

TEST_F(Transport, LeavesNothingBehindAfterTwoHundredCallsThatFail) {
    const auto callOften = [this](int count) {
        LoopbackServer server([](const Conversation& client) { client.Send("HTTP/1.1 20"); });
        const EventHandle cancel = MakeCancelEvent();
        for (int i = 0; i < count; ++i) {
            const bool isCanceled = i % 2 == 0;
            if (isCanceled) CancelTransaction();
            EXPECT_EQ(Send(server.Url()), isCanceled ? kStatusCallCanceled : kStatusHttpError);
        }
    };
    callOften(20);
    const std::size_t handles = OpenHandles(), threads = RunningThreads(), memory = UsedMemory();
    callOften(200);
    const auto hasSettled = [&] {
        return OpenHandles() <= handles + 10 && RunningThreads() <= threads + 5 &&
               UsedMemory() <= memory + 2000;
    };
    // A canceled request closes a moment after its call.
    const Clock::time_point end = Clock::now() + std::chrono::seconds(10);
    while (!hasSettled() && Clock::now() < end) Sleep(10);
    EXPECT_LE(OpenHandles(), handles + 10);
    EXPECT_LE(RunningThreads(), threads + 5);
    EXPECT_LE(UsedMemory(), memory + 2000);
}

} // namespace
} // namespace brixen::pvn
