// Whole calls over the system's own HTTP to real servers, which the script `run` of this folder starts: the
// example service in each of its faults, HTTPS with good and bad certificates, and real forward proxies.
#include "root_certificate.h"

#include "windows/transport/connection_settings.h"
#include "windows/transport/loopback_server.h"

#include "net/envelope/method_call.h"
#include "net/envelope/method_response.h"
#include "net/transport/http_send.h"
#include "values/storage.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/progress.h"
#include "workflow/service/service_call.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace brixen::pvn {
namespace {

using pavane_test::ConnectionSettings;
using pavane_test::Conversation;
using pavane_test::LoopbackServer;
using pavane_test::RootCertificate;
using testing::AnyOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr char kConnectionTest[] = "<connectionTest><locale>en_US</locale></connectionTest>";

// Empty, and a failure, without the script.
std::string Around(const char* name) {
    const char* const text = std::getenv((std::string("PAVANE_TEST_") + name).c_str());
    EXPECT_NE(text, nullptr) << name << " is missing: start this program by the script 'run' of its folder";
    return text ? text : "";
}

// The root of the certificates is trusted as long as the program runs: Wine reads the roots once in a
// process.
class TrustedRoot : public testing::Environment {
public:
    void SetUp() override {
        root = std::make_unique<RootCertificate>(Around("ROOT"));
        EXPECT_TRUE(root->IsTrusted());
    }
    void TearDown() override { root.reset(); }

private:
    std::unique_ptr<RootCertificate> root;
};
const testing::Environment* const gTrustedRoot = testing::AddGlobalTestEnvironment(new TrustedRoot);

class Network : public testing::Test {
protected:
    Network() {
        detail.timeoutSeconds = 20;
        detail.useOsProxy = 1;
    }
    // The call after each fault works.
    void TearDown() override {
        UseNoProxy();
        detail.timeoutSeconds = 20;
        EXPECT_EQ(Call(service), kStatusSuccess) << "the call after the fault";
        EXPECT_EQ(payload, "<reached/>");
    }

    void UseProxy(int port) {
        detail.useOsProxy = 0;
        std::snprintf(detail.proxyHost, sizeof detail.proxyHost, "127.0.0.1");
        detail.proxyPort = port;
    }
    void UseNoProxy() {
        detail.useOsProxy = 1;
        settings.Write("", "");
    }

    // A whole call; `payload` is what the service answered.
    Status Call(const std::string& url) {
        std::string call;
        if (const Status status = BuildPayloadCall(kConnectionTest, "testConnection", "request", call))
            return status;
        payload.clear();
        if (const Status status = PVN_HTTPSend(url.c_str(), detail, call.c_str(), answer)) return status;
        return ReadPayloadResponse(answer.c_str(), "response", payload);
    }

    ConnectionSettings settings; // direct
    CommunicationDetail detail;
    std::string answer;
    std::string payload;
    std::string service = Around("SERVICE");
    // Wine takes a proxy of the same spelling as the server for no proxy.
    std::string serviceByName = "http://localhost" + service.substr(service.rfind(':'));
    int proxy = std::atoi(Around("PROXY").c_str());
    int logInProxy = std::atoi(Around("LOG_IN_PROXY").c_str());
};

TEST_F(Network, TheServiceAnswersWithItsPayload) {
    EXPECT_EQ(Call(service), kStatusSuccess);
    EXPECT_EQ(payload, "<reached/>");
}

// --- The faults of the service

struct Fault {
    const char* name;
    Status status;
    const char* payload = "";
};

class FaultOfTheService : public Network, public testing::WithParamInterface<Fault> {};

// Windows may report an error for the cut body, and follows the redirect 302 without the body.
constexpr Fault kFaults[] = {
    {"no_http", kStatusHttpError},
    {"cut_in_head", kStatusHttpError},
    {"cut_in_body", kStatusUnexpectedContent},
    {"reset_in_body", kStatusSystemError},
    {"drip", kStatusSuccess, "<reached/>"},
    {"chunked", kStatusSuccess, "<reached/>"},
    {"empty", kStatusUnexpectedContent},
    {"huge", kStatusUnexpectedContent},
    {"not_found", kStatusUnexpectedContent},
    {"server_error", kStatusUnexpectedContent},
    {"proxy_log_in", kStatusUnexpectedContent},
    {"sign_in", kStatusUnexpectedContent},
    {"malformed", kStatusUnexpectedContent},
    {"wrong_root", kStatusUnexpectedContent},
    {"deep", kStatusUnexpectedContent},
    {"odd_digits", kStatusSuccess, ""},
    {"wrong_payload", kStatusSuccess, "<surprise><number>1</number></surprise>"},
    {"denied", kStatusUnexpectedContent},
    {"redirect_302", kStatusHttpError},
    {"redirect_307", kStatusSuccess, "<reached/>"},
};

TEST_P(FaultOfTheService, HasItsStatus) {
    EXPECT_EQ(Call(service + "fail/" + GetParam().name), GetParam().status);
    EXPECT_EQ(payload, GetParam().payload);
    const bool isWhole = GetParam().status == kStatusSuccess || GetParam().status == kStatusUnexpectedContent;
    EXPECT_TRUE(isWhole || answer.empty());
}

INSTANTIATE_TEST_SUITE_P(Each, FaultOfTheService, testing::ValuesIn(kFaults),
                         [](const auto& fault) { return std::string(fault.param.name); });

TEST_F(Network, AnAnswerThatNeverEndsIsEndedByTheLimit) {
    detail.timeoutSeconds = 1;
    for (const char* const fault : {"silent", "stalls_in_body"}) {
        EXPECT_EQ(Call(service + "fail/" + fault), kStatusCallTimedOut) << fault;
        EXPECT_EQ(answer, "");
    }
}

// --- The faults, as a worker sees them

struct Reply {
    const char* path;
    Status status;
    const char* payload = "";
};

TEST_F(Network, TheCallOfAWorkerHasTheStatusOfTheService) {
    constexpr Reply kReplies[] = {
        {"", kStatusSuccess, "<reached/>"},
        {"fail/chunked", kStatusSuccess, "<reached/>"},
        {"fail/odd_digits", kStatusSuccess, ""},
        {"fail/denied", 0x8501},
        {"fail/unavailable", 0x8502},
        {"fail/unknown_status", kStatusUnexpectedContent},
        {"fail/empty", kStatusUnexpectedContent},
        {"fail/sign_in", kStatusUnexpectedContent},
        {"fail/malformed", kStatusUnexpectedContent},
        {"fail/deep", kStatusUnexpectedContent},
        {"fail/cut_in_body", kStatusUnexpectedContent},
        {"fail/cut_in_head", kStatusHttpError},
        {"fail/reset_in_body", kStatusSystemError},
        {"", kStatusSuccess, "<reached/>"},
    };
    for (const Reply& reply : kReplies) {
        T_Storage bag;
        SetString(bag, pvn_workflow::PvnWFKey_ServiceUrl, service + reply.path);
        const pvn_workflow::WorkerNotifier notifier(pvn_workflow::BeginWorkerRun(),
                                                    [](std::uint16_t, Status) { return true; });
        payload = "an earlier payload";
        EXPECT_EQ(pvn_workflow::CallService(bag, "testConnection", kConnectionTest, payload, notifier),
                  reply.status)
            << reply.path;
        EXPECT_EQ(payload, reply.payload) << reply.path;
        pvn_workflow::EndWorkerRun();
    }
}

// --- HTTPS

TEST_F(Network, ATrustedCertificateIsTaken) {
    EXPECT_EQ(Call(Around("HTTPS_TRUSTED")), kStatusSuccess);
    EXPECT_EQ(payload, "<reached/>");
}

// Wine reports error 12157 without the notification of a secure failure; Windows reports both, and the status
// is 0xD0B3 there.
TEST_F(Network, AnyOtherCertificateIsRefused) {
    for (const char* const name : {"HTTPS_SELF_SIGNED", "HTTPS_EXPIRED", "HTTPS_OTHER_NAME"}) {
        EXPECT_EQ(Call(Around(name)), kStatusHttpError) << name;
        EXPECT_EQ(answer, "") << name;
        EXPECT_EQ(Call(Around("HTTPS_TRUSTED")), kStatusSuccess) << "after " << name;
    }
}

TEST_F(Network, AServerWithoutHttpsEndsASecureCall) {
    detail.timeoutSeconds = 1;
    EXPECT_EQ(Call("https" + serviceByName.substr(4)), kStatusHttpError);
}

// --- Proxies

TEST_F(Network, GoesThroughARealProxyOfTheUser) {
    UseProxy(proxy);
    LoopbackServer server([](const Conversation& client) { client.SendAnswer("no answer"); });
    EXPECT_EQ(Call("http://localhost:" + std::to_string(server.Port()) + "/call"), kStatusUnexpectedContent);
    ASSERT_EQ(server.Requests().size(), 1U);
    EXPECT_THAT(server.Requests()[0], StartsWith("POST /call "));
    EXPECT_THAT(server.Requests()[0], HasSubstr("\r\nVia: 1.1 tinyproxy")) << "the proxy adds this line";
    EXPECT_THAT(server.Requests()[0], testing::EndsWith("</methodCall>\n"));
    EXPECT_EQ(Call(serviceByName), kStatusSuccess);
    EXPECT_EQ(payload, "<reached/>");
}

TEST_F(Network, GoesThroughARealProxyOfTheSystem) {
    settings.Write("127.0.0.1:" + std::to_string(proxy), "");
    LoopbackServer server([](const Conversation& client) { client.SendAnswer("no answer"); });
    EXPECT_EQ(Call("http://localhost:" + std::to_string(server.Port()) + "/call"), kStatusUnexpectedContent);
    ASSERT_EQ(server.Requests().size(), 1U);
    EXPECT_THAT(server.Requests()[0], HasSubstr("\r\nVia: 1.1 tinyproxy"));
    EXPECT_EQ(Call(serviceByName), kStatusSuccess);
}

TEST_F(Network, GoesThroughARealProxyOfAScript) {
    const std::string script =
        "function FindProxyForURL(url, host) { return 'PROXY 127.0.0.1:" + std::to_string(proxy) + "'; }";
    LoopbackServer scripts([&script](const Conversation& client) { client.SendAnswer(script); });
    settings.Write("", scripts.Url("/proxy.pac"));
    LoopbackServer server([](const Conversation& client) { client.SendAnswer("no answer"); });
    EXPECT_EQ(Call("http://localhost:" + std::to_string(server.Port()) + "/call"), kStatusUnexpectedContent);
    ASSERT_EQ(server.Requests().size(), 1U);
    EXPECT_THAT(server.Requests()[0], HasSubstr("\r\nVia: 1.1 tinyproxy"));
}

TEST_F(Network, ASecureCallGoesThroughAProxy) {
    UseProxy(proxy);
    EXPECT_EQ(Call(Around("HTTPS_TRUSTED")), kStatusSuccess);
    EXPECT_EQ(payload, "<reached/>");
    EXPECT_EQ(Call(Around("HTTPS_EXPIRED")), kStatusHttpError);
}

TEST_F(Network, AProxyThatIsDownEndsTheCall) {
    UseProxy(1);
    EXPECT_EQ(Call(serviceByName), kStatusHttpError);
    UseNoProxy();
    EXPECT_EQ(Call(serviceByName), kStatusSuccess);
    settings.Write("127.0.0.1:1", "");
    EXPECT_EQ(Call(serviceByName), kStatusHttpError);
}

TEST_F(Network, AProxyWhoseNameIsUnknownEndsTheCall) {
    UseProxy(proxy);
    std::snprintf(detail.proxyHost, sizeof detail.proxyHost, "proxy.invalid");
    EXPECT_EQ(Call(Around("HTTPS_TRUSTED")), kStatusNameNotResolved);
}

TEST_F(Network, APlainCallToThisComputerGoesThroughNoProxyElsewhere) {
    UseProxy(proxy);
    std::snprintf(detail.proxyHost, sizeof detail.proxyHost, "proxy.invalid");
    for (const std::string& url : {service, serviceByName}) {
        EXPECT_EQ(Call(url), kStatusInvalidUrl) << url;
        EXPECT_EQ(answer, "") << url;
    }
}

TEST_F(Network, AProxyThatWantsALogInAnswersTheCallItself) {
    UseProxy(logInProxy);
    std::snprintf(detail.proxyUserName, sizeof detail.proxyUserName, "user");
    std::snprintf(detail.proxyPassword, sizeof detail.proxyPassword, "secret"); // right, and not sent
    // This proxy answers before it has read the call, and closes: now and then the end overtakes the answer.
    const Status status = Call(serviceByName);
    EXPECT_THAT(status, AnyOf(kStatusUnexpectedContent, kStatusSystemError));
    EXPECT_THAT(answer, AnyOf(HasSubstr("407"), ""));
}

// Windows may return the page of the proxy; Wine reports an error.
TEST_F(Network, AProxyThatWantsALogInEndsASecureCall) {
    UseProxy(logInProxy);
    EXPECT_EQ(Call(Around("HTTPS_TRUSTED")), kStatusHttpError);
    EXPECT_EQ(answer, "");
}

TEST_F(Network, AScriptWhoseServerStallsIsEndedByTheLimit) {
    LoopbackServer scripts([](const Conversation& client) { client.AwaitClose(); });
    settings.Write("", scripts.Url("/proxy.pac"));
    detail.timeoutSeconds = 1;
    EXPECT_EQ(Call(service), kStatusCallTimedOut);
    detail.timeoutSeconds = 20;
}

TEST_F(Network, AScriptThatIsMissingMeansNoProxy) {
    settings.Write("", "http://127.0.0.1:1/proxy.pac");
    EXPECT_EQ(Call(service), kStatusSuccess);
}

} // namespace
} // namespace brixen::pvn
