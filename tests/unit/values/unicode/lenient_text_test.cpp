#include "values/unicode/lenient_text.h"

#include "support/failing_allocator.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>

using namespace brixen::lyr::gen;

namespace {

std::u16string U16(std::initializer_list<char16_t> units) { return {units}; }

std::string Encoded(const std::u16string& wide, std::int32_t size = 100) {
    std::string out(static_cast<std::size_t>(size) + 1, '#');
    out.resize(static_cast<std::size_t>(EncodeUtf8(out.data(), wide.c_str(), size)));
    return out;
}

std::u16string Decoded(std::string_view utf8) {
    const auto length = static_cast<std::int32_t>(utf8.size());
    std::u16string out(static_cast<std::size_t>(DecodeUtf8(nullptr, utf8.data(), length)) + 1, u'#');
    DecodeUtf8(out.data(), utf8.data(), length);
    out.pop_back();
    return out;
}

TEST(EncodeUtf8, CountsWithoutABuffer) {
    EXPECT_EQ(EncodeUtf8(nullptr, u"a\u00E9\u20AC", 0), 6);
    EXPECT_EQ(EncodeUtf8(nullptr, u"abc", 1), 3);
    EXPECT_EQ(EncodeUtf8(nullptr, u"", 0), 0);
}

TEST(EncodeUtf8, WritesOneToFourBytes) {
    EXPECT_EQ(Encoded(u"a\u07FF\u0800" + U16({0xD83D, 0xDE00})), "a\xDF\xBF\xE0\xA0\x80\xF0\x9F\x98\x80");
}

TEST(EncodeUtf8, WritesThreeBytesUpToTheLastUnitOfTheBasicPlane) {
    EXPECT_EQ(Encoded(U16({0xFFFF})), "\xEF\xBF\xBF");
    EXPECT_EQ(EncodeUtf8(nullptr, U16({0xFFFF}).c_str(), 0), 3);
    EXPECT_EQ(Encoded(U16({0xD800, 0xDC00})), "\xF0\x90\x80\x80");
}

TEST(EncodeUtf8, CombinesASurrogateWithAnyNextUnit) {
    EXPECT_EQ(Encoded(U16({0xDC00, u'A'})), "\xF0\x90\x81\x81"); // 0x10000 + 0x41
    EXPECT_EQ(Encoded(U16({u'a', 0xD800})), "a");
}

TEST(EncodeUtf8, StopsBeforeASequenceThatDoesNotFit) {
    std::array<char, 5> out = {'#', '#', '#', '#', '#'};
    EXPECT_EQ(EncodeUtf8(out.data(), u"ab\u20AC", 4), 2);
    EXPECT_EQ(std::string(out.data(), 5), std::string("ab\0##", 5));
}

TEST(EncodeUtf8, LeavesOutTheTerminatorWhenThereIsNoRoom) {
    std::array<char, 3> out = {'#', '#', '#'};
    EXPECT_EQ(EncodeUtf8(out.data(), u"ab", 2), 2);
    EXPECT_EQ(std::string(out.data(), 3), "ab#");
    EXPECT_EQ(EncodeUtf8(out.data(), u"xy", 0), 0);
    EXPECT_EQ(std::string(out.data(), 3), "ab#");
}

TEST(DecodeUtf8, WritesAQuestionMarkForABrokenSequenceAndReadsOn) {
    EXPECT_EQ(Decoded("\xE2\x82\x41"), u"?A");
    EXPECT_EQ(Decoded("\xE2\x82"), u"?");
    EXPECT_EQ(Decoded("\xF0\x9F\x98xy"), u"?xy");
    EXPECT_EQ(Decoded("\xC3"), u"?");
}

TEST(DecodeUtf8, WritesOneUnitUpToTheLastOfTheBasicPlane) {
    EXPECT_EQ(Decoded("\xEF\xBF\xBF"), U16({0xFFFF}));
    EXPECT_EQ(DecodeUtf8(nullptr, "\xEF\xBF\xBF", 3), 1);
    EXPECT_EQ(Decoded("\xF0\x90\x80\x80"), U16({0xD800, 0xDC00}));
}

TEST(DecodeUtf8, AcceptsEveryTrailingByteFromHexEightyUp) {
    EXPECT_EQ(Decoded("\xC3\xE9"), U16({0xE9}));
    EXPECT_EQ(Decoded("\x80\x81"), U16({0x01}));
}

TEST(DecodeUtf8, WritesTwoUnitsBeyondTheBasicPlane) {
    EXPECT_EQ(Decoded("\xF0\x9F\x98\x80"), U16({0xD83D, 0xDE00}));
    EXPECT_EQ(Decoded("a\xE2\x82\xAC"), u"a\u20AC");
}

TEST(DecodeUtf8, ReadsThreeBitsOfEveryLeadOfFourBytes) {
    EXPECT_EQ(Decoded("\xF8\x88\x80\x80"), u"\u8000");
    EXPECT_EQ(Decoded("\xFF\x80\x80\x80"), Decoded("\xF7\x80\x80\x80"));
    // 0x1FFFFF less 0x10000 has a bit too many for the high half.
    EXPECT_EQ(Decoded("\xF7\xBF\xBF\xBF"), U16({0xDBBF, 0xDFFF}));
}

TEST(DecodeUtf8, ReturnsTheBytesReadAndWritesTheNulThatEndedIt) {
    std::array<char16_t, 8> out;
    out.fill(u'#');
    EXPECT_EQ(DecodeUtf8(out.data(), "ab\0cd", 5), 2);
    EXPECT_EQ(std::u16string(out.data(), 4), std::u16string(u"ab\0#", 4));
    EXPECT_EQ(DecodeUtf8(nullptr, "ab\0cd", 5), 2);
    out.fill(u'#');
    EXPECT_EQ(DecodeUtf8(out.data(),
                         "\xE2\x82\xAC"
                         "b",
                         4),
              4);
    EXPECT_EQ(out[2], u'#');
}

TEST(DecodeUtf8, ReadsToTheNulWithANegativeLength) { EXPECT_EQ(DecodeUtf8(nullptr, "abcd", -1), 4); }

TEST(DecodeUtf8, EndsAtANulInATrailingPlace) { EXPECT_EQ(DecodeUtf8(nullptr, "\xE2\x82\0x", 4), 1); }

TEST(LenientText, ConvertsWholeTextsUpToANul) {
    EXPECT_EQ(LenientUtf8(u""), "");
    EXPECT_EQ(LenientUtf8(u"a\u20AC"), "a\xE2\x82\xAC");
    EXPECT_EQ(LenientUtf16(""), u"");
    EXPECT_EQ(LenientUtf16("a\xE2\x82\xAC"), u"a\u20AC");
    EXPECT_EQ(LenientUtf16(std::string_view("ab\0c", 4)), u"ab");
}

TEST(ReplacingUtf16, KeepsLegalTextAndNuls) {
    EXPECT_EQ(ReplacingUtf16(""), u"");
    EXPECT_EQ(ReplacingUtf16("a\u00E9\u20AC\U0001F600"), u"a\u00E9\u20AC\U0001F600");
    EXPECT_EQ(ReplacingUtf16(std::string_view("a\0b", 3)), std::u16string_view(u"a\0b", 3));
}

TEST(ReplacingUtf16, ReplacesEachByteThatIsInNoLegalSequence) {
    for (const auto& [bytes, text] : {std::pair<const char*, const char16_t*>{"\x80"
                                                                              "a",
                                                                              u"\uFFFDa"},
                                      {"\xFF\xFE", u"\uFFFD\uFFFD"},
                                      {"\xC3"
                                       "a",
                                       u"\uFFFDa"},
                                      {"\xC0\x80", u"\uFFFD\uFFFD"},
                                      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
                                      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                                      {"a\xE2\x82", u"a\uFFFD\uFFFD"},
                                      {"\xE2\x82\xE2\x82\xAC", u"\uFFFD\uFFFD\u20AC"}})
        EXPECT_EQ(ReplacingUtf16(bytes), text);
}

TEST(ReplacingUtf16, ReplacesInLongTexts) {
    std::string bytes;
    std::u16string text;
    for (int i = 0; i < 100; ++i) {
        bytes += std::string(37, 'x') + "\xFC\u20AC";
        text += std::u16string(37, u'x') + u"\uFFFD\u20AC";
    }
    EXPECT_EQ(ReplacingUtf16(bytes), text);
    EXPECT_EQ(ReplacingUtf16(std::string(1000, '\xFF')), std::u16string(1000, u'\uFFFD'));
}

} // namespace
