#include "dictionaries/zstring/zstring.h"

#include "dictionaries/zstring/encoding.h"

#include "support/failing_allocator.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <new>
#include <string>

using kestrel::Substitute;
using kestrel::ZString;
using namespace kestrel_private;

namespace {

std::u16string Substituted(std::u16string_view text, std::uint32_t index, std::u16string_view replacement) {
    ZString string(text);
    Substitute(string, index, ZString(replacement));
    return std::u16string(string.Text());
}

class CountedObject : public RefCountObj {
public:
    explicit CountedObject(int& destroyed) : destroyed(destroyed) {}
    ~CountedObject() override { ++destroyed; }

private:
    int& destroyed;
};

TEST(RefCountObj, DestroysItselfWithItsLastReference) {
    int destroyed = 0;
    auto* const object = new CountedObject(destroyed);
    EXPECT_EQ(object->Count(), 0);
    object->AddRef();
    object->AddRef();
    object->Release();
    EXPECT_EQ(destroyed, 0);
    object->Release();
    EXPECT_EQ(destroyed, 1);
}

TEST(ByteRunValue, HasNoBytesWhenItIsEmpty) {
    const Reference<ByteRunValue> value(ByteRunValue::Copy("", 0));
    EXPECT_EQ(value->Bytes(), nullptr);
    EXPECT_EQ(value->Length(), 0u);
}

TEST(ByteRunValue, OwnsACopyInOneBlockOfMemory) {
    std::string bytes = "abc";
    const std::size_t before = pavane_test::AllocationCount();
    const Reference<ByteRunValue> value(ByteRunValue::Copy(bytes.data(), 3));
    EXPECT_EQ(pavane_test::AllocationCount() - before, 1u);
    bytes[0] = '#';
    EXPECT_EQ(std::memcmp(value->Bytes(), "abc", 3), 0);
}

TEST(ZString, SharesOneValueAmongCopiesAndAmongAllEmptyOnes) {
    const ZString text(u"abc");
    const ZString copy(text); // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_EQ(copy.Value(), text.Value());
    EXPECT_EQ(text.Value()->Count(), 2);
    EXPECT_EQ(ZString().Value(), ZString().Value());
}

TEST(ZString, KeepsItsValueWhenAssignedToItself) {
    ZString text(u"abc");
    const ZString& same = text;
    text = same;
    EXPECT_EQ(text.Text(), u"abc");
}

TEST(ZString, CountsBytesAndCharacters) {
    const ZString text(u"abc");
    EXPECT_EQ(text.ByteLength(), 6u);
    EXPECT_EQ(text.Length(), 3u);
    EXPECT_EQ(text.LengthWithTerminator(), 4u);
    EXPECT_EQ(ZString("abcde", 5).Length(), 2u);
    EXPECT_TRUE(ZString("a", 1).IsEmpty());
}

TEST(ZString, DecodesBytes) {
    EXPECT_EQ(ZString::FromBytes("\xE2\x82\xAC", &kEncodingUtf8).Text(), u"\u20AC");
    EXPECT_EQ(ZString::FromBytes("\x80", nullptr).Text(), u"\u20AC");
    const EncodingCode other = 7;
    EXPECT_EQ(ZString::FromBytes("\x80", &other).Text(), u"\u20AC");
    EXPECT_EQ(ZString::FromBytes("", &kEncodingUtf8).Text(), u"");
}

TEST(ZString, ThrowsACodeForBytesThatAreNotText) {
    try {
        (void)ZString::FromBytes("a\x80", &kEncodingUtf8);
        FAIL();
    } catch (std::int32_t code) {
        EXPECT_EQ(code, 0x6875683F);
    }
}

TEST(ZStringCopyOut, WritesOnlyTheTerminatorForACapacityOfOne) {
    std::array<char16_t, 3> buffer = {u'#', u'#', u'#'};
    ZString(u"abc").CopyOut(buffer.data(), 1, false);
    EXPECT_EQ(std::u16string(buffer.data(), 3), std::u16string(u"\0##", 3));
}

TEST(ZStringCopyOut, CutsAndThrowsWhenAsked) {
    std::array<char16_t, 4> buffer = {};
    const ZString text(u"abc");
    text.CopyOut(buffer.data(), 4, true);
    EXPECT_EQ(std::u16string(buffer.data()), u"abc");
    try {
        text.CopyOut(buffer.data(), 3, true);
        FAIL();
    } catch (std::int32_t code) {
        EXPECT_EQ(code, 0x42554646);
    }
    EXPECT_EQ(std::u16string(buffer.data()), u"ab");
    text.CopyOut(nullptr, 0, false);
    EXPECT_THROW(text.CopyOut(nullptr, 0, true), std::int32_t);
}

TEST(Substitute, ReplacesEveryPlaceholderOfItsIndex) {
    EXPECT_EQ(Substituted(u"^0 and ^0", 0, u"X"), u"X and X");
    EXPECT_EQ(Substituted(u"^1", 0, u"X"), u"^1");
    EXPECT_EQ(Substituted(u"^1^0", 1, u""), u"^0");
    EXPECT_EQ(Substituted(u"", 0, u"X"), u"");
}

TEST(Substitute, FindsAPlaceholderAtAnyPlace) {
    const std::u16string nearly = u"^\u015E\u5E30\u305E"
                                  u"0^1^";
    for (std::size_t before = 0; before < 20; ++before) {
        for (std::size_t after = 0; after < 20; ++after) {
            const auto around = [&](std::u16string_view middle) {
                std::u16string text;
                while (text.size() < before) text += nearly[text.size() % nearly.size()];
                text += middle;
                return text.append(after, u'0');
            };
            EXPECT_EQ(Substituted(around(u"^0"), 0, u"X"), around(u"X")) << before << " " << after;
            EXPECT_EQ(Substituted(around(u"^0^0"), 0, u"XYZ"), around(u"XYZXYZ")) << before << " " << after;
            EXPECT_EQ(Substituted(around(u"^2"), 0, u"X"), around(u"^2")) << before << " " << after;
        }
    }
}

TEST(Substitute, KeepsACaretBeforeAnother) {
    EXPECT_EQ(Substituted(u"^^0", 0, u"X"), u"^X");
    EXPECT_EQ(Substituted(u"^^^0^", 0, u"X"), u"^^X^");
    EXPECT_EQ(Substituted(u"^a^0^^", 0, u"X"), u"^aX^^");
    EXPECT_EQ(Substituted(u"^^", 0, u"X"), u"^^");
}

TEST(Substitute, DoesNotScanReplacements) {
    EXPECT_EQ(Substituted(u"^0", 0, u"^0^0"), u"^0^0");
    EXPECT_EQ(Substituted(u"^0"
                          u"0",
                          0, u"^"),
              u"^0");
}

TEST(Substitute, TakesAnIndexAboveNineByItsCharacterCode) {
    EXPECT_EQ(Substituted(u"^:", 10, u"X"), u"X");
    EXPECT_EQ(Substituted(u"a^^", u'^' - u'0', u"X"), u"aX");
}

TEST(Substitute, LeavesTheSameValueWhenNothingChanges) {
    ZString text(u"a ^1");
    const ByteRunValue* const before = text.Value();
    Substitute(text, 0, ZString(u"X"));
    EXPECT_EQ(text.Value(), before);
}

TEST(Substitute, RefusesAResultThatIsTooLong) {
    constexpr int kPlaceholders = 1 << 16;
    std::u16string text;
    for (int i = 0; i < kPlaceholders; ++i) text += u"^0";
    const std::u16string replacement(1 << 15, u'x');
    ZString string(text);
    EXPECT_THROW(Substitute(string, 0, ZString(replacement)), std::bad_alloc);
    EXPECT_EQ(string.Text(), text);
    std::u16string output = u"older";
    EXPECT_THROW((void)SubstituteText(text, 0, replacement, output), std::bad_alloc);
    EXPECT_EQ(output, u"older");
}

TEST(Encoding, ComparesWideTextsByUnit) {
    const EncodingFunctions& functions = FunctionsOf(nullptr);
    EXPECT_LT(functions.compare(u"a", u"b"), 0);
    EXPECT_EQ(functions.compare(u"ab", u"ab"), 0);
    EXPECT_GT(functions.compare(u"ab", u"a"), 0);
}

TEST(Encoding, MeasuresBeforeItConverts) {
    const EncodingFunctions& utf8 = FunctionsOf(&kEncodingUtf8);
    EXPECT_EQ(utf8.wideLength("\xE2\x82\xAC"
                              "a"),
              2u);
    EXPECT_EQ(utf8.bytesLengthPlusOne(u"\u20AC"
                                      u"a"),
              5u);
    std::array<char16_t, 1> wide{};
    std::array<char, 3> bytes{};
    try {
        utf8.toWide("ab", wide.data(), 1);
        FAIL();
    } catch (std::int32_t code) {
        EXPECT_EQ(code, 0x42554646);
    }
    EXPECT_THROW(utf8.toBytes(u"abcd", bytes.data(), 3), std::int32_t);
    EXPECT_EQ(utf8.toBytes(u"\u20AC", bytes.data(), 3), 3u);
    EXPECT_EQ(EncodeText(u"\u20AC", nullptr), "\x80");
}

} // namespace
