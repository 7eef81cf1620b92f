#include "net/envelope/method_call.h"

#include "support/failing_allocator.h"

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace brixen::pvn {
namespace {

std::string Written(const char* method, const PVN_RPCParamVector& params) {
    std::string out = "an earlier call";
    EXPECT_EQ(WriteMethodCall(method, params, out), 0);
    return out;
}

TEST(WriteMethodCall, WritesTheEnvelopeOfNoParameters) {
    EXPECT_EQ(Written("Register", PVN_RPCParamVector()), "<?xml version=\"1.0\"?>\n"
                                                         "<methodCall>\n"
                                                         "    <methodName>Register</methodName>\n"
                                                         "    <params>\n"
                                                         "    </params>\n"
                                                         "</methodCall>\n");
}

TEST(WriteMethodCall, WritesEachParameterInItsOrder) {
    PVN_RPCUtf8Param text("first", "a text");
    PVN_RPCInt32Param number("second", -12);
    PVN_RPCParamVector params;
    params.push_back(&text);
    params.push_back(&number);
    EXPECT_EQ(Written("Register", params), "<?xml version=\"1.0\"?>\n"
                                           "<methodCall>\n"
                                           "    <methodName>Register</methodName>\n"
                                           "    <params>\n"
                                           "        <param>\n"
                                           "            <name>first</name>\n"
                                           "            <value><utf8_string>a text</utf8_string></value>\n"
                                           "        </param>\n"
                                           "        <param>\n"
                                           "            <name>second</name>\n"
                                           "            <value><integer>-12</integer></value>\n"
                                           "        </param>\n"
                                           "    </params>\n"
                                           "</methodCall>\n");
}

TEST(WriteMethodCall, EscapesNothing) {
    PVN_RPCUtf8Param text("<&", "]]>\"");
    PVN_RPCParamVector params;
    params.push_back(&text);
    const std::string call = Written("a&b", params);
    EXPECT_NE(call.find("<methodName>a&b</methodName>"), call.npos);
    EXPECT_NE(call.find("<name><&</name>"), call.npos);
    EXPECT_NE(call.find("<utf8_string>]]>\"</utf8_string>"), call.npos);
}

TEST(WriteMethodCall, WritesALongNameCutAtFortyCharacters) {
    PVN_RPCUtf8Param text((std::string(40, 'n') + "!").c_str(), "text");
    PVN_RPCParamVector params;
    params.push_back(&text);
    const std::string call = Written("m", params);
    EXPECT_NE(call.find("<name>" + std::string(40, 'n') + "</name>"), call.npos);
}

TEST(WriteMethodCall, WritesAParameterWithoutValueAsAnEmptyOne) {
    PVN_RPCUtf8Param text("name", nullptr);
    PVN_RPCParamVector params;
    params.push_back(&text);
    const std::string call = Written(nullptr, params);
    EXPECT_NE(call.find("    <methodName></methodName>\n"), call.npos);
    EXPECT_NE(call.find("<value><utf8_string></utf8_string></value>"), call.npos);
}

TEST(WriteMethodCall, TakesAllItsMemoryAtOnce) {
    PVN_RPCUtf8Param text("name", std::string(5000, 'x').c_str());
    PVN_RPCParamVector params;
    params.push_back(&text);
    std::string out;
    WriteMethodCall("method", params, out);
    EXPECT_EQ(out.capacity(), out.size());
}

TEST(WriteMethodCall, ThrowsWithoutMemory) {
    std::string out;
    const pavane_test::FailNthAllocation failure(1);
    EXPECT_THROW(WriteMethodCall("method", PVN_RPCParamVector(), out), std::bad_alloc);
}

TEST(BuildPayloadCall, SendsThePayloadAsHexadecimalText) {
    std::string call;
    EXPECT_EQ(BuildPayloadCall("<\xC3\xA9>", "Register", "request", call), kStatusSuccess);
    EXPECT_EQ(call, "<?xml version=\"1.0\"?>\n"
                    "<methodCall>\n"
                    "    <methodName>Register</methodName>\n"
                    "    <params>\n"
                    "        <param>\n"
                    "            <name>request</name>\n"
                    "            <value><utf8_string>3CC3A93E</utf8_string></value>\n"
                    "        </param>\n"
                    "    </params>\n"
                    "</methodCall>\n");
}

TEST(BuildPayloadCall, AnEmptyOrNullPayloadIsAnEmptyValue) {
    for (const char* const payload : {"", static_cast<const char*>(nullptr)}) {
        std::string call;
        EXPECT_EQ(BuildPayloadCall(payload, "m", "p", call), kStatusSuccess);
        EXPECT_NE(call.find("<value><utf8_string></utf8_string></value>"), call.npos);
    }
}

TEST(BuildPayloadCall, SendsNoEmptyPayloadWithoutMemory) {
    std::string call;
    pavane_test::ForEveryFailingAllocation([&] {
        std::string built = "an earlier call";
        Status status = kStatusNoMemory;
        bool isThrown = false;
        try {
            status = BuildPayloadCall("a payload of some length", "method", "request", built);
        } catch (const std::bad_alloc&) {
            isThrown = true;
        }
        if (status == kStatusSuccess) {
            EXPECT_NE(built.find("61207061796C6F6164"), built.npos);
        } else {
            EXPECT_EQ(status, kStatusNoMemory);
            EXPECT_TRUE(isThrown || built.empty());
        }
    });
}

} // namespace
} // namespace brixen::pvn
