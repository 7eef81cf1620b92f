// The worker entries of Registration and Connection over a scripted transport.
#include "net/envelope/hexadecimal.h"
#include "unit/net/transport/transport_fixture.h"
#include "workflow/catalogue/connection_data.h"
#include "workflow/catalogue/registration_data.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/progress.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::HasSubstr;

class ServiceEntries : public TransportTest {
protected:
    ServiceEntries() {
        EndWorkerRun();
        SetString(bag, PvnWFKey_ServiceUrl, "https://service.test/call");
        SetString(bag, PvnWFKey_Language, "de_DE");
    }
    ~ServiceEntries() override { EndWorkerRun(); }

    // The service answers with that payload.
    static void AnswerIs(const std::string& payload) {
        std::string digits(payload.size() * 2, '\0');
        EncodeHexadecimal(payload.data(), payload.size(), digits.data());
        GetNetTwin().script =
            Answer({"<methodResponse><params><param><name>response</name><value><utf8_string>" + digits +
                    "</utf8_string></value></param></params></methodResponse>"});
    }
    static void AnswerIsStatus(const std::string& text) {
        GetNetTwin().script = Answer({"<methodResponse><params><param><name>status</name><value><integer>" +
                                      text + "</integer></value></param></params></methodResponse>"});
    }
    Status Run(WorkerEntryOfBag entry) {
        return entry(bag, WorkerNotifier(BeginWorkerRun(), ProgressNotifier));
    }
    static std::string PayloadOf(const std::string& call) {
        const std::string open = "<utf8_string>";
        const std::size_t begin = call.find(open) + open.size();
        const std::size_t count = (call.find("</utf8_string>") - begin) / 2;
        std::string payload(count, '\0');
        EXPECT_EQ(DecodeHexadecimal(call.data() + begin, payload.data(), count), count);
        return payload;
    }

    T_Storage bag;
};

TEST_F(ServiceEntries, RegisteringSendsTheDetailsAndStoresTheNumber) {
    StoreDetails(bag, {u"Ann & Bob", u"", u"a@b.c", u"S-1", "DE", true});
    SetString(bag, PvnWFKey_ProductName, "Salt");
    AnswerIs("<registered><number>R-17</number></registered>");
    EXPECT_EQ(Run(RegisterProduct), kStatusSuccess);
    std::string number;
    EXPECT_TRUE(GetString(bag, PvnWFKey_ConfirmationNumber, number));
    EXPECT_EQ(number, "R-17");
    ASSERT_EQ(Calls("SendRequest").size(), 1u);
    const std::string sent = Calls("SendRequest")[0];
    EXPECT_THAT(sent, HasSubstr("<methodName>registerProduct</methodName>"));
    const std::string payload = PayloadOf(sent);
    for (const char* field :
         {"<name>Ann &amp; Bob</name>", "<email>a@b.c</email>", "<country>DE</country>",
          "<serial>S-1</serial>", "<news>1</news>", "<locale>de_DE</locale>", "<product>Salt</product>"})
        EXPECT_THAT(payload, HasSubstr(field));
}

TEST_F(ServiceEntries, ARegistrationCountsOnlyWithANumber) {
    for (const char* payload : {"", "<registered/>", "<registered><number/></registered>",
                                "<registered><number>1 2</number></registered>",
                                "<registered><number>123456789012345678901234567890123</number></registered>",
                                "<registered><number>R\u20AC</number></registered>",
                                "<received><number>R-17</number></received>"}) {
        AnswerIs(payload);
        EXPECT_EQ(Run(RegisterProduct), kStatusUnexpectedContent) << payload;
        std::string number;
        EXPECT_FALSE(GetString(bag, PvnWFKey_ConfirmationNumber, number)) << payload;
    }
}

TEST_F(ServiceEntries, AStatusOfTheServiceOrOfTheTransportIsTheResult) {
    for (const WorkerEntryOfBag entry : {&RegisterProduct, &TestConnection}) {
        AnswerIsStatus("34049");
        EXPECT_EQ(Run(entry), 34049);
        GetNetTwin().script = {Notice(HttpNotice::kError, 12007)};
        EXPECT_EQ(Run(entry), kStatusNameNotResolved);
    }
}

TEST_F(ServiceEntries, AnAddressThatIsNotSecureGetsNothing) {
    SetString(bag, PvnWFKey_ServiceUrl, "http://service.test/call");
    for (const WorkerEntryOfBag entry : {&RegisterProduct, &TestConnection}) {
        EXPECT_EQ(Run(entry), 53425);
    }
    EXPECT_TRUE(Calls("SendRequest").empty());
}

TEST_F(ServiceEntries, TestingSendsTheLocaleAloneAndStoresTheTime) {
    StoreDetails(bag, {u"Ann", u"", u"a@b.c", u"S-1", "DE", true});
    AnswerIs("<reached/>");
    GetFrameTwin().tickCount = 0xFFFFFFF0;
    EXPECT_EQ(Run(TestConnection), kStatusSuccess);
    std::uint32_t milliseconds = 1;
    EXPECT_TRUE(GetLong(bag, PvnWFKey_ConnectionTime, milliseconds));
    EXPECT_EQ(milliseconds, 0u);
    ASSERT_EQ(Calls("SendRequest").size(), 1u);
    EXPECT_THAT(Calls("SendRequest")[0], HasSubstr("<methodName>testConnection</methodName>"));
    const std::string payload = PayloadOf(Calls("SendRequest")[0]);
    EXPECT_THAT(payload, HasSubstr("<connectionTest>"));
    EXPECT_THAT(payload, HasSubstr("<locale>de_DE</locale>"));
    EXPECT_THAT(payload, testing::Not(HasSubstr("a@b.c")));
    ResetFrameTwin();
}

TEST_F(ServiceEntries, ATestCountsOnlyWithItsAnswer) {
    for (const char* payload : {"", "<other/>", "reached"}) {
        AnswerIs(payload);
        EXPECT_EQ(Run(TestConnection), kStatusUnexpectedContent) << payload;
    }
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
