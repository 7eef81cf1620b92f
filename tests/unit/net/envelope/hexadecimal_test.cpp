#include "net/envelope/hexadecimal.h"

#include <gtest/gtest.h>

#include <string>

namespace brixen::pvn {
namespace {

std::string Encoded(const std::string& bytes) {
    std::string digits(2 * bytes.size(), '?');
    EncodeHexadecimal(bytes.data(), bytes.size(), digits.data());
    return digits;
}

// The bytes before the first pair that is none; the others must be untouched.
std::string Decoded(const std::string& digits) {
    std::string bytes(digits.size() / 2, '?');
    const std::size_t count = DecodeHexadecimal(digits.data(), bytes.data(), bytes.size());
    EXPECT_EQ(bytes.find_first_not_of('?', count), bytes.npos);
    return bytes.substr(0, count);
}

TEST(Hexadecimal, WritesTwoUpperCaseDigitsForEachByteHighNibbleFirst) {
    EXPECT_EQ(Encoded({"\x0A\xFF", 2}), "0AFF");
    EXPECT_EQ(Encoded({"\x00\x1F\x7e\x80", 4}), "001F7E80");
    EXPECT_EQ(Encoded(""), "");
}

TEST(Hexadecimal, ReadsBackEveryByte) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    EXPECT_EQ(Decoded(Encoded(bytes)), bytes);
}

TEST(Hexadecimal, ReadsBackTextsOfEveryLength) {
    std::string bytes;
    for (int length = 0; length < 70; ++length) {
        const std::string digits = Encoded(bytes);
        EXPECT_EQ(digits.size(), 2 * bytes.size());
        EXPECT_EQ(digits.find_first_not_of("0123456789ABCDEF"), digits.npos);
        EXPECT_EQ(Decoded(digits), bytes);
        bytes += static_cast<char>(length * 37);
    }
}

// A text of 20 bytes with one character replaced: in a block, or after the last whole one.
TEST(Hexadecimal, ReadsDigitsAndUpperCaseLettersOnly) {
    const std::string digits = Encoded("twenty bytes of text");
    for (int character = 0; character < 256; ++character) {
        const auto digit = static_cast<char>(character);
        const bool isDigit = (digit >= '0' && digit <= '9') || (digit >= 'A' && digit <= 'F');
        for (const std::size_t place : {0u, 1u, 13u, 30u, 31u, 32u, 39u}) {
            std::string changed = digits;
            changed[place] = digit;
            EXPECT_EQ(Decoded(changed).size(), isDigit ? 20 : place / 2) << character << " at " << place;
        }
    }
}

TEST(Hexadecimal, StopsAtTheFirstPairThatIsNoByte) {
    EXPECT_EQ(Decoded("41424x43"), "AB");
    EXPECT_EQ(Decoded("4142x443"), "AB");
    EXPECT_EQ(Decoded("xx"), "");
}

} // namespace
} // namespace brixen::pvn
