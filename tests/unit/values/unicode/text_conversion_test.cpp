#include "values/unicode/text_conversion.h"

#include "support/failing_allocator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

using namespace brixen::lyr::gen;

namespace {

using Bytes = std::vector<std::uint8_t>;
using enum ConversionResult;

// What a range conversion into a target of `room` units came to.
template <class Target>
struct Outcome {
    ConversionResult result;
    std::size_t read;
    std::vector<Target> written;

    bool operator==(const Outcome&) const = default;
};

template <class Source, class Target, class Convert>
Outcome<Target> Run(const Convert& convert, const std::vector<Source>& text, std::size_t room) {
    std::vector<Target> buffer(room + 1);
    const Source* source = text.data();
    Target* target = buffer.data();
    const ConversionResult result = convert(source, text.data() + text.size(), target, buffer.data() + room);
    return {result, static_cast<std::size_t>(source - text.data()), {buffer.data(), target}};
}

Outcome<char16_t> From8To16(const Bytes& text, bool lenient, std::size_t room = 100) {
    return Run<std::uint8_t, char16_t>(
        [&](auto& s, auto e, auto& t, auto te) { return ConvertUtf8ToUtf16(s, e, t, te, lenient); }, text,
        room);
}

Outcome<std::uint8_t> From16To8(const std::vector<char16_t>& text, bool lenient, std::size_t room = 100) {
    return Run<char16_t, std::uint8_t>(
        [&](auto& s, auto e, auto& t, auto te) { return ConvertUtf16ToUtf8(s, e, t, te, lenient); }, text,
        room);
}

Outcome<char16_t> From32To16(const std::vector<char32_t>& text, bool lenient, std::size_t room = 100) {
    return Run<char32_t, char16_t>(
        [&](auto& s, auto e, auto& t, auto te) { return ConvertUtf32ToUtf16(s, e, t, te, lenient); }, text,
        room);
}

Outcome<char32_t> From16To32(const std::vector<char16_t>& text, bool lenient, std::size_t room = 100) {
    return Run<char16_t, char32_t>(
        [&](auto& s, auto e, auto& t, auto te) { return ConvertUtf16ToUtf32(s, e, t, te, lenient); }, text,
        room);
}

Outcome<std::uint8_t> From32To8(const std::vector<char32_t>& text, bool lenient, std::size_t room = 100) {
    return Run<char32_t, std::uint8_t>(
        [&](auto& s, auto e, auto& t, auto te) { return ConvertUtf32ToUtf8(s, e, t, te, lenient); }, text,
        room);
}

Outcome<char32_t> From8To32(const Bytes& text, std::size_t room = 100) {
    return Run<std::uint8_t, char32_t>(
        [&](auto& s, auto e, auto& t, auto te) { return ConvertUtf8ToUtf32(s, e, t, te); }, text, room);
}

using Out16 = Outcome<char16_t>;
using Out8 = Outcome<std::uint8_t>;
using Out32 = Outcome<char32_t>;

std::string MessageOf(const auto& action) {
    try {
        action();
    } catch (const illegal_utf_sequence& failure) {
        return failure.what();
    }
    return "nothing thrown";
}

std::u16string U16(std::initializer_list<char16_t> units) { return {units}; }

TEST(ConversionResult, HasFixedNumbers) {
    EXPECT_EQ(static_cast<int>(ConversionOk), 0);
    EXPECT_EQ(static_cast<int>(SourceExhausted), 1);
    EXPECT_EQ(static_cast<int>(TargetExhausted), 2);
    EXPECT_EQ(static_cast<int>(SourceIllegal), 3);
}

TEST(IllegalUtfSequence, IsARuntimeErrorWithACopyOfItsMessage) {
    static_assert(std::is_base_of_v<std::runtime_error, illegal_utf_sequence>);
    std::string message = "Bad UTF-8 sequence.";
    const illegal_utf_sequence failure(message);
    message[0] = '#';
    EXPECT_STREQ(failure.what(), "Bad UTF-8 sequence.");
}

TEST(ConvertUtf8ToUtf16, WritesOneUnitForTheBasicPlaneAndTwoBeyond) {
    const Bytes text = {'a', 0xC3, 0xA9, 0xE2, 0x82, 0xAC, 0xF0, 0x9F, 0x98, 0x80};
    EXPECT_EQ(From8To16(text, false), (Out16{ConversionOk, 10, {u'a', 0xE9, 0x20AC, 0xD83D, 0xDE00}}));
}

TEST(ConvertUtf8ToUtf16, StaysAtTheStartOfACutSequence) {
    EXPECT_EQ(From8To16({'a', 0xE2, 0x82}, false), (Out16{SourceExhausted, 1, {u'a'}}));
    EXPECT_EQ(From8To16({'a', 0xF0}, true), (Out16{SourceExhausted, 1, {u'a'}}));
}

TEST(ConvertUtf8ToUtf16, StaysAtTheUnitThatDoesNotFit) {
    EXPECT_EQ(From8To16({'a', 'b'}, false, 1), (Out16{TargetExhausted, 1, {u'a'}}));
    EXPECT_EQ(From8To16({'a', 0xF0, 0x9F, 0x98, 0x80}, false, 2), (Out16{TargetExhausted, 1, {u'a'}}));
    EXPECT_EQ(From8To16({'a'}, false, 0), (Out16{TargetExhausted, 0, {}}));
}

TEST(ConvertUtf8ToUtf16, RefusesSurrogatesUnlessLenient) {
    const Bytes high = {'a', 0xED, 0xA0, 0x80};
    EXPECT_EQ(From8To16(high, false), (Out16{SourceIllegal, 1, {u'a'}}));
    EXPECT_EQ(From8To16(high, true), (Out16{ConversionOk, 4, {u'a', 0xD800}}));
}

TEST(ConvertUtf8ToUtf16, RefusesIllegalSequencesInBothModes) {
    const std::vector<Bytes> illegal = {
        {0x80},                   // a trailing byte alone
        {0xC0, 0x80},             // overlong
        {0xC1, 0xBF},             // overlong
        {0xE0, 0x9F, 0xBF},       // overlong
        {0xF0, 0x8F, 0xBF, 0xBF}, // overlong
        {0xF4, 0x90, 0x80, 0x80}, // above 0x10FFFF
        {0xF5, 0x80, 0x80, 0x80},
        {0xF8, 0x88, 0x80, 0x80, 0x80},
        {0xFC, 0x84, 0x80, 0x80, 0x80, 0x80},
        {0xC3, 0x41},
        {0xE2, 0x82, 0x41},
        {0xE2, 0x41, 0x82},
        {0xF0, 0x9F, 0x98, 0xC0},
        {0xF0, 0x9F, 0x41, 0x80},
    };
    for (const Bytes& sequence : illegal) {
        for (const bool lenient : {false, true}) {
            EXPECT_EQ(From8To16(sequence, lenient), (Out16{SourceIllegal, 0, {}}))
                << testing::PrintToString(sequence);
            // Among other text, where whole runs are converted at once.
            for (const std::size_t after : {0U, 20U}) {
                Bytes inText = {'a', 'b', 'c', 'd'};
                inText.insert(inText.end(), sequence.begin(), sequence.end());
                inText.insert(inText.end(), after, 'x');
                EXPECT_EQ(From8To16(inText, lenient), (Out16{SourceIllegal, 4, {u'a', u'b', u'c', u'd'}}))
                    << testing::PrintToString(inText);
            }
        }
        EXPECT_EQ(From8To32(sequence), (Out32{SourceIllegal, 0, {}})) << testing::PrintToString(sequence);
    }
}

TEST(ConvertUtf8ToUtf16, ConvertsTheFirstAndLastOfEachLength) {
    const std::vector<std::pair<Bytes, std::vector<char16_t>>> cases = {
        {{0x00}, {0}},
        {{0x7F}, {0x7F}},
        {{0xC2, 0x80}, {0x80}},
        {{0xDF, 0xBF}, {0x7FF}},
        {{0xE0, 0xA0, 0x80}, {0x800}},
        {{0xED, 0x9F, 0xBF}, {0xD7FF}},
        {{0xEE, 0x80, 0x80}, {0xE000}},
        {{0xEF, 0xBF, 0xBF}, {0xFFFF}},
        {{0xF0, 0x90, 0x80, 0x80}, {0xD800, 0xDC00}},
        {{0xF4, 0x8F, 0xBF, 0xBF}, {0xDBFF, 0xDFFF}},
    };
    for (const auto& [bytes, units] : cases) {
        EXPECT_EQ(From8To16(bytes, false), (Out16{ConversionOk, bytes.size(), units}));
        EXPECT_EQ(From16To8(units, false), (Out8{ConversionOk, units.size(), bytes}));
    }
}

TEST(ConvertUtf16ToUtf8, RefusesUnpairedSurrogatesUnlessLenient) {
    EXPECT_EQ(From16To8({u'a', 0xD800, u'b'}, false), (Out8{SourceIllegal, 1, {'a'}}));
    EXPECT_EQ(From16To8({u'a', 0xDC00}, false), (Out8{SourceIllegal, 1, {'a'}}));
    EXPECT_EQ(From16To8({0xD800, u'b'}, true), (Out8{ConversionOk, 2, {0xED, 0xA0, 0x80, 'b'}}));
    EXPECT_EQ(From16To8({0xDC00}, true), (Out8{ConversionOk, 1, {0xED, 0xB0, 0x80}}));
}

TEST(ConvertUtf16ToUtf8, EncodesAHighSurrogateAtTheVeryEndEvenWhenStrict) {
    EXPECT_EQ(From16To8({u'a', 0xD83D}, false), (Out8{ConversionOk, 2, {'a', 0xED, 0xA0, 0xBD}}));
}

TEST(ConvertUtf16ToUtf8, StaysAtTheUnitThatDoesNotFit) {
    EXPECT_EQ(From16To8({u'a', 0x20AC}, false, 3), (Out8{TargetExhausted, 1, {'a'}}));
    EXPECT_EQ(From16To8({u'a', 0xD83D, 0xDE00}, false, 4), (Out8{TargetExhausted, 1, {'a'}}));
}

TEST(ConvertUtf32ToUtf16, PassesSurrogatesAndReplacesCodesThatAreTooHighWhenLenient) {
    EXPECT_EQ(From32To16({U'a', 0x1F600}, false), (Out16{ConversionOk, 2, {u'a', 0xD83D, 0xDE00}}));
    EXPECT_EQ(From32To16({0xD800}, false), (Out16{SourceIllegal, 0, {}}));
    EXPECT_EQ(From32To16({0x110000}, false), (Out16{SourceIllegal, 0, {}}));
    EXPECT_EQ(From32To16({0xD800, 0x110000, 0xFFFFFFFF}, true),
              (Out16{ConversionOk, 3, {0xD800, 0xFFFD, 0xFFFD}}));
    EXPECT_EQ(From32To16({U'a', 0x1F600}, false, 2), (Out16{TargetExhausted, 1, {u'a'}}));
}

TEST(ConvertUtf16ToUtf32, PassesUnpairedSurrogatesWhenLenient) {
    EXPECT_EQ(From16To32({u'a', 0xD83D, 0xDE00}, false), (Out32{ConversionOk, 3, {U'a', 0x1F600}}));
    EXPECT_EQ(From16To32({0xD800, u'a'}, false), (Out32{SourceIllegal, 0, {}}));
    EXPECT_EQ(From16To32({0xDC00}, false), (Out32{SourceIllegal, 0, {}}));
    EXPECT_EQ(From16To32({u'a', 0xD800}, false), (Out32{SourceExhausted, 1, {U'a'}}));
    EXPECT_EQ(From16To32({0xD800, u'a', 0xDC00, 0xD800}, true),
              (Out32{ConversionOk, 4, {0xD800, U'a', 0xDC00, 0xD800}}));
    EXPECT_EQ(From16To32({u'a', u'b'}, false, 1), (Out32{TargetExhausted, 1, {U'a'}}));
}

TEST(ConvertUtf32ToUtf8, EncodesSurrogatesWhenLenient) {
    EXPECT_EQ(From32To8({U'a', 0x1F600}, false), (Out8{ConversionOk, 2, {'a', 0xF0, 0x9F, 0x98, 0x80}}));
    EXPECT_EQ(From32To8({0xDC00}, false), (Out8{SourceIllegal, 0, {}}));
    EXPECT_EQ(From32To8({0xDC00}, true), (Out8{ConversionOk, 1, {0xED, 0xB0, 0x80}}));
    EXPECT_EQ(From32To8({0x110000}, true), (Out8{SourceIllegal, 0, {}}));
    EXPECT_EQ(From32To8({0x20AC, 0x20AC}, false, 5), (Out8{TargetExhausted, 1, {0xE2, 0x82, 0xAC}}));
}

TEST(ConvertUtf8ToUtf32, IsAlwaysStrict) {
    EXPECT_EQ(From8To32({'a', 0xF4, 0x8F, 0xBF, 0xBF}), (Out32{ConversionOk, 5, {U'a', 0x10FFFF}}));
    EXPECT_EQ(From8To32({0xED, 0xA0, 0x80}), (Out32{SourceIllegal, 0, {}}));
    EXPECT_EQ(From8To32({'a', 0xE2, 0x82}), (Out32{SourceExhausted, 1, {U'a'}}));
    EXPECT_EQ(From8To32({'a', 'b'}, 1), (Out32{TargetExhausted, 1, {U'a'}}));
}

TEST(IsLegalUtf8, AcceptsOneToFourBytes) {
    const std::array<std::uint8_t, 5> bytes = {'a', 'b', 'c', 'd', 'e'};
    EXPECT_FALSE(IsLegalUtf8(bytes.data(), 0));
    EXPECT_TRUE(IsLegalUtf8(bytes.data(), 1));
    EXPECT_FALSE(IsLegalUtf8(bytes.data(), 5));
}

TEST(IsLegalUtf8Sequence, NeedsTheWholeSequenceBeforeTheEnd) {
    const std::array<std::uint8_t, 3> euro = {0xE2, 0x82, 0xAC};
    EXPECT_TRUE(IsLegalUtf8Sequence(euro.data(), euro.data() + 3));
    EXPECT_FALSE(IsLegalUtf8Sequence(euro.data(), euro.data() + 2));
    EXPECT_FALSE(IsLegalUtf8Sequence(euro.data() + 1, euro.data() + 3));
    EXPECT_FALSE(IsLegalUtf8Sequence(euro.data(), euro.data()));
}

TEST(Utf8RangeToUtf16, ReturnsHowFarItCame) {
    const Bytes text = {'a', 'b', 0xE2, 0x82};
    std::array<char16_t, 8> target{};
    const auto cut = Utf8RangeToUtf16(text.data(), text.data() + 4, target.data(), target.data() + 8, false);
    EXPECT_EQ(cut.source, text.data() + 2);
    EXPECT_EQ(cut.target, target.data() + 2);
    const auto full = Utf8RangeToUtf16(text.data(), text.data() + 4, target.data(), target.data() + 1, false);
    EXPECT_EQ(full.source, text.data() + 1);
    EXPECT_EQ(full.target, target.data() + 1);
}

TEST(Utf8RangeToUtf16, ThrowsForAnEmptyTargetOnlyWhenThereIsASource) {
    const Bytes text = {'a', 0x80};
    std::array<char16_t, 8> target{};
    const auto empty = Utf8RangeToUtf16(text.data(), text.data(), target.data(), target.data(), false);
    EXPECT_EQ(empty.source, text.data());
    EXPECT_EQ(empty.target, target.data());
    EXPECT_EQ(MessageOf([&] {
                  return Utf8RangeToUtf16(text.data(), text.data() + 2, target.data(), target.data(), false);
              }),
              "Empty target buffer.");
    EXPECT_EQ(MessageOf([&] {
                  return Utf8RangeToUtf16(text.data(), text.data() + 2, target.data(), target.data() + 8,
                                          true);
              }),
              "Bad UTF-8 sequence.");
}

TEST(Utf16RangeToUtf8, ThrowsAsItsCounterpartDoes) {
    const std::u16string text = U16({u'a', 0xDC00});
    std::array<std::uint8_t, 8> target{};
    const char16_t* const end = text.data() + 2;
    EXPECT_EQ(Utf16RangeToUtf8(end, end, target.data(), target.data(), false).source, end);
    EXPECT_EQ(
        MessageOf([&] { return Utf16RangeToUtf8(text.data(), end, target.data(), target.data(), false); }),
        "Empty target buffer.");
    EXPECT_EQ(MessageOf([&] {
                  return Utf16RangeToUtf8(text.data(), end, target.data(), target.data() + 8, false);
              }),
              "Bad UTF-16 sequence.");
    const auto full = Utf16RangeToUtf8(text.data(), end, target.data(), target.data() + 2, true);
    EXPECT_EQ(full.source, text.data() + 1);
    EXPECT_EQ(full.target, target.data() + 1);
    const auto lenient = Utf16RangeToUtf8(text.data(), end, target.data(), target.data() + 8, true);
    EXPECT_EQ(lenient.source, end);
    EXPECT_EQ(lenient.target, target.data() + 4);
}

TEST(ToUtf8, ConvertsASurrogatePairToFourBytesAndBack) {
    EXPECT_EQ(ToUtf8(U16({0xD83D, 0xDE00})), "\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf16("\xF0\x9F\x98\x80"), U16({0xD83D, 0xDE00}));
}

TEST(ToUtf8, RefusesALoneLowSurrogateUnlessLenient) {
    EXPECT_EQ(MessageOf([] { return ToUtf8(U16({u'a', 0xDC00})); }), "Bad UTF-16 sequence.");
    EXPECT_EQ(ToUtf8(U16({0xDC00}), true), "\xED\xB0\x80");
}

TEST(ToUtf8, EncodesAHighSurrogateAtTheEnd) { EXPECT_EQ(ToUtf8(U16({0xD83D})), "\xED\xA0\xBD"); }

// An unpaired surrogate takes more room than half a pair, at every place of a long text.
TEST(ToUtf8, MakesRoomForUnpairedSurrogatesInALongText) {
    const std::u16string halves(300, char16_t{0xDC00});
    std::string expected;
    for (int i = 0; i < 300; ++i) expected += "\xED\xB0\x80";
    EXPECT_EQ(ToUtf8(halves, true), expected);
    EXPECT_EQ(ToUtf16(expected, true), halves);
    EXPECT_EQ(ToUtf8(std::u16string(300, u'x') + U16({0xD83D})), std::string(300, 'x') + "\xED\xA0\xBD");
}

TEST(ToUtf16, RefusesAnOverlongFormInBothModes) {
    EXPECT_EQ(MessageOf([] { return ToUtf16("\xC0\x80", false); }), "Bad UTF-8 sequence.");
    EXPECT_EQ(MessageOf([] { return ToUtf16("\xC0\x80", true); }), "Bad UTF-8 sequence.");
}

TEST(ToUtf16, RefusesATextThatEndsInsideASequence) {
    for (const char* const text : {"\xE2", "abc\xE2\x82", "\xF0\x9F\x98", "\xFF"}) {
        EXPECT_EQ(MessageOf([&] { return ToUtf16(text); }), "Bad UTF-8 sequence.") << text;
    }
}

TEST(ToUtf16, KeepsNulsAndEmptyTexts) {
    EXPECT_EQ(ToUtf16(""), u"");
    EXPECT_EQ(ToUtf8(u""), "");
    EXPECT_EQ(ToUtf16(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
    EXPECT_EQ(ToUtf8(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
}

// Every position of a sequence of each length, over the borders of all pieces that are converted at once.
TEST(ToUtf16, DecodesWhatItEncodedAtEveryLength) {
    const std::vector<std::u16string> characters = {u"a", u"\u00E9", u"\u20AC", U16({0xD83D, 0xDE00})};
    for (const std::u16string& character : characters) {
        for (std::size_t before = 0; before < 530; ++before) {
            std::u16string text(before, u'x');
            for (int i = 0; i < 3; ++i) text += character;
            text += u"tail";
            ASSERT_EQ(ToUtf16(ToUtf8(text)), text) << before;
        }
    }
}

TEST(ToUtf16, TellsAWholeLastCharacterFromACutOne) {
    const std::vector<std::u16string> characters = {u"\u00E9", u"\u20AC", U16({0xD83D, 0xDE00})};
    for (const std::u16string& character : characters) {
        for (std::size_t before = 0; before < 300; ++before) {
            const std::u16string text = std::u16string(before, u'x') + character;
            const std::string utf8 = ToUtf8(text);
            ASSERT_EQ(ToUtf16(utf8), text) << before;
            for (std::size_t length = before + 1; length < utf8.size(); ++length) {
                ASSERT_EQ(MessageOf([&] { return ToUtf16(utf8.substr(0, length)); }), "Bad UTF-8 sequence.");
            }
        }
    }
}

TEST(ToUtf16, FindsABadByteAtEveryPlaceOfAText) {
    for (std::size_t at = 0; at < 300; ++at) {
        std::string text(300, 'x');
        text[at] = '\x80';
        ASSERT_EQ(MessageOf([&] { return ToUtf16(text); }), "Bad UTF-8 sequence.") << at;
    }
}

TEST(ToUtf8, FindsALoneSurrogateAtEveryPlaceOfAText) {
    for (std::size_t at = 0; at < 300; ++at) {
        std::u16string text(300, u'x');
        text[at] = 0xDC00;
        ASSERT_EQ(MessageOf([&] { return ToUtf8(text); }), "Bad UTF-16 sequence.") << at;
    }
}

// The units of one code point, by the lenient converters, which lose nothing.
std::u16string Utf16Of(char32_t code) {
    std::array<char16_t, 2> units{};
    const char32_t* source = &code;
    char16_t* target = units.data();
    EXPECT_EQ(ConvertUtf32ToUtf16(source, &code + 1, target, units.data() + 2, true), ConversionOk);
    return {units.data(), target};
}

char32_t CodeOf(const std::u16string& units) {
    char32_t code = 0;
    const char16_t* source = units.data();
    char32_t* target = &code;
    EXPECT_EQ(ConvertUtf16ToUtf32(source, units.data() + units.size(), target, &code + 1, true),
              ConversionOk);
    return code;
}

TEST(ToUtf8, KeepsEveryCodePoint) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        const std::u16string units = Utf16Of(code);
        ASSERT_EQ(ToUtf16(ToUtf8(units, true), true), units);
        ASSERT_EQ(CodeOf(units), code);
    }
}

// A character in both encodings.
struct Character {
    std::u16string wide;
    std::string narrow;
};

const std::vector<Character> kCharacters = {{u"a", "a"},
                                            {u"\u00E9", "\xC3\xA9"},
                                            {u"\u8A2D", "\xE8\xA8\xAD"},
                                            {U16({0xD83D, 0xDE00}), "\xF0\x9F\x98\x80"}};

// `length` characters of `around`, with `odd` in the place `at`.
Character Text(const Character& around, const Character& odd, std::size_t length, std::size_t at) {
    Character text;
    for (std::size_t i = 0; i < length; ++i) {
        text.wide += i == at ? odd.wide : around.wide;
        text.narrow += i == at ? odd.narrow : around.narrow;
    }
    return text;
}

template <class Visit>
void ForEachMixedText(std::size_t longest, const Visit& visit) {
    for (const Character& around : kCharacters) {
        for (const Character& odd : kCharacters) {
            for (std::size_t length = 0; length <= longest; ++length) {
                for (std::size_t at = 0; at < length; ++at) visit(Text(around, odd, length, at));
            }
        }
    }
}

TEST(ToUtf8, ConvertsEveryMixtureOfEveryShortLength) {
    ForEachMixedText(40, [](const Character& text) {
        ASSERT_EQ(ToUtf8(text.wide), text.narrow);
        ASSERT_EQ(ToUtf16(text.narrow), text.wide);
    });
}

// A copy in a block of its own size, so that a read beside it shows.
template <class Unit>
class Alone {
public:
    explicit Alone(std::basic_string_view<Unit> text) : length(text.size()), units(new Unit[length]) {
        std::copy(text.begin(), text.end(), units.get());
    }
    operator std::basic_string_view<Unit>() const { return {units.get(), length}; }

private:
    std::size_t length;
    std::unique_ptr<Unit[]> units;
};

TEST(ToUtf8, ReadsNothingOutsideItsText) {
    ForEachMixedText(20, [](const Character& text) {
        ASSERT_EQ(ToUtf8(Alone<char16_t>(text.wide)), text.narrow);
        ASSERT_EQ(ToUtf16(Alone<char>(text.narrow)), text.wide);
    });
}

TEST(ToUtf8, AllocatesOnlyTheResult) {
    for (const std::size_t length : {20U, 200U, 256U, 1000U}) {
        const std::u16string wide(length, u'x');
        std::size_t before = pavane_test::AllocationCount();
        const std::string narrow = ToUtf8(wide);
        EXPECT_EQ(pavane_test::AllocationCount() - before, 1u);
        before = pavane_test::AllocationCount();
        EXPECT_EQ(ToUtf16(narrow).size(), length);
        EXPECT_EQ(pavane_test::AllocationCount() - before, 1u);
    }
}

// However much room there is, the target gets the whole characters that fit.
TEST(ConvertUtf8ToUtf16, FillsItsTargetWithWholeCharacters) {
    ForEachMixedText(20, [](const Character& text) {
        const Bytes bytes(text.narrow.begin(), text.narrow.end());
        for (std::size_t room = 0; room <= text.wide.size(); ++room) {
            const bool splitsPair =
                room > 0 && text.wide[room - 1] >= 0xD800 && text.wide[room - 1] <= 0xDBFF;
            const auto outcome = From8To16(bytes, false, room);
            ASSERT_EQ(outcome.written, std::vector<char16_t>(text.wide.begin(),
                                                             text.wide.begin() + static_cast<std::ptrdiff_t>(
                                                                                     room - splitsPair)));
            ASSERT_EQ(outcome.result, room == text.wide.size() ? ConversionOk : TargetExhausted);
        }
    });
}

TEST(ConvertUtf16ToUtf8, FillsItsTargetWithWholeCharacters) {
    ForEachMixedText(20, [](const Character& text) {
        const std::vector<char16_t> units(text.wide.begin(), text.wide.end());
        for (std::size_t room = 0; room <= text.narrow.size(); ++room) {
            std::size_t whole = room;
            while (whole < text.narrow.size() && (text.narrow[whole] & 0xC0) == 0x80) --whole;
            const auto outcome = From16To8(units, false, room);
            ASSERT_EQ(std::string(outcome.written.begin(), outcome.written.end()),
                      text.narrow.substr(0, whole));
            ASSERT_EQ(outcome.result, room == text.narrow.size() ? ConversionOk : TargetExhausted);
        }
    });
}

// A unit or byte that is illegal at every place, in texts of every kind.
TEST(ToUtf8, FindsALoneSurrogateAtEveryPlaceOfEveryKindOfText) {
    for (const Character& around : kCharacters) {
        for (std::size_t at = 0; at < 40; ++at) {
            const std::u16string before = Text(around, around, at, 0).wide;
            const std::u16string after = Text(around, around, 40 - at, 0).wide;
            ASSERT_EQ(MessageOf([&] { return ToUtf8(before + U16({0xDC00}) + after); }),
                      "Bad UTF-16 sequence.");
            ASSERT_EQ(MessageOf([&] { return ToUtf8(before + U16({0xD800}) + after); }),
                      "Bad UTF-16 sequence.");
            ASSERT_EQ(ToUtf16(ToUtf8(before + U16({0xDC00}) + after, true), true),
                      before + U16({0xDC00}) + after);
        }
    }
}

TEST(ToUtf16, FindsABadByteAtEveryPlaceOfEveryKindOfText) {
    for (const Character& around : kCharacters) {
        const std::string text = Text(around, around, 40, 0).narrow;
        for (std::size_t at = 0; at < text.size(); ++at) {
            std::string bad = text;
            bad[at] = '\xFF';
            ASSERT_EQ(MessageOf([&] { return ToUtf16(bad); }), "Bad UTF-8 sequence.") << at;
        }
    }
}

} // namespace
