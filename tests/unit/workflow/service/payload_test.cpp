#include "workflow/service/payload.h"

#include <gmock/gmock.h>

#include <optional>

namespace brixen::pvn::pvn_workflow {
namespace {

std::optional<std::string> Field(const std::string& payload, const char* name = "number") {
    std::string text = "an earlier text";
    if (ReadPayloadField(payload, "registered", name, text)) return text;
    EXPECT_EQ(text, "") << payload;
    return std::nullopt;
}

TEST(PayloadWriter, WritesAnElementForEachField) {
    PayloadWriter writer("registration");
    writer.Add("name", "Ada");
    writer.Add("organization", "");
    const std::string text = writer.Text();
    std::string name, organization = "x";
    EXPECT_TRUE(ReadPayloadField(text, "registration", "name", name));
    EXPECT_TRUE(ReadPayloadField(text, "registration", "organization", organization));
    EXPECT_EQ(name, "Ada");
    EXPECT_EQ(organization, "");
    EXPECT_LT(text.find("<name>Ada</name>"), text.find("<organization"));
    EXPECT_TRUE(text.starts_with("<registration>")) << text;
}

TEST(PayloadWriter, WithoutFieldsIsItsRoot) {
    EXPECT_TRUE(IsPayload(PayloadWriter("empty").Text(), "empty"));
}

TEST(PayloadWriter, WhatIsWrittenIsRead) {
    for (const std::string& text :
         {std::string("a & b < c > d \" e ' f"), std::string("</name><serial>1</serial>"), std::string("]]>"),
          std::string("&amp;"), std::string("ünï € 😀 אב"), std::string("two\r\nlines\tand a tab"),
          std::string("<!-- no comment -->"), std::string("%s%n")}) {
        PayloadWriter writer("feedback");
        writer.Add("comment", text);
        writer.Add("after", "1");
        std::string read, after;
        EXPECT_TRUE(ReadPayloadField(writer.Text(), "feedback", "comment", read));
        EXPECT_TRUE(ReadPayloadField(writer.Text(), "feedback", "after", after));
        EXPECT_EQ(read, text);
        EXPECT_EQ(after, "1") << text;
    }
}

TEST(PayloadWriter, LeavesOutCharactersThatMarkupCannotHold) {
    PayloadWriter writer("feedback");
    writer.Add("comment", std::string_view("a\0b\x01\x1F\tc\n\r\x7F", 10));
    std::string text;
    EXPECT_TRUE(ReadPayloadField(writer.Text(), "feedback", "comment", text));
    EXPECT_EQ(text, "ab\tc\n\r\x7F");
}

TEST(PayloadField, IsFoundInAnyOrderAmongUnknownOnes) {
    EXPECT_EQ(Field("<registered><other>1</other><number>A-1</number></registered>"), "A-1");
    EXPECT_EQ(Field("<?xml version=\"1.0\"?><registered>\n  <number>A-1</number>\n</registered>"), "A-1");
    EXPECT_EQ(Field("<registered><deep><number>1</number></deep><number>2</number></registered>"), "2");
    EXPECT_EQ(Field("<registered><number>1</number><number>2</number></registered>"), "1");
    EXPECT_EQ(Field("<registered><number>&lt;1&gt;</number></registered>"), "<1>");
}

TEST(PayloadField, MissingOrEmptyIsEmpty) {
    for (const char* const text :
         {"<registered/>", "<registered></registered>", "<registered><number/></registered>",
          "<registered><Number>1</Number></registered>"}) {
        EXPECT_EQ(Field(text), "") << text;
    }
}

TEST(PayloadField, OfAMalformedPayloadIsAFailure) {
    for (const char* const text : {"<registered><number>A-1</number>", "<registered><number>A-1</registered>",
                                   "<registered><number>A-1</number><number></registered>"}) {
        EXPECT_EQ(Field(text), std::nullopt) << text;
        EXPECT_FALSE(IsPayload(text, "registered")) << text;
    }
}

TEST(PayloadField, OfAnythingElseIsAFailure) {
    for (const char* const text :
         {"", "no markup", "<reached/>", "<Registered><number>1</number></Registered>",
          "<registered><number>1</registered>", "<registered"}) {
        EXPECT_EQ(Field(text), std::nullopt) << text;
        EXPECT_FALSE(IsPayload(text, "registered")) << text;
    }
    EXPECT_TRUE(IsPayload("<registered/>", "registered"));
}

TEST(PayloadField, DeepNestingTakesNoStack) {
    std::string text = "<registered>";
    for (int depth = 0; depth < 100000; ++depth) text += "<a>";
    for (int depth = 0; depth < 100000; ++depth) text += "</a>";
    EXPECT_EQ(Field(text + "<number>1</number></registered>"), "1");
}

} // namespace
} // namespace brixen::pvn::pvn_workflow
