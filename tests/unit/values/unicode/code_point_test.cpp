#include "values/unicode/code_point.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

using namespace brixen::lyr::gen;

namespace {

std::string Utf8Of(char32_t code) {
    std::array<char, 4> bytes{};
    WriteUtf8(code, Utf8Length(code), bytes.data());
    return {bytes.data(), Utf8Length(code)};
}

TEST(CodePoint, TakesOneToFourBytesOfUtf8) {
    EXPECT_EQ(Utf8Of(0x00), std::string(1, '\0'));
    EXPECT_EQ(Utf8Of(0x7F), "\x7F");
    EXPECT_EQ(Utf8Of(0x80), "\xC2\x80");
    EXPECT_EQ(Utf8Of(0x7FF), "\xDF\xBF");
    EXPECT_EQ(Utf8Of(0x800), "\xE0\xA0\x80");
    EXPECT_EQ(Utf8Of(0xFFFF), "\xEF\xBF\xBF");
    EXPECT_EQ(Utf8Of(0x10000), "\xF0\x90\x80\x80");
    EXPECT_EQ(Utf8Of(0x10FFFF), "\xF4\x8F\xBF\xBF");
}

TEST(CodePoint, MayTakeMoreBytesThanItNeeds) {
    std::array<char, 4> bytes{};
    WriteUtf8(U'A', 3, bytes.data());
    EXPECT_EQ(std::string(bytes.data(), 3), "\xE0\x81\x81");
    EXPECT_EQ(bytes[3], '\0');
}

TEST(CodePoint, IsAPairBeyondTheBasicPlane) {
    for (const unsigned code : {0x10000u, 0x1F600u, 0xFFFFFu, 0x100000u, 0x10FFFFu}) {
        EXPECT_TRUE(IsHighSurrogate(HighSurrogateOf(code))) << code;
        EXPECT_TRUE(IsLowSurrogate(LowSurrogateOf(code))) << code;
        EXPECT_EQ(CodeOfPair(HighSurrogateOf(code), LowSurrogateOf(code)), code);
    }
    EXPECT_EQ(HighSurrogateOf(0x1F600), 0xD83D);
    EXPECT_EQ(LowSurrogateOf(0x1F600), 0xDE00);
}

TEST(CodePoint, IsASurrogateOfOneHalfOrOfNone) {
    for (const unsigned code : {0xD800u, 0xDBFFu}) {
        EXPECT_TRUE(IsSurrogate(code) && IsHighSurrogate(code) && !IsLowSurrogate(code)) << code;
    }
    for (const unsigned code : {0xDC00u, 0xDFFFu}) {
        EXPECT_TRUE(IsSurrogate(code) && IsLowSurrogate(code) && !IsHighSurrogate(code)) << code;
    }
    for (const unsigned code : {0u, 0xD7FFu, 0xE000u, 0x1D800u, 0x10DC00u}) {
        EXPECT_FALSE(IsSurrogate(code) || IsLowSurrogate(code) || IsHighSurrogate(code)) << code;
    }
}

} // namespace
