#include "net/transport/proxy_lookup.h"

#include "support/failing_allocator.h"
#include "unit/net/transport/transport_fixture.h"

#include <new>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ProxyInSettings, IsTheEntryForHttpsOrTheOneForEverything) {
    const struct {
        const char16_t* text;
        const char16_t* proxy;
    } kCases[] = {
        {u"p:80", u"p:80"},
        {u"http=p:80;https=q:81;ftp=r:21", u"q:81;ftp=r:21"},
        {u"https=q:81", u"q:81"},
        {u"ftp=p:21", u""},
        {u"http=p:80;ftp=r:21", u""},
        {u"HTTPS=q:81", u""},
        {u"http://p:80", u"p:80"},
        {u"https=http://q:81", u"q:81"},
        {u"https=q:81;ftp=http://r:21", u"r:21"},
        {u"  p:80", u"p:80"},
        {u"https=  q:81", u"q:81"},
        {u"http://  p:80", u"p:80"},
        {u"p:80 ", u"p:80 "},
        {u"p:80;q:81", u"p:80;q:81"},
        {u"", u""},
        {u"   ", u""},
        {u":80", u""},
        {u"  :80", u""},
        {u"https=", u""},
        {u"https=:81", u""},
        {u"http://", u""},
    };
    for (const auto& each : kCases)
        EXPECT_EQ(ProxyInSettings(each.text), each.proxy) << std::filesystem::path(each.text);
}

class SystemProxy : public TransportTest {
protected:
    Status LookUp(const char* url = "https://service.test/") {
        proxy = u"an earlier proxy";
        const CallLimit limit(detail.timeoutSeconds);
        return ProxyLookUp(url).Await(limit, proxy);
    }

    std::u16string proxy;
};

TEST_F(SystemProxy, AFixedProxyNeedsNoQuestion) {
    GetNetTwin().settings = {u"http=p:80;https=q:81", u"http://script.test/", true};
    EXPECT_EQ(LookUp(), kStatusSuccess);
    EXPECT_EQ(proxy, u"q:81");
    EXPECT_THAT(NetTwinCalls(), ElementsAre("MakeNamedEvent CancelTransactionEvent", "ReadProxySettings"));
}

TEST_F(SystemProxy, AnEmptyFixedProxyIsNoneAndAsksNoScript) {
    GetNetTwin().settings = {u"", u"http://script.test/", true};
    EXPECT_EQ(LookUp(), kStatusSuccess);
    EXPECT_EQ(proxy, u"");
    EXPECT_THAT(Calls("AskForProxy"), IsEmpty());
}

TEST_F(SystemProxy, AsksTheConfigurationScriptFirst) {
    GetNetTwin().settings = {std::nullopt, u"http://script.test/", true};
    GetNetTwin().proxyForUrl = u"p:80;q:81";
    EXPECT_EQ(LookUp("https://service.test/caf\xC3\xA9"), kStatusSuccess);
    EXPECT_EQ(proxy, u"p:80;q:81");
    EXPECT_THAT(Calls("OpenLookUpSession"), ElementsAre("WinHTTP AutoProxy"));
    EXPECT_THAT(Calls("AskForProxy"), ElementsAre("https://service.test/caf\xC3\xA9 http://script.test/"));
}

TEST_F(SystemProxy, OtherwiseDetectsAScript) {
    GetNetTwin().settings.detectsScript = true;
    GetNetTwin().proxyForUrl = u"p:80";
    EXPECT_EQ(LookUp(), kStatusSuccess);
    EXPECT_EQ(proxy, u"p:80");
    EXPECT_THAT(Calls("AskForProxy"), ElementsAre("https://service.test/ -"));
}

TEST_F(SystemProxy, WithoutASettingNothingIsAsked) {
    GetNetTwin().proxyForUrl = u"p:80";
    EXPECT_EQ(LookUp(), kStatusSuccess);
    EXPECT_EQ(proxy, u"");
    EXPECT_THAT(NetTwinCalls(), ElementsAre("MakeNamedEvent CancelTransactionEvent", "ReadProxySettings",
                                            "OpenLookUpSession WinHTTP AutoProxy", "CloseHttp"));
}

TEST_F(SystemProxy, EveryFailureIsNoProxy) {
    GetNetTwin().proxyForUrl = u"p:80";
    for (const char* const call : {"ReadProxySettings", "OpenLookUpSession", "MakeEvent", "AskForProxy"}) {
        GetNetTwin().settings = {std::nullopt, u"http://script.test/", false};
        GetNetTwin().refusedCall = call;
        EXPECT_EQ(LookUp(), kStatusSuccess) << call;
        EXPECT_EQ(proxy, u"") << call;
    }
    GetNetTwin().refusedCall.clear();
    GetFrameTwin().startsUntilRefusal = 1;
    EXPECT_EQ(LookUp(), kStatusSuccess);
    EXPECT_EQ(proxy, u"");
    EXPECT_EQ(LookUp(), kStatusSuccess);
    EXPECT_EQ(proxy, u"p:80") << "with a thread";
}

TEST_F(SystemProxy, AUrlThatIsNoUtf8HasNoProxy) {
    GetNetTwin().settings.detectsScript = true;
    GetNetTwin().proxyForUrl = u"p:80";
    EXPECT_EQ(LookUp("https://service.test/\xE9"), kStatusSuccess);
    EXPECT_EQ(proxy, u"");
    EXPECT_THAT(NetTwinCalls(), ElementsAre("MakeNamedEvent CancelTransactionEvent", "ReadProxySettings"));
}

TEST_F(SystemProxy, AProxyThatDoesNotFitIsNone) {
    for (const std::size_t length : {255u, 256u}) {
        const std::u16string text(length, u'p');
        const std::u16string expected = length == 255 ? text : std::u16string();
        GetNetTwin().settings = {text, std::nullopt, false};
        EXPECT_EQ(LookUp(), kStatusSuccess);
        EXPECT_EQ(proxy, expected);
        GetNetTwin().settings = {std::nullopt, std::nullopt, true};
        GetNetTwin().proxyForUrl = text;
        EXPECT_EQ(LookUp(), kStatusSuccess);
        EXPECT_EQ(proxy, expected);
    }
}

TEST_F(SystemProxy, AStalledScriptEndsByTheLimitAndIsLeftBehind) {
    GetNetTwin().settings.detectsScript = true;
    GetNetTwin().proxyForUrl = u"p:80";
    GetNetTwin().whileAsked = [this] { door.Pass(); };
    detail.timeoutSeconds = 0;
    EXPECT_EQ(LookUp(), kStatusCallTimedOut);
    EXPECT_EQ(proxy, u"");
    door.isOpen = true;
}

TEST_F(SystemProxy, CancelEndsAStalledScript) {
    detail.useOsProxy = 1;
    GetNetTwin().settings.detectsScript = true;
    GetNetTwin().whileAsked = [&] {
        CancelTransaction();
        door.Pass();
    };
    EXPECT_EQ(Send(), kStatusCallCanceled);
    EXPECT_THAT(Calls("OpenSession"), IsEmpty()) << "nothing is sent";
    door.isOpen = true;
}

TEST_F(SystemProxy, ALookUpThatNobodyWaitsForEndsByItself) {
    GetNetTwin().settings.detectsScript = true;
    GetNetTwin().whileAsked = [this] { door.Pass(); };
    { const ProxyLookUp unneeded("https://service.test/"); }
    AwaitCalls("AskForProxy", 1);
    EXPECT_THAT(Calls("WaitForEither"), IsEmpty());
    door.isOpen = true;
}

TEST_F(SystemProxy, MissingMemoryIsNoProxy) {
    GetNetTwin().proxyForUrl = u"p:80";
    GetNetTwin().settings.detectsScript = true;
    GetNetTwin().whileAsked = [] { throw std::bad_alloc(); };
    EXPECT_EQ(LookUp(), kStatusSuccess);
    EXPECT_EQ(proxy, u"");
    GetNetTwin().whileAsked = {};
    GetNetTwin().settings = {std::u16string(200, u'p'), std::nullopt, false};
    const CallLimit limit(60);
    for (std::size_t n = 1;; ++n) {
        proxy = u"an earlier proxy";
        bool hasFailed = false;
        {
            const pavane_test::FailNthAllocation failure(n);
            EXPECT_EQ(ProxyLookUp("https://service.test/").Await(limit, proxy), kStatusSuccess);
            hasFailed = failure.HasFailed();
        }
        EXPECT_EQ(proxy, hasFailed ? u"" : std::u16string(200, u'p')) << n;
        if (!hasFailed) break;
    }
}

TEST_F(SystemProxy, AFailedWaitIsNoProxy) {
    GetNetTwin().settings.detectsScript = true;
    GetNetTwin().proxyForUrl = u"p:80";
    GetNetTwin().whileAsked = [this] { door.Pass(); };
    GetNetTwin().refusedCall = "WaitForEither";
    EXPECT_EQ(LookUp(), kStatusSuccess);
    EXPECT_EQ(proxy, u"");
    door.isOpen = true;
}

} // namespace
} // namespace brixen::pvn
