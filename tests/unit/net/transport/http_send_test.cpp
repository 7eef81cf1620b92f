#include "unit/net/transport/transport_fixture.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;

class HttpSend : public TransportTest {
protected:
    void UseProxy(const char* host, std::int32_t port) {
        detail.useOsProxy = 0;
        std::snprintf(detail.proxyHost, sizeof detail.proxyHost, "%s", host);
        detail.proxyPort = port;
    }
    std::string ProxyOfSession() { return Calls("OpenSession").at(0).substr(sizeof "PVN_CLIENT"); }

    // The log without lines of durations, which depend on the machine.
    std::vector<std::string> Log() const {
        std::vector<std::string> lines = log.Bodies();
        std::erase_if(lines, [](const std::string& line) { return line.starts_with("PVN: _time_"); });
        return lines;
    }
};

TEST_F(HttpSend, MakesItsCallsInTheirOrder) {
    GetNetTwin().script[0].before = [] { AwaitCalls("WaitForEither", 1); };
    EXPECT_EQ(Send("http://service.test/call", "the body"), kStatusSuccess);
    EXPECT_EQ(response, "answer");
    EXPECT_THAT(NetTwinCalls(),
                ElementsAre("MakeNamedEvent CancelTransactionEvent", "SplitUrl http://service.test/call",
                            "ReadProxySettings", "OpenLookUpSession WinHTTP AutoProxy", "CloseHttp",
                            "MakeEvent", "OpenSession PVN_CLIENT -", "SetPhaseLimits 61000",
                            "OpenConnection service.test 80", "OpenRequest POST /call", "AddHeader Host: ops",
                            "AddHeader User-Agent: PVN", "AddHeader Content-Type: text/xml; charset=utf-8",
                            "AddHeader Connection: close", "AddHeader SOAPAction: urn:#pvnCallRequest",
                            "ObserveRequest", "SendRequest the body", testing::StartsWith("WaitForEither "),
                            "ReceiveResponse", "QueryDataAvailable", "ReadData 6", "QueryDataAvailable",
                            "ReadData 0", "CloseHttp", "CloseHttp", "CloseHttp"));
}

TEST_F(HttpSend, WaitsForTheLimitOfTheDetail) {
    GetFrameTwin().tickCount = 0xFFFFFFF0;
    detail.timeoutSeconds = 65535;
    EXPECT_EQ(Send(), kStatusSuccess);
    EXPECT_THAT(Calls("WaitForEither"), ElementsAre("65535000"));
    EXPECT_THAT(Calls("SetPhaseLimits"), ElementsAre("65536000"));
}

TEST_F(HttpSend, ASecureUrlMakesASecureRequest) {
    GetNetTwin().urlParts = {u"service.test", u"/call", 443, true};
    EXPECT_EQ(Send("https://service.test/call"), kStatusSuccess);
    EXPECT_THAT(Calls("OpenRequest"), ElementsAre("POST /call secure"));
    EXPECT_THAT(Calls("OpenConnection"), ElementsAre("service.test 443"));
}

TEST_F(HttpSend, GoesOnWithAUrlThatCannotBeSplit) {
    GetNetTwin().refusedCall = "SplitUrl";
    EXPECT_EQ(Send("no url"), kStatusSuccess);
    EXPECT_THAT(Calls("OpenConnection"), ElementsAre(" 0"));
    EXPECT_THAT(Calls("OpenRequest"), ElementsAre("POST "));
}

TEST_F(HttpSend, AUrlOfMoreThan1023UnitsIsNoUrl) {
    EXPECT_EQ(Send(std::string(1023, 'u').c_str()), kStatusSuccess);
    EXPECT_EQ(Send(std::string(1024, 'u').c_str()), kStatusSuccess);
    EXPECT_THAT(Calls("SplitUrl"), ElementsAre(std::string(1023, 'u'), ""));
}

TEST_F(HttpSend, NullTextsAreEmptyOnes) {
    EXPECT_EQ(Send(nullptr, nullptr), kStatusSuccess);
    EXPECT_THAT(Calls("SplitUrl"), ElementsAre(""));
    EXPECT_THAT(Calls("SendRequest"), ElementsAre(""));
}

TEST_F(HttpSend, TheSystemsProxyIsLookedUpTwice) {
    detail.useOsProxy = 1;
    GetNetTwin().settings.proxy = u"proxy.test:8080";
    EXPECT_EQ(Send(), kStatusSuccess);
    EXPECT_EQ(Calls("ReadProxySettings").size(), 2u);
    EXPECT_EQ(ProxyOfSession(), "proxy.test:8080");
    EXPECT_THAT(Log(), ElementsAre("PVN: _info_: Set Communication Detail:",
                                   "PVN: _info_: Endpoint is http://service.test/call (protocol=pvn)",
                                   "PVN: _info_: Use OS Proxy Setting:"));
}

TEST_F(HttpSend, TheUsersProxyCountsAlone) {
    GetNetTwin().settings.proxy = u"system.test:8080";
    UseProxy("proxy.test", 3128);
    EXPECT_EQ(Send(), kStatusSuccess);
    EXPECT_EQ(Calls("ReadProxySettings").size(), 1u) << "the first look-up is always made";
    EXPECT_EQ(ProxyOfSession(), "proxy.test:3128");
    EXPECT_THAT(Log(), ElementsAre("PVN: _info_: Set Communication Detail:",
                                   "PVN: _info_: Endpoint is http://service.test/call (protocol=pvn)",
                                   "PVN: _info_: Use User Proxy Setting:",
                                   "PVN: _info_:      proxy server  : proxy.test",
                                   "PVN: _info_:      proxy port    : 3128"));
}

TEST_F(HttpSend, AHostOrAPortAloneIsNoProxy) {
    GetNetTwin().settings.proxy = u"system.test:8080";
    for (const auto& [host, port] : {std::pair{"", 3128}, {"proxy.test", 0}, {"", 0}}) {
        UseProxy(host, port);
        EXPECT_EQ(Send(), kStatusSuccess);
    }
    EXPECT_THAT(Calls("OpenSession"), ElementsAre("PVN_CLIENT -", "PVN_CLIENT -", "PVN_CLIENT -"));
    EXPECT_EQ(Log().back(), "PVN: _info_: Use User Proxy Setting:");
}

TEST_F(HttpSend, TheTimeOfALookUpIsPartOfTheLimit) {
    GetFrameTwin().tickCount = 1000;
    detail.timeoutSeconds = 10;
    detail.useOsProxy = 1;
    GetNetTwin().settings.detectsScript = true;
    GetNetTwin().whileAsked = [] { GetFrameTwin().tickCount = 4000; };
    EXPECT_EQ(Send(), kStatusSuccess);
    EXPECT_EQ(Calls("WaitForEither").back(), "7000");
}

TEST_F(HttpSend, ACancelInTheSecondLookUpEndsTheCall) {
    detail.useOsProxy = 1;
    GetNetTwin().settings.detectsScript = true;
    std::atomic<int> questions = 0;
    GetNetTwin().whileAsked = [&] {
        if (++questions < 2) return;
        CancelTransaction();
        door.Pass();
    };
    EXPECT_EQ(Send(), kStatusCallCanceled);
    EXPECT_EQ(questions, 2);
    EXPECT_THAT(Calls("OpenSession"), testing::IsEmpty());
    door.isOpen = true;
}

TEST_F(HttpSend, AStalledScriptDoesNotHoldUpACallThroughTheUsersProxy) {
    GetNetTwin().settings.detectsScript = true;
    GetNetTwin().whileAsked = [this] { door.Pass(); };
    UseProxy("proxy.test", 3128);
    EXPECT_EQ(Send(), kStatusSuccess);
    EXPECT_EQ(response, "answer");
    EXPECT_EQ(ProxyOfSession(), "proxy.test:3128");
    AwaitCalls("AskForProxy", 1); // the first look-up is made all the same
    EXPECT_EQ(Calls("WaitForEither").size(), 1u);
    door.isOpen = true;
}

TEST_F(HttpSend, TextsAreInTheCodePageOfTheProcessAndForALookUpInUtf8) {
    GetNetTwin().settings.detectsScript = true;
    UseProxy("pr\xF6xy.test", 3128);
    EXPECT_EQ(Send("http://service.test/caf\xC3\xA9"), kStatusSuccess);
    EXPECT_THAT(Calls("SplitUrl"), ElementsAre("http://service.test/caf\xC3\x83\xC2\xA9"));
    EXPECT_EQ(ProxyOfSession(), "pr\xC3\xB6xy.test:3128");
    AwaitCalls("AskForProxy", 1);
    EXPECT_THAT(Calls("AskForProxy"), ElementsAre("http://service.test/caf\xC3\xA9 -"));
    EXPECT_EQ(Send("http://service.test/caf\xE9"), kStatusSuccess);
    EXPECT_EQ(Calls("SplitUrl").back(), "http://service.test/caf\xC3\xA9");
    EXPECT_EQ(Calls("AskForProxy").size(), 1u) << "no UTF-8";
}

TEST_F(HttpSend, AProxyHostWithASignThatNoHostHasGetsNothing) {
    for (const char* const host : {"proxy test", " proxy.test", "user@proxy.test", "proxy.test/", "a;b.test",
                                   "http=proxy.test", "proxy\t.test", "proxy\x7F.test", "proxy\x1F.test"}) {
        UseProxy(host, 3128);
        EXPECT_EQ(Send(), 53426) << host;
        EXPECT_EQ(response, "") << host;
    }
    EXPECT_THAT(Calls("OpenSession"), testing::IsEmpty());
    for (const char* const host : {"[2001:db8::1]", "10.0.0.1", "PROXY-1.test", "~.test"}) {
        UseProxy(host, 3128);
        EXPECT_EQ(Send(), kStatusSuccess) << host;
    }
}

// --- This computer itself

struct PlainCall {
    const char16_t* host;
    const char16_t* proxy;
    bool isSent;
};

TEST_F(HttpSend, APlainCallToThisComputerGoesThroughNoProxyElsewhere) {
    constexpr PlainCall kCases[] = {
        {u"127.0.0.1", u"proxy.test:80", false},
        {u"localhost", u"proxy.test:80", false},
        {u"LOCALHOST", u"10.0.0.1:80", false},
        {u"[::1]", u"proxy.test:80", false},
        {u"::1", u"proxy.test:80", false},
        {u"127.0.0.1", u"localhost:80;proxy.test:80", false},
        {u"127.0.0.1", u"proxy.test:80;localhost:80", false},
        {u"127.0.0.1", u"localhost.test:80", false},
        {u"127.0.0.1", u"127.0.0.12:80", false},
        {u"127.0.0.1", u"localhost:80 proxy.test:80", false},
        {u"127.0.0.1", u"", true},
        {u"127.0.0.1", u"localhost:80", true},
        {u"127.0.0.1", u"127.0.0.1:8080", true},
        {u"127.0.0.1", u"[::1]:8080;LocalHost", true},
        {u"127.0.0.1", u"localhost:80;", true},
        {u"service.test", u"proxy.test:80", true},
        {u"127.0.0.12", u"proxy.test:80", true},
    };
    detail.useOsProxy = 1;
    for (const PlainCall& call : kCases) {
        GetNetTwin().urlParts = {call.host, u"/call", 80, false};
        GetNetTwin().settings.proxy = call.proxy;
        const std::size_t before = Calls("OpenSession").size();
        EXPECT_EQ(Send(), call.isSent ? kStatusSuccess : 53425) << std::filesystem::path(call.proxy);
        EXPECT_EQ(Calls("OpenSession").size() > before, call.isSent) << std::filesystem::path(call.proxy);
    }
}

TEST_F(HttpSend, ASecureCallToThisComputerGoesThroughAnyProxy) {
    GetNetTwin().urlParts = {u"localhost", u"/call", 443, true};
    UseProxy("proxy.test", 3128);
    EXPECT_EQ(Send(), kStatusSuccess);
    EXPECT_EQ(ProxyOfSession(), "proxy.test:3128");
}

TEST_F(HttpSend, TheLongestHostOfAProxyFits) {
    UseProxy(std::string(128, 'h').c_str(), 2147483647);
    EXPECT_EQ(Send(), kStatusSuccess);
    EXPECT_EQ(ProxyOfSession(), std::string(128, 'h') + ":2147483647");
}

TEST_F(HttpSend, NeverLogsThePasswordOfTheProxy) {
    UseProxy("proxy.test", 3128);
    std::snprintf(detail.proxyUserName, sizeof detail.proxyUserName, "someone");
    std::snprintf(detail.proxyPassword, sizeof detail.proxyPassword, "secret");
    GetNetTwin().script = {Notice(HttpNotice::kError, 12029)};
    EXPECT_EQ(Send(), kStatusHttpError);
    EXPECT_EQ(log.Text().find("secret"), std::string::npos);
    for (const std::string& call : NetTwinCalls()) {
        EXPECT_EQ(call.find("secret"), call.npos);
        EXPECT_EQ(call.find("someone"), call.npos);
    }
}

TEST_F(HttpSend, LogsItsDurationFromOneMillisecondUp) {
    GetFrameTwin().tickCount = 5000;
    GetNetTwin().onSend = [](std::string_view) { GetFrameTwin().tickCount = 5001; };
    EXPECT_EQ(Send(), kStatusSuccess);
    EXPECT_EQ(log.Bodies().back(), "PVN: _time_: (func: brixen::pvn::PVN_HTTPSend, duration: 0.001 sec)");
    GetNetTwin().onSend = {};
    EXPECT_EQ(Send(), kStatusSuccess);
    EXPECT_EQ(std::ranges::count_if(log.Bodies(), [](auto& line) { return line.starts_with("PVN: _time_"); }),
              1);
}

TEST_F(HttpSend, LogsTheDurationOfACallThatEndsEarlyToo) {
    const std::string line = "PVN: _time_: (func: brixen::pvn::PVN_HTTPSend, duration: 0.001 sec)";
    GetFrameTwin().tickCount = 5000;
    GetNetTwin().settings.detectsScript = true;
    detail.useOsProxy = 1;
    GetNetTwin().whileAsked = [this] {
        GetFrameTwin().tickCount = 5001;
        CancelTransaction();
        door.Pass();
    };
    EXPECT_EQ(Send(), kStatusCallCanceled);
    EXPECT_EQ(log.Bodies().back(), line);
    door.isOpen = true;
}

TEST_F(HttpSend, LogsTheDurationOfACallThatIsRefusedToo) {
    GetFrameTwin().tickCount = 5000;
    GetNetTwin().refusedCall = "OpenSession";
    GetNetTwin().settings.detectsScript = true;
    detail.useOsProxy = 1;
    GetNetTwin().whileAsked = [] { GetFrameTwin().tickCount = 5002; };
    EXPECT_EQ(Send(), kStatusSystemError);
    EXPECT_EQ(log.Bodies().back(), "PVN: _time_: (func: brixen::pvn::PVN_HTTPSend, duration: 0.002 sec)");
}

TEST_F(HttpSend, ReplacesTheEarlierAnswerAlsoAfterAFailure) {
    GetNetTwin().script = {Notice(HttpNotice::kError, 5)};
    EXPECT_EQ(Send(), kStatusSystemError);
    EXPECT_EQ(response, "");
}

TEST_F(HttpSend, TheCallAfterEachFaultWorks) {
    const struct {
        Script script;
        Status status;
    } kFaults[] = {
        {{Notice(HttpNotice::kSecureFailure, 0x1A), Notice(HttpNotice::kError, 12175)}, kStatusSecureFailure},
        {{Notice(HttpNotice::kError, 12007)}, kStatusNameNotResolved},
        {{Notice(HttpNotice::kError, 12029)}, kStatusHttpError},
        {{Notice(HttpNotice::kSent), Notice(HttpNotice::kError, 10054)}, kStatusSystemError},
        {{Notice(HttpNotice::kSent), Cancel()}, kStatusCallCanceled},
    };
    for (const auto& fault : kFaults) {
        GetNetTwin().script = fault.script;
        EXPECT_EQ(Send(), fault.status);
        EXPECT_EQ(response, "");
        GetNetTwin().script = Answer({"the next answer"});
        EXPECT_EQ(Send(), kStatusSuccess) << "after " << fault.status;
        EXPECT_EQ(response, "the next answer");
    }
}

TEST_F(HttpSend, LeavesNothingOpenAfterTwoHundredCalls) {
    for (int i = 0; i < 200; ++i) {
        GetNetTwin().script = i % 2 == 0 ? Answer({"answer"}) : Script{Cancel()};
        EXPECT_EQ(Send(), i % 2 == 0 ? kStatusSuccess : kStatusCallCanceled);
    }
    AwaitClosedRequests();
    EXPECT_EQ(OpenNetHandles(), 0);
}

} // namespace
} // namespace brixen::pvn
