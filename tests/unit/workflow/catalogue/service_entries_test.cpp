// The worker entries of the workflows that call the service, over a scripted transport.
#include "net/envelope/hexadecimal.h"
#include "unit/net/transport/transport_fixture.h"
#include "values/unicode/text_conversion.h"
#include "workflow/catalogue/connection_data.h"
#include "workflow/catalogue/feedback_data.h"
#include "workflow/catalogue/log_tail.h"
#include "workflow/catalogue/registration_data.h"
#include "workflow/context/context_keys.h"
#include "workflow/context/progress.h"
#include "workflow/service/payload.h"

#include <gmock/gmock.h>

namespace brixen::pvn::pvn_workflow {
namespace {

using testing::HasSubstr;

class ServiceEntries : public TransportTest {
protected:
    ServiceEntries() {
        EndWorkerRun();
        SetString(bag, PvnWFKey_ServiceUrl, "https://service.test/call");
        SetString(bag, PvnWFKey_PageLocale, "de_DE");
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

TEST_F(ServiceEntries, APayloadThatIsNoAnswerToTheCallIsLogged) {
    for (const WorkerEntryOfBag entry : {&RegisterProduct, &TestConnection, &SendFeedback}) {
        const std::string before = log.Text();
        AnswerIs("<surprise/>");
        EXPECT_EQ(Run(entry), kStatusUnexpectedContent);
        const std::string lines = log.Text().substr(before.size());
        EXPECT_THAT(lines, HasSubstr("----- unknown rpc response -----"));
        EXPECT_THAT(lines, HasSubstr("<surprise/>"));
    }
}

TEST_F(ServiceEntries, AStatusOfTheServiceOrOfTheTransportIsTheResult) {
    for (const WorkerEntryOfBag entry : {&RegisterProduct, &TestConnection, &SendFeedback}) {
        AnswerIsStatus("34049");
        EXPECT_EQ(Run(entry), 34049);
        GetNetTwin().script = {Notice(HttpNotice::kError, 12007)};
        EXPECT_EQ(Run(entry), kStatusNameNotResolved);
    }
}

TEST_F(ServiceEntries, AnAddressThatIsNotSecureGetsNothing) {
    SetString(bag, PvnWFKey_ServiceUrl, "http://service.test/call");
    for (const WorkerEntryOfBag entry : {&RegisterProduct, &TestConnection, &SendFeedback}) {
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

TEST_F(ServiceEntries, FeedbackSendsTheFieldsAndStoresWhatWasConfirmed) {
    SetString(bag, PvnWFKey_FeedbackSubject, "Gray & dull");
    SetString(bag, PvnWFKey_FeedbackCategory, "quality");
    SetString(bag, PvnWFKey_FeedbackFrequency, "always");
    SetString(bag, PvnWFKey_FeedbackComment, "two\nlines");
    SetString(bag, PvnWFKey_FeedbackPixelWidth, "6000");
    SetString(bag, PvnWFKey_FeedbackResolution, "300.0");
    SetString(bag, PvnWFKey_FeedbackFocalLength, "50/1");
    SetString(bag, PvnWFKey_FeedbackAspectRatio, "3/2");
    SetString(bag, PvnWFKey_FeedbackAperture, "2.8");
    SetString(bag, PvnWFKey_FeedbackExposureTime, "1/250");
    SetString(bag, PvnWFKey_FeedbackBrightness, "");
    SetString(bag, PvnWFKey_FeedbackLog, "end <of> log");
    SetString(bag, PvnWFKey_ProductName, "Salt");
    AnswerIs("<received><fields>13</fields><bytes>4711</bytes></received>");
    EXPECT_EQ(Run(SendFeedback), kStatusSuccess);
    ASSERT_EQ(Calls("SendRequest").size(), 1u);
    const std::string sent = Calls("SendRequest")[0];
    EXPECT_THAT(sent, HasSubstr("<methodName>sendFeedback</methodName>"));
    const std::string payload = PayloadOf(sent);
    for (const char* field :
         {"<feedback>", "<subject>Gray &amp; dull</subject>", "<category>quality</category>",
          "<frequency>always</frequency>", "<comment>two\nlines</comment>", "<pixelWidth>6000</pixelWidth>",
          "<resolution>300.0</resolution>", "<focalLength>50/1</focalLength>",
          "<aspectRatio>3/2</aspectRatio>", "<aperture>2.8</aperture>", "<exposureTime>1/250</exposureTime>",
          "<log>end &lt;of&gt; log</log>", "<locale>de_DE</locale>", "<product>Salt</product>"})
        EXPECT_THAT(payload, HasSubstr(field));
    EXPECT_THAT(payload, testing::Not(HasSubstr("brightness"))) << "a field without a text";
    for (const auto& [key, number] :
         {std::pair{PvnWFKey_FeedbackSentFields, 13u},
          std::pair{PvnWFKey_FeedbackSentBytes, static_cast<std::uint32_t>(payload.size())},
          std::pair{PvnWFKey_FeedbackConfirmedFields, 13u},
          std::pair{PvnWFKey_FeedbackConfirmedBytes, 4711u}}) {
        std::uint32_t stored = 0;
        EXPECT_TRUE(GetLong(bag, key, stored));
        EXPECT_EQ(stored, number) << key;
    }
}

TEST_F(ServiceEntries, FeedbackCountsOnlyWithBothNumbers) {
    for (const char* payload :
         {"", "<received/>", "<received><fields>1</fields></received>",
          "<received><bytes>1</bytes></received>", "<received><fields>1</fields><bytes>-1</bytes></received>",
          "<received><fields>1 </fields><bytes>1</bytes></received>",
          "<received><fields>0x1</fields><bytes>1</bytes></received>",
          "<received><fields>1</fields><bytes>1234567890</bytes></received>",
          "<received><fields>1\n</fields><bytes>1</bytes></received>",
          "<received><fields>1</fields><bytes>\u202E1</bytes></received>",
          "<received><fields>\u0661</fields><bytes>1</bytes></received>",
          "<received><fields>\xFF</fields><bytes>1</bytes></received>",
          "<received><fields>%s</fields><bytes>^0</bytes></received>",
          "<received><fields>$$$/pvn/x=1</fields><bytes>1</bytes></received>",
          "<received><fields>1</fields><bytes>1</bytes>",
          "<reached><fields>1</fields><bytes>1</bytes></reached>"}) {
        AnswerIs(payload);
        EXPECT_EQ(Run(SendFeedback), kStatusUnexpectedContent) << payload;
        std::uint32_t number = 0;
        EXPECT_FALSE(GetLong(bag, PvnWFKey_FeedbackConfirmedFields, number)) << payload;
        EXPECT_FALSE(GetLong(bag, PvnWFKey_FeedbackConfirmedBytes, number)) << payload;
    }
}

TEST_F(ServiceEntries, FeedbackWithoutALogHasNoElementForIt) {
    SetString(bag, PvnWFKey_FeedbackSubject, "Gray");
    for (const char* log : {static_cast<const char*>(nullptr), ""}) {
        if (log) SetString(bag, PvnWFKey_FeedbackLog, log);
        AnswerIs("<received><fields>2</fields><bytes>4711</bytes></received>");
        EXPECT_EQ(Run(SendFeedback), kStatusSuccess);
        ASSERT_FALSE(Calls("SendRequest").empty());
        EXPECT_THAT(PayloadOf(Calls("SendRequest").back()), testing::Not(HasSubstr("log")));
        std::uint32_t fields = 0;
        EXPECT_TRUE(GetLong(bag, PvnWFKey_FeedbackSentFields, fields));
        EXPECT_EQ(fields, 2u) << "the subject and the locale";
    }
}

// What the service reads in the payload is the end of the log, byte by byte.
TEST_F(ServiceEntries, ALogOfMarkupAndLineFeedsArrivesAsItIs) {
    const std::string end = "<log>a & b</log>\n\n]]>\t&amp; \"quoted\" 'text' <!-- \u20AC \U0001F4F7\n";
    SetString(bag, PvnWFKey_FeedbackSubject, "Gray");
    SetString(bag, PvnWFKey_FeedbackLog, lyr::gen::ToUtf8(TailOfLog("cut off" + end, 1)));
    AnswerIs("<received><fields>3</fields><bytes>4711</bytes></received>");
    EXPECT_EQ(Run(SendFeedback), kStatusSuccess);
    ASSERT_EQ(Calls("SendRequest").size(), 1u);
    std::string read;
    EXPECT_TRUE(ReadPayloadField(PayloadOf(Calls("SendRequest")[0]), "feedback", "log", read));
    EXPECT_EQ(read, "cut off" + end);
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
