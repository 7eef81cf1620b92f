#include "values/base64.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

using namespace brixen::lyr::gen;

namespace {

std::string Encode(std::string_view bytes) { return Base64Encode(bytes.data(), bytes.size()); }
std::string Wrap(std::string_view bytes) { return EncodeBase64Wrapped(bytes.data(), bytes.size()); }

std::string Unwrap(std::string_view text, std::size_t size = 1000) {
    std::string out(size, '#');
    out.resize(DecodeBase64Wrapped(text, out.data(), size));
    return out;
}

std::string AllBytes(std::size_t length) {
    std::string bytes(length, '\0');
    for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<char>(i * 151 + i / 256);
    return bytes;
}

TEST(Base64Encode, PadsTheLastGroup) {
    EXPECT_EQ(Encode(""), "");
    EXPECT_EQ(Encode("M"), "TQ==");
    EXPECT_EQ(Encode("Ma"), "TWE=");
    EXPECT_EQ(Encode("Man"), "TWFu");
    EXPECT_EQ(Encode("\xFB\xFF\xBF"), "+/+/");
}

TEST(Base64Encode, UsesTheStandardAlphabet) {
    std::string bytes;
    for (unsigned value = 0; value < 64; value += 4) {
        const unsigned group = value << 18 | (value + 1) << 12 | (value + 2) << 6 | (value + 3);
        for (const int shift : {16, 8, 0}) bytes += static_cast<char>(group >> shift);
    }
    EXPECT_EQ(Encode(bytes), "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/");
}

TEST(Base64Encode, StaysOnOneLine) { EXPECT_EQ(Encode(std::string(300, 'x')).find('\n'), std::string::npos); }

TEST(Base64Decode, StopsAtTheFirstCharacterOutsideTheAlphabet) {
    EXPECT_EQ(Base64Decode("TWE="), "Ma");
    EXPECT_EQ(Base64Decode("TW!="), "M");
    EXPECT_EQ(Base64Decode("TWFuTWFu\r\nTWFu"), "ManMan");
    EXPECT_EQ(Base64Decode("TWFu=TWFu"), "Man");
    EXPECT_EQ(Base64Decode("TWFuTW\xFFu"), "ManM");
}

TEST(Base64Decode, IgnoresASingleCharacterOfAGroup) {
    EXPECT_EQ(Base64Decode(""), "");
    EXPECT_EQ(Base64Decode("T"), "");
    EXPECT_EQ(Base64Decode("TWFuT"), "Man");
    EXPECT_EQ(Base64Decode("="), "");
}

TEST(Base64, DecodesWhatItEncodedAtEveryLength) {
    for (std::size_t length = 0; length < 600; ++length) {
        const std::string bytes = AllBytes(length);
        ASSERT_EQ(Base64Decode(Encode(bytes)), bytes) << length;
        ASSERT_EQ(Unwrap(Wrap(bytes)), bytes) << length;
    }
}

TEST(Base64Decode, FindsABadCharacterAtEveryPlace) {
    const std::string bytes = AllBytes(150);
    const std::string text = Encode(bytes);
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string broken = text;
        for (const char bad : {'=', ' ', '\0', '-', '@', '[', '`', '{', '\x80', '\xFF'}) {
            broken[at] = bad;
            ASSERT_EQ(Base64Decode(broken), bytes.substr(0, at * 6 / 8)) << at;
        }
    }
}

TEST(EncodeBase64Wrapped, BeginsWithALineEnd) {
    EXPECT_EQ(Wrap(""), "\r\n");
    EXPECT_EQ(Wrap("Man"), "\r\nTWFu");
    EXPECT_EQ(Wrap("Ma"), "\r\nTWE=\r\n");
}

TEST(EncodeBase64Wrapped, WritesSixtyFourCharactersALine) {
    const std::string line(64, 'A');
    EXPECT_EQ(Wrap(std::string(48, '\0')), "\r\n" + line + "\r\n");
    EXPECT_EQ(Wrap(std::string(51, '\0')), "\r\n" + line + "\r\nAAAA");
    EXPECT_EQ(Wrap(std::string(49, '\0')), "\r\n" + line + "\r\nAA==\r\n");
}

TEST(EncodeBase64Wrapped, EndsAPaddedFullLineOnce) {
    EXPECT_EQ(Wrap(std::string(47, '\0')), "\r\n" + std::string(63, 'A') + "=\r\n");
}

TEST(DecodeBase64Wrapped, ReturnsARoomThatIsLargeEnough) {
    EXPECT_EQ(DecodeBase64Wrapped("TWFuTWFuT", nullptr, 0), 9u);
    EXPECT_EQ(DecodeBase64Wrapped("", nullptr, 0), 3u);
}

TEST(DecodeBase64Wrapped, IgnoresLineEndsAndAPartialGroup) {
    EXPECT_EQ(Unwrap("\r\nTW\rFu\nTWE="), "ManMa");
    EXPECT_EQ(Unwrap("TWFuTW"), "Man");
}

TEST(DecodeBase64Wrapped, ReadsCharactersOutsideTheAlphabetAsZeros) {
    EXPECT_EQ(Unwrap("T!Fu"), std::string("L\x01n", 3));
    EXPECT_EQ(Unwrap("    "), std::string(3, '\0'));
}

TEST(DecodeBase64Wrapped, ReturnsZeroWhenTheRoomIsTooSmall) {
    std::array<char, 6> out = {};
    EXPECT_EQ(DecodeBase64Wrapped("TWFuTWFu", out.data(), 5), 0u);
    EXPECT_EQ(DecodeBase64Wrapped("TWFuTWFu", out.data(), 6), 6u);
    EXPECT_EQ(DecodeBase64Wrapped("TWFuTWE=", out.data(), 5), 5u);
}

TEST(DecodeBase64Wrapped, CountsPadsOfTheWholeText) {
    EXPECT_EQ(Unwrap("TQ==TWFu"), "MM");
    EXPECT_EQ(Unwrap("TQ==TQ==TWFu====="), "M");
}

} // namespace
