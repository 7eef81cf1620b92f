#include "workflow/service/service_call.h"

#include "net/envelope/method_call.h"
#include "unit/net/transport/transport_fixture.h"
#include "workflow/context/context_keys.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr char kPayload[] = "<connectionTest><locale>de_DE</locale></connectionTest>";
// The hexadecimal text of "<reached/>".
constexpr char kReached[] = "<utf8_string>3C726561636865642F3E</utf8_string>";

std::string Param(const std::string& name, const std::string& value) {
    return "<param><name>" + name + "</name><value>" + value + "</value></param>";
}
std::string StatusParam(const std::string& text) {
    return Param("status", "<integer>" + text + "</integer>");
}
std::string AnswerWith(const std::string& params) {
    return "<methodResponse><params>" + params + "</params></methodResponse>";
}

TEST(ServiceStatus, AbsentOrZeroIsASuccess) {
    EXPECT_EQ(ReadServiceStatus(AnswerWith("")), 0);
    EXPECT_EQ(ReadServiceStatus("<methodResponse/>"), 0);
    EXPECT_EQ(ReadServiceStatus(AnswerWith(Param("response", kReached))), 0);
    EXPECT_EQ(ReadServiceStatus(AnswerWith(StatusParam("0"))), 0);
}

TEST(ServiceStatus, TheFamilyIsTheServicesOwn) {
    for (int status = 34049; status <= 34303; ++status) {
        EXPECT_EQ(ReadServiceStatus(AnswerWith(StatusParam(std::to_string(status)))), status);
    }
}

TEST(ServiceStatus, AnyOtherTextIsUnexpected) {
    for (const char* const text : {"1",
                                   "34048",
                                   "34304",
                                   "99585",
                                   "-34049",
                                   "+34049",
                                   "034049",
                                   "00",
                                   "000000000000",
                                   "0x8501",
                                   "34049 ",
                                   " 34049",
                                   "34049.0",
                                   "3404",
                                   "340499",
                                   "3404a",
                                   "OK",
                                   "65536",
                                   "34049340493404934049",
                                   "-0",
                                   " ",
                                   "0 ",
                                   "100000000000034049"}) {
        EXPECT_EQ(ReadServiceStatus(AnswerWith(StatusParam(text))), kStatusUnexpectedContent) << text;
    }
    EXPECT_EQ(ReadServiceStatus(AnswerWith(StatusParam(""))), kStatusUnexpectedContent);
    EXPECT_EQ(ReadServiceStatus(AnswerWith(Param("response", kReached) + StatusParam(""))),
              kStatusUnexpectedContent);
}

TEST(ServiceStatus, OnlyAnIntegerWithExactlyThatNameCounts) {
    for (const char* const name : {"Status", "statu", "status2", " status", ""}) {
        EXPECT_EQ(ReadServiceStatus(AnswerWith(Param(name, "<integer>34049</integer>"))), 0) << name;
    }
    EXPECT_EQ(ReadServiceStatus(AnswerWith(Param("status", "<utf8_string>34049</utf8_string>"))), 0);
    EXPECT_EQ(ReadServiceStatus(
                  AnswerWith(Param("status", "<utf8_string>34049</utf8_string>") + StatusParam("34050"))),
              34050);
}

TEST(ServiceStatus, TheFirstOneCounts) {
    EXPECT_EQ(ReadServiceStatus(AnswerWith(StatusParam("34050") + StatusParam("0"))), 34050);
    EXPECT_EQ(ReadServiceStatus(AnswerWith(StatusParam("0") + StatusParam("34050"))), 0);
}

TEST(ServiceStatus, AnAnswerThatCannotBeReadIsUnexpected) {
    for (const char* const text :
         {"", "no markup", "<html><body>Sign in</body></html>", "<methodResponse>"}) {
        EXPECT_EQ(ReadServiceStatus(text), kStatusUnexpectedContent) << text;
    }
}

TEST(AllowedAddress, SecureAddressesAre) {
    for (const char* const url :
         {"https://service.invalid/", "HTTPS://service.test", "https://service.test:8443/a?b#c",
          "https://10.0.0.1", "https://[2001:db8::1]/"}) {
        EXPECT_TRUE(IsAllowedAddress(url)) << url;
    }
}

TEST(AllowedAddress, PlainAddressesAreOnThisComputerAlone) {
    for (const char* const url : {"http://127.0.0.1", "http://127.0.0.1/", "http://127.0.0.1:80/a",
                                  "http://localhost", "http://LocalHost:8080/", "http://[::1]/",
                                  "HTTP://[::1]:1?a", "http://localhost#a", "http://127.0.0.1:"}) {
        EXPECT_TRUE(IsAllowedAddress(url)) << url;
    }
    for (const char* const url :
         {"http://service.test/", "http://127.0.0.1.test/", "http://127.0.0.12/", "http://localhost.test/",
          "http://localhosts", "http://127.0.0.1@service.test/", "http://localhost:80@service.test/",
          "http://localhost\\@service.test/", "http://service.test/localhost", "http://[::1]x/",
          "http://[::11]/", "http://localhost:8a/", "http://127.0.0.1:80:80/", "http://0.0.0.0/",
          "http://[::1/", "http://127.1/", "http://"}) {
        EXPECT_FALSE(IsAllowedAddress(url)) << url;
    }
}

TEST(AllowedAddress, NothingElseIs) {
    for (const char* const url :
         {"", "https://", "https:///path", "https:service.test", "https:/service.test",
          " https://service.test/", "ftp://service.test/", "file:///c:/", "service.test",
          "javascript:alert(1)", "https://user@service.test/", "https://a b/", "https://a\tb/",
          "https://a\\b/", "https://service.test\n/", "https://\xC3\xA4.test/", "https://a\x7F/",
          "httpss://service.test/", "http//localhost"}) {
        EXPECT_FALSE(IsAllowedAddress(url)) << url;
    }
}

class ServiceCall : public TransportTest {
protected:
    ServiceCall() {
        EndWorkerRun();
        SetString(bag, PvnWFKey_ServiceUrl, "https://service.test/call");
        AnswerIs(AnswerWith(Param("response", kReached)));
    }
    ~ServiceCall() override { EndWorkerRun(); }

    void AnswerIs(const std::string& text) { GetNetTwin().script = Answer({text}); }
    Status Call() {
        return CallService(bag, "testConnection", kPayload, answer,
                           WorkerNotifier(BeginWorkerRun(), notifier));
    }

    T_Storage bag;
    WorkerCallback notifier = ProgressNotifier;
    std::string answer = "an earlier answer";
};

TEST_F(ServiceCall, PostsThePayloadAndReadsTheAnswer) {
    EXPECT_EQ(Call(), kStatusSuccess);
    EXPECT_EQ(answer, "<reached/>");
    std::string call;
    ASSERT_EQ(BuildPayloadCall(kPayload, "testConnection", "request", call), kStatusSuccess);
    EXPECT_THAT(Calls("SendRequest"), ElementsAre(call));
    EXPECT_THAT(Calls("SplitUrl"), ElementsAre("https://service.test/call"));
}

TEST_F(ServiceCall, AStatusOfTheServiceHasNoPayload) {
    AnswerIs(AnswerWith(StatusParam("34049") + Param("response", kReached)));
    EXPECT_EQ(Call(), 34049);
    EXPECT_EQ(answer, "");
    AnswerIs(AnswerWith(Param("response", kReached) + StatusParam("34050")));
    EXPECT_EQ(Call(), 34050);
    EXPECT_EQ(answer, "");
    AnswerIs(AnswerWith(StatusParam("34051")));
    EXPECT_EQ(Call(), 34051);
}

TEST_F(ServiceCall, AStatusOfZeroIsASuccess) {
    AnswerIs(AnswerWith(StatusParam("0") + Param("response", kReached)));
    EXPECT_EQ(Call(), kStatusSuccess);
    EXPECT_EQ(answer, "<reached/>");
}

TEST_F(ServiceCall, AnythingElseIsUnexpectedAndLogged) {
    for (const std::string& text :
         {std::string("<html>Sign in</html>"), AnswerWith(""), AnswerWith(StatusParam("0")),
          AnswerWith(StatusParam("34048") + Param("response", kReached)), std::string()}) {
        AnswerIs(text);
        EXPECT_EQ(Call(), kStatusUnexpectedContent) << text;
        EXPECT_EQ(answer, "") << text;
    }
    // The lines end as those of the system's text files.
    EXPECT_THAT(log.Text(), HasSubstr("----- unknown rpc response -----"));
    EXPECT_THAT(log.Text(), HasSubstr("\n<html>Sign in</html>"));
}

TEST_F(ServiceCall, AStatusOfTheServiceIsNotLogged) {
    AnswerIs(AnswerWith(StatusParam("34049")));
    Call();
    EXPECT_THAT(log.Text(), testing::Not(HasSubstr("unknown rpc response")));
}

TEST_F(ServiceCall, AFailureOfTheTransportIsTheStatus) {
    GetNetTwin().script = {Notice(HttpNotice::kError, 12007)};
    EXPECT_EQ(Call(), kStatusNameNotResolved);
    EXPECT_EQ(answer, "");
}

TEST_F(ServiceCall, AnAddressThatIsNotAllowedGetsNothing) {
    for (const char* const url : {"http://service.test/", "", "ftp://service.test"}) {
        SetString(bag, PvnWFKey_ServiceUrl, url);
        EXPECT_EQ(Call(), kStatusInvalidUrl) << url;
    }
    bag.Remove(PvnWFKey_ServiceUrl, kValueTypeString);
    EXPECT_EQ(Call(), 53425);
    EXPECT_EQ(answer, "");
    EXPECT_THAT(NetTwinCalls(), IsEmpty());
}

TEST_F(ServiceCall, ACanceledWorkerSendsNothing) {
    notifier = [](std::uint16_t, Status) { return false; };
    EXPECT_EQ(Call(), kStatusCallCanceled);
    EXPECT_EQ(answer, "");
    EXPECT_THAT(Calls("SendRequest"), IsEmpty());
}

TEST_F(ServiceCall, ACancelEndsTheWait) {
    GetNetTwin().script = {Cancel()};
    const EventHandle event = MakeClearCancelEvent();
    EXPECT_EQ(Call(), kStatusCallCanceled);
}

TEST_F(ServiceCall, AProxyHostThatIsTooLongGetsNothing) {
    SetString(bag, PvnWFKey_ProxyHost, std::string(129, 'h'));
    SetLong(bag, PvnWFKey_ProxyPort, 3128);
    EXPECT_EQ(Call(), kStatusNameNotResolved);
    EXPECT_EQ(answer, "");
    EXPECT_THAT(NetTwinCalls(), IsEmpty());
}

TEST_F(ServiceCall, APlainCallToThisComputerGetsNoProxyElsewhere) {
    GetNetTwin().urlParts = {u"127.0.0.1", u"/call", 80, false};
    SetString(bag, PvnWFKey_ServiceUrl, "http://127.0.0.1/call");
    SetString(bag, PvnWFKey_ProxyHost, "proxy.test");
    SetLong(bag, PvnWFKey_ProxyPort, 3128);
    EXPECT_EQ(Call(), 53425);
    EXPECT_THAT(Calls("OpenSession"), IsEmpty());
}

TEST_F(ServiceCall, GoesOutByTheProxyOfTheBag) {
    SetString(bag, PvnWFKey_ProxyHost, "proxy.test");
    SetLong(bag, PvnWFKey_ProxyPort, 3128);
    SetString(bag, PvnWFKey_ProxyPassword, "secret-word");
    EXPECT_EQ(Call(), kStatusSuccess);
    EXPECT_THAT(Calls("OpenSession"), ElementsAre("PVN_CLIENT proxy.test:3128"));
    EXPECT_THAT(log.Text(), testing::Not(HasSubstr("secret-word")));
    for (const std::string& call : NetTwinCalls()) EXPECT_THAT(call, testing::Not(HasSubstr("secret-word")));
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
