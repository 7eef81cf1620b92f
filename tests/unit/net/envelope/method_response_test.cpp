#include "net/envelope/method_response.h"

#include "net/envelope/method_call.h"

#include "frame/frame_state.h"
#include "support/failing_allocator.h"
#include "support/log_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

namespace brixen::pvn {
namespace {

using testing::ElementsAre;

// The result of the parser and its parameters, each as "name type value".
struct Parsed {
    int result;
    std::vector<std::string> params;
};

Parsed Parse(const std::string& text) {
    PVN_RPCParamVector params;
    Parsed parsed{ParseMethodResponse(text.c_str(), params), {}};
    EXPECT_TRUE(params.ownsItems);
    for (const PVN_RPCParam* const param : params) {
        parsed.params.push_back(std::string(param->GetName()) + " " + param->GetType() + " " +
                                param->GetValue());
    }
    return parsed;
}

std::string Response(const std::string& params) {
    return "<?xml version=\"1.0\"?>\n<methodResponse><params>" + params + "</params></methodResponse>";
}

std::string Param(const std::string& name, const std::string& value) {
    return "<param><name>" + name + "</name><value>" + value + "</value></param>";
}

std::string TextParam(const std::string& name, const std::string& text) {
    return Param(name, "<utf8_string>" + text + "</utf8_string>");
}

void ExpectParsed(const std::string& text, int result, const std::vector<std::string>& params) {
    const Parsed parsed = Parse(text);
    EXPECT_EQ(parsed.result, result) << text.substr(0, 300);
    EXPECT_EQ(parsed.params, params) << text.substr(0, 300);
}

TEST(ParseMethodResponse, ReadsTextsAndNumbersInTheirOrder) {
    ExpectParsed(Response(TextParam("first", "0AFF") + Param("second", "<integer>-12</integer>")),
                 kResponseParsed, {"first utf8_string 0AFF", "second integer -12"});
}

TEST(ParseMethodResponse, ReadsTheFormatOfACall) {
    PVN_RPCUtf8Param text("first", "a text");
    PVN_RPCInt32Param number("second", 7);
    PVN_RPCParamVector params;
    params.push_back(&text);
    params.push_back(&number);
    std::string call;
    WriteMethodCall("method", params, call);
    for (std::size_t at; (at = call.find("methodCall")) != call.npos;) call.replace(at, 10, "methodResponse");
    ExpectParsed(call, kResponseParsed, {"first utf8_string a text", "second integer 7"});
}

TEST(ParseMethodResponse, ANullTextIsABadCall) {
    PVN_RPCParamVector params;
    EXPECT_EQ(ParseMethodResponse(nullptr, params), kResponseBadCall);
    EXPECT_FALSE(params.ownsItems);
}

TEST(ParseMethodResponse, AVectorWithElementsIsABadCallAndKeepsThem) {
    PVN_RPCInt32Param number("number", 7);
    PVN_RPCParamVector params;
    params.push_back(&number);
    EXPECT_EQ(ParseMethodResponse(Response(TextParam("a", "b")).c_str(), params), kResponseBadCall);
    EXPECT_THAT(params, ElementsAre(&number));
    EXPECT_FALSE(params.ownsItems);
}

TEST(ParseMethodResponse, MalformedMarkupIsNotWellFormed) {
    for (const char* const text :
         {"", "no markup", "<methodResponse>", "<methodResponse></methodresponse>",
          "<methodResponse><params></methodResponse></params>", "<", "<!-- only a comment -->"}) {
        ExpectParsed(text, kResponseNotWellFormed, {});
    }
}

TEST(ParseMethodResponse, AnotherRootIsTheWrongOne) {
    for (const char* const text :
         {"<fault/>", "<methodresponse/>", "<methodResponses/>", "<html><body/></html>",
          "<x><methodResponse><params/></methodResponse></x>"}) {
        ExpectParsed(text, kResponseWrongRoot, {});
    }
}

TEST(ParseMethodResponse, WithoutParamsTheVectorIsEmpty) {
    for (const char* const text : {"<methodResponse/>", "<methodResponse></methodResponse>",
                                   "<methodResponse><params/></methodResponse>",
                                   "<methodResponse><fault><param/></fault></methodResponse>",
                                   "<methodResponse><Params><param/></Params></methodResponse>"}) {
        ExpectParsed(text, kResponseParsed, {});
    }
}

TEST(ParseMethodResponse, SkipsOtherChildrenAtEveryLevel) {
    ExpectParsed("<methodResponse><other><param/></other><params><other/><!-- no param --><Param/>"
                 "<param><type>x</type><name>n</name><value> <utf8_string>v</utf8_string><other/></value>"
                 "<note/></param><other/></params><other/></methodResponse>",
                 kResponseParsed, {"n utf8_string v"});
}

TEST(ParseMethodResponse, ReadsTheParamsOfEveryParamsElement) {
    ExpectParsed("<methodResponse><params>" + TextParam("a", "1") + "</params><x/><params>" +
                     TextParam("b", "2") + "</params></methodResponse>",
                 kResponseParsed, {"a utf8_string 1", "b utf8_string 2"});
}

TEST(ParseMethodResponse, ANameAfterTheValueCounts) {
    ExpectParsed(Response("<param><value><integer>7</integer></value><name>late</name></param>"),
                 kResponseParsed, {"late integer 7"});
}

TEST(ParseMethodResponse, TheLastNameAndTheLastValueCount) {
    ExpectParsed(Response("<param><name>a</name><value><integer>1</integer></value>"
                          "<name>b</name><value><utf8_string>2</utf8_string></value></param>"),
                 kResponseParsed, {"b utf8_string 2"});
}

TEST(ParseMethodResponse, AParamMayLackItsName) {
    ExpectParsed(Response("<param><value><integer>7</integer></value></param>"), kResponseParsed,
                 {" integer 7"});
}

TEST(ParseMethodResponse, CutsANameAtFortyCharacters) {
    ExpectParsed(Response(TextParam(std::string(41, 'n'), "v")), kResponseParsed,
                 {std::string(40, 'n') + " utf8_string v"});
}

TEST(ParseMethodResponse, NamesAndValuesAreUnescaped) {
    ExpectParsed(Response(TextParam("a&amp;b", "&lt;&#x41;&gt;")), kResponseParsed, {"a&b utf8_string <A>"});
}

TEST(ParseMethodResponse, AnEmptyTextIsAValueAndAnEmptyNumberIsNone) {
    ExpectParsed(Response(Param("n", "<utf8_string/>")), kResponseParsed, {"n utf8_string "});
    ExpectParsed(Response(Param("n", "<integer/>")), kResponseBadParam, {});
}

TEST(ParseMethodResponse, AParamWithoutAValidValueIsBad) {
    for (const char* const param :
         {"<param/>", "<param><name>n</name></param>", "<param><value/></param>",
          "<param><value>text</value></param>", "<param><value><boolean>1</boolean></value></param>",
          "<param><value><Integer>1</Integer></value></param>",
          "<param><value><other/><integer>1</integer></value></param>",
          "<param><value><integer>1</integer></value><value/></param>"}) {
        ExpectParsed(Response(param), kResponseBadParam, {});
    }
}

TEST(ParseMethodResponse, ABadValueEndsTheScanOfItsParam) {
    ExpectParsed(Response("<param><value/><value><integer>1</integer></value></param>"), kResponseBadParam,
                 {});
}

TEST(ParseMethodResponse, ABadParamEndsTheReadingAndThoseBeforeItStay) {
    ExpectParsed("<methodResponse><params>" + TextParam("a", "1") + "<param/>" + TextParam("b", "2") +
                     "</params><params>" + TextParam("c", "3") + "</params></methodResponse>",
                 kResponseBadParam, {"a utf8_string 1"});
}

TEST(ParseMethodResponse, ReadsWhatFollowsADeepNest) {
    constexpr int kDepth = 100'000;
    std::string nest;
    for (int i = 0; i < kDepth; ++i) nest += "<a>";
    for (int i = 0; i < kDepth; ++i) nest += "</a>";
    ExpectParsed("<methodResponse>" + nest + "<params><param><note>" + nest +
                     "</note><value><utf8_string>v</utf8_string></value></param></params></methodResponse>",
                 kResponseParsed, {" utf8_string v"});
    ExpectParsed("<methodResponse>" + nest.substr(0, nest.size() / 2), kResponseNotWellFormed, {});
}

TEST(ParseMethodResponse, LosesNothingWithoutMemory) {
    const std::string text = Response(TextParam("a name of twenty or more", std::string(100, '4')) +
                                      Param("second", "<integer>7</integer>"));
    pavane_test::ForEveryFailingAllocation([&] {
        PVN_RPCParamVector params;
        try {
            const int result = ParseMethodResponse(text.c_str(), params);
            EXPECT_TRUE(result == kResponseParsed || result == kResponseBadParam);
        } catch (const std::bad_alloc&) {
        }
    });
}

// The payload, or "none" where the status says that there is none.
std::string Payload(const char* text, const char* name) {
    std::string out = "an earlier payload";
    const Status status = ReadPayloadResponse(text, name, out);
    if (status == kStatusSuccess) return "payload " + out;
    EXPECT_EQ(status, 53251);
    EXPECT_EQ(out, "");
    return "none";
}

std::string Payload(const std::string& text, const char* name) { return Payload(text.c_str(), name); }

TEST(ReadPayloadResponse, DecodesTheFirstParameterOfThatName) {
    EXPECT_EQ(
        Payload(Response(TextParam("other", "58") + TextParam("reply", "4142") + TextParam("reply", "59")),
                "reply"),
        "payload AB");
}

TEST(ReadPayloadResponse, ComparesAsManyCharactersAsTheWantedNameHas) {
    const std::string text = Response(TextParam("rep", "58") + TextParam("reply2", "4142"));
    EXPECT_EQ(Payload(text, "reply"), "payload AB");
    EXPECT_EQ(Payload(text, "rep"), "payload X");
    EXPECT_EQ(Payload(text, ""), "payload X");
    EXPECT_EQ(Payload(text, nullptr), "payload X");
    EXPECT_EQ(Payload(text, "Rep"), "none");
    EXPECT_EQ(Payload(text, "reply23"), "none");
}

TEST(ReadPayloadResponse, AWantedNameOfMoreThanFortyCharactersIsNeverFound) {
    const std::string name(41, 'n');
    EXPECT_EQ(Payload(Response(TextParam(name, "41")), name.c_str()), "none");
    EXPECT_EQ(Payload(Response(TextParam(name, "41")), name.c_str() + 1), "payload A");
}

TEST(ReadPayloadResponse, WithoutTheParameterThereIsNoPayload) {
    for (const char* const text : {"<methodResponse/>", "<fault/>", "", "no markup", "<html>Log in</html>"})
        EXPECT_EQ(Payload(text, "reply"), "none");
    EXPECT_EQ(Payload(static_cast<const char*>(nullptr), "reply"), "none");
    EXPECT_EQ(Payload(Response(TextParam("other", "41")), "reply"), "none");
}

TEST(ReadPayloadResponse, AParameterBeforeABadOneCounts) {
    EXPECT_EQ(Payload(Response(TextParam("reply", "41") + "<param/>"), "reply"), "payload A");
    EXPECT_EQ(Payload(Response("<param/>" + TextParam("reply", "41")), "reply"), "none");
}

TEST(ReadPayloadResponse, AnOddNumberOfDigitsIsAnEmptyPayload) {
    for (const char* const digits : {"4", "414", "41424"})
        EXPECT_EQ(Payload(Response(TextParam("reply", digits)), "reply"), "payload ");
}

TEST(ReadPayloadResponse, ThePayloadEndsAtTheFirstCharacterThatIsNoDigit) {
    EXPECT_EQ(Payload(Response(TextParam("reply", "4142x143")), "reply"), "payload AB");
    EXPECT_EQ(Payload(Response(TextParam("reply", "41424x43")), "reply"), "payload AB");
    EXPECT_EQ(Payload(Response(TextParam("reply", "6a41")), "reply"), "payload ");
    EXPECT_EQ(Payload(Response(TextParam("reply", "414:")), "reply"), "payload A");
}

TEST(ReadPayloadResponse, ThePayloadEndsAtItsFirstZeroByte) {
    EXPECT_EQ(Payload(Response(TextParam("reply", "410042")), "reply"), "payload A");
    EXPECT_EQ(Payload(Response(TextParam("reply", "00")), "reply"), "payload ");
    EXPECT_EQ(Payload(Response(TextParam("reply", "")), "reply"), "payload ");
}

TEST(ReadPayloadResponse, TheTextOfANumberIsItsDigits) {
    EXPECT_EQ(Payload(Response(Param("reply", "<integer>4142</integer>")), "reply"), "payload AB");
    EXPECT_EQ(Payload(Response(Param("reply", "<integer>-4142</integer>")), "reply"), "payload ");
}

TEST(ReadPayloadResponse, ReadsWhatBuildPayloadCallWrites) {
    std::string payload;
    for (int byte = 1; byte < 256; ++byte) payload += static_cast<char>(byte);
    std::string call;
    ASSERT_EQ(BuildPayloadCall(payload.c_str(), "method", "reply", call), kStatusSuccess);
    for (std::size_t at; (at = call.find("methodCall")) != call.npos;) call.replace(at, 10, "methodResponse");
    EXPECT_EQ(Payload(call, "reply"), "payload " + payload);
}

TEST(ReadPayloadResponse, ReadsTwentyMebibytes) {
    constexpr std::size_t kDigits = 20 << 20;
    std::string digits(kDigits, '4');
    EXPECT_EQ(Payload(Response(TextParam("reply", digits)), "reply"),
              "payload " + std::string(kDigits / 2, 'D'));
    digits.pop_back();
    EXPECT_EQ(Payload(Response(TextParam("reply", digits)), "reply"), "payload ");
}

TEST(ReadPayloadResponse, WithoutMemoryForThePayloadItIsEmpty) {
    const std::string text = Response(TextParam("reply", std::string(100, '4')));
    int emptySuccesses = 0;
    pavane_test::ForEveryFailingAllocation([&] {
        std::string out;
        try {
            const Status status = ReadPayloadResponse(text.c_str(), "reply", out);
            if (status == kStatusSuccess && out.empty()) ++emptySuccesses;
            if (status == kStatusSuccess) EXPECT_TRUE(out.empty() || out == std::string(50, 'D'));
        } catch (const std::bad_alloc&) {
        }
    });
    EXPECT_EQ(emptySuccesses, 1);
}

class UnknownResponse : public testing::Test {
protected:
    UnknownResponse() { OpenLog(false); }

    // The log without the prefix of its line.
    std::string Logged(const std::string& response) {
        LogUnknownResponse(response);
        const std::string text = log.Text();
        return text.substr(text.find("] ") + 2);
    }

    pavane_test::LogFile log;
};

constexpr char kLogStart[] = "PVN: _info_: \n\n----- unknown rpc response -----\n";
constexpr char kLogEnd[] = "\n---------------------\n\n";

TEST_F(UnknownResponse, IsLoggedAsItIs) {
    EXPECT_EQ(Logged("<html>\n100 % of %s\n</html>"),
              std::string(kLogStart) + "<html>\n100 % of %s\n</html>" + kLogEnd);
}

TEST_F(UnknownResponse, OfBytesThatAreNoCharactersIsLoggedToo) {
    const std::string bytes(kLongestLoggedResponse, '\x80');
    EXPECT_EQ(Logged(bytes + "\x80\x80"), kLogStart + bytes + "\n... and 2 more bytes" + kLogEnd);
}

TEST_F(UnknownResponse, MayBeEmpty) { EXPECT_EQ(Logged(""), std::string(kLogStart) + kLogEnd); }

TEST_F(UnknownResponse, EndsAtItsFirstZeroByte) {
    EXPECT_EQ(Logged(std::string("ab\0cd", 5)), std::string(kLogStart) + "ab" + kLogEnd);
}

TEST_F(UnknownResponse, OfTheGreatestLengthIsLoggedInFull) {
    const std::string response(65536, 'x');
    EXPECT_EQ(Logged(response), kLogStart + response + kLogEnd);
}

TEST_F(UnknownResponse, OfAGreaterLengthEndsWithACountOfTheRest) {
    EXPECT_EQ(Logged(std::string(65536, 'x') + "12345"),
              kLogStart + std::string(65536, 'x') + "\n... and 5 more bytes" + kLogEnd);
}

TEST_F(UnknownResponse, IsCutBetweenTwoCharacters) {
    EXPECT_EQ(Logged(std::string(65534, 'x') + "\xE2\x82\xAC!"),
              kLogStart + std::string(65534, 'x') + "\n... and 4 more bytes" + kLogEnd);
}

} // namespace
} // namespace brixen::pvn
