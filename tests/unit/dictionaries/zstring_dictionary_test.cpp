#include "dictionaries/zstring_dictionary.h"

#include "dictionaries/store/dictionary_entry.h"
#include "dictionaries/zstring/encoding.h"

#include "support/failing_allocator.h"
#include "unit/dictionaries/dictionary_support.h"

#include <new>
#include <sstream>
#include <string>

using kestrel::ZString;
using kestrel::ZStringDictionary;
using namespace kestrel_private;
using namespace pavane_test;

namespace {

// Runs once with blocks and once with chains.
class BothStores : public DictionaryTest, public testing::WithParamInterface<bool> {
protected:
    ZStringDictionary dictionary{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Dictionary, BothStores, testing::Bool(),
                         [](const auto& store) { return store.param ? "Fast" : "Chains"; });

class FastDictionary : public DictionaryTest {
protected:
    ZStringDictionary dictionary{true};
};

TEST_F(FastDictionary, ReportsItsFormat) {
    EXPECT_EQ(dictionary.FormatMajor(), 2u);
    EXPECT_EQ(dictionary.FormatMinor(), 5u);
    const auto chains = ZStringDictionary::Create(false);
    EXPECT_EQ(chains->FormatMajor(), 0u);
    EXPECT_EQ(chains->FormatMinor(), 0u);
    EXPECT_TRUE(chains->IsGood());
}

TEST_P(BothStores, ReturnsTheDefaultOfAnAbsentKey) {
    EXPECT_EQ(Found(dictionary, "$$$/a/b=Hello"), u"Hello");
    EXPECT_EQ(Found(dictionary, "$$$/a/b="), u"");
    EXPECT_EQ(Found(dictionary, "$$$/a/b"), u"");
    EXPECT_EQ(Found(dictionary, "plain/key=text=more"), u"text=more");
    EXPECT_EQ(Found(dictionary, "$$$/a=Size ^0^"), u"Size ^0^");
    EXPECT_EQ(Found(dictionary, "$$$/a=^Cthe #{U+0041}"), u"\u00A9the A");
}

TEST_P(BothStores, ReturnsNothingForAnInvalidKey) {
    for (const char* const keyText : {"$$/a=Hello", "$=x", "$", "$$", "$a$$=x", ""}) {
        EXPECT_EQ(Found(dictionary, keyText), u"") << keyText;
    }
    EXPECT_EQ(Found(dictionary, nullptr), u"");
    EXPECT_EQ(Found(dictionary, "$$$=x"), u"x");
}

TEST_P(BothStores, EmptiesTheResultWhenThereIsNothing) {
    for (const char* const keyText : {"", "$$/a=Hello", "/absent"}) {
        ZString found(u"older");
        dictionary.Lookup(found, keyText, nullptr);
        EXPECT_EQ(found.Value(), ZString().Value()) << keyText;
    }
}

TEST_P(BothStores, ReadsTheDefaultInItsEncoding) {
    ZString found;
    dictionary.Lookup(found, "k=\xE2\x82\xAC", &kEncodingUtf8);
    EXPECT_EQ(found.Text(), u"\u20AC");
    const EncodingCode other = 7;
    dictionary.Lookup(found, "k=\x80", &other);
    EXPECT_EQ(found.Text(), u"\u20AC");
    const EncodingCode none = 0;
    dictionary.Lookup(found, "k=a\x80", &none);
    EXPECT_EQ(found.Text(), (std::u16string{u'a', 0xFF80}));
    dictionary.Lookup(found, "k=a\xFF", nullptr);
    EXPECT_EQ(found.Text(), (std::u16string{u'a', 0xFFFF}));
    EXPECT_THROW(dictionary.Lookup(found, "k=\x80", &kEncodingUtf8), std::int32_t);
}

TEST_P(BothStores, ReturnsTheStoredValueNotTheDefault) {
    LoadText(dictionary, u"\"$$$/a/b=Stored\"\n$$$/e=\n");
    EXPECT_EQ(Found(dictionary, "$$$/a/b=Default"), u"Stored");
    EXPECT_EQ(Found(dictionary, "/a/b"), u"Stored");
    EXPECT_EQ(Found(dictionary, "$$$/a/B=Default"), u"Default");
    EXPECT_EQ(Found(dictionary, "$$$/e=Default"), u"");
}

TEST_P(BothStores, TakesTheTextInQuotes) {
    LoadText(dictionary, u"\"$$$/a=x\" trailing words\n"
                         u"leading \"$$$/b=y\"\n"
                         u"\"$$$/c=say \\\"hi\\\"\"\n"
                         u"\"$$$/d=open\n"
                         u"$$$/e=no quotes\n"
                         u"/f=no mark\n"
                         u"\"$$$/g=back\\\\\" on\"\n"
                         u"\\\"$$$/h=x\"y=z\n");
    EXPECT_TRUE(dictionary.IsGood());
    EXPECT_EQ(Found(dictionary, "/a"), u"x");
    EXPECT_EQ(Found(dictionary, "/b"), u"y");
    EXPECT_EQ(Found(dictionary, "/c"), u"say \"hi\"");
    EXPECT_EQ(Found(dictionary, "/d"), u"open");
    EXPECT_EQ(Found(dictionary, "/e"), u"no quotes");
    EXPECT_EQ(Found(dictionary, "/f"), u"no mark");
    EXPECT_EQ(Found(dictionary, "/g"), u"back\\\" on");
    EXPECT_EQ(Found(dictionary, "y"), u"z");
}

TEST_P(BothStores, ContinuesAfterABadLine) {
    LoadText(dictionary, u"$$$/a=1\n$$/b=2\n$$$/c=3\n");
    EXPECT_FALSE(dictionary.IsGood());
    EXPECT_EQ(Found(dictionary, "/a"), u"1");
    EXPECT_EQ(Found(dictionary, "/b"), u"");
    EXPECT_EQ(Found(dictionary, "/c"), u"3");
    LoadText(dictionary, u"$$$/d=4");
    EXPECT_FALSE(dictionary.IsGood()) << "the status is never good again";
}

TEST_P(BothStores, ClearsItsStatusForBytesThatAreNotText) {
    for (const std::string bytes : {"", "a"}) {
        ZStringDictionary other(GetParam());
        LoadBytes(other, bytes);
        EXPECT_FALSE(other.IsGood());
    }
    dictionary.Load(nullptr, 10, true);
    EXPECT_FALSE(dictionary.IsGood());
    ZStringDictionary third(GetParam());
    third.Load("abc", -1, true);
    EXPECT_FALSE(third.IsGood());
}

TEST_P(BothStores, ReadsEveryByteOrder) {
    LoadBytes(dictionary, BigEndian(u"\"$$$/a=\u20AC\""));
    LoadBytes(dictionary, "$$$/b=\x80");
    EXPECT_EQ(Found(dictionary, "/a"), u"\u20AC");
    EXPECT_EQ(Found(dictionary, "/b"), u"\u20AC");
}

TEST_P(BothStores, CutsAQuotedValueAtALineSeparator) {
    LoadText(dictionary, u"\"$$$/a=one\u2028two\"\n");
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
}

TEST_P(BothStores, NarrowsKeysToTheirLowBytes) {
    LoadText(dictionary, u"$$$/\u0141=1\n");
    EXPECT_EQ(Found(dictionary, "/A"), u"1");
    LoadText(dictionary, u"$$$/A=2\n");
    EXPECT_EQ(Found(dictionary, "/A"), u"2");
    LoadText(dictionary, u"$$$/\u00E9=3\n");
    EXPECT_EQ(Found(dictionary, "/\xE9"), u"3");
}

TEST_P(BothStores, ReplacesValuesOfAnEarlierLoad) {
    LoadText(dictionary, u"$$$/a=one\n$$$/b=two\n");
    LoadText(dictionary, u"$$$/a=another one\n");
    EXPECT_EQ(Found(dictionary, "/a"), u"another one");
    EXPECT_EQ(Found(dictionary, "/b"), u"two");
}

TEST_P(BothStores, HoldsManyEntries) {
    std::u16string text;
    for (int i = 0; i < 2000; ++i) {
        const std::string number = std::to_string(i);
        text += u"$$$/app/pane/" + std::u16string(number.begin(), number.end()) + u"=v" +
                std::u16string(number.begin(), number.end()) + u"\n";
    }
    LoadText(dictionary, text + text);
    for (int i = 0; i < 2000; ++i) {
        const std::string number = std::to_string(i);
        ASSERT_EQ(Found(dictionary, ("/app/pane/" + number).c_str()),
                  u"v" + std::u16string(number.begin(), number.end()));
    }
}

TEST_P(BothStores, SurvivesEveryCutOfAText) {
    const std::string little = LittleEndian(u"\"$$$/a=^C#{endl}\\\"\"\r\n$$$/b=#{U+0041}^");
    for (const std::string& bytes :
         {little, BigEndian(u"\"$$$/a=#{\"\n$$/b"), std::string("\"$$$/a=\x80#{\"\\")}) {
        for (std::size_t length = 0; length <= bytes.size(); ++length) {
            LoadBytes(dictionary, std::string(bytes, 0, length));
        }
    }
    EXPECT_EQ(Found(dictionary, "/b"), u"A^");
}

TEST_F(FastDictionary, AddsAnEmptyKeyForALineOfEquals) {
    LoadText(dictionary, u"=");
    EXPECT_TRUE(dictionary.IsGood());
    EXPECT_EQ(dictionary.Entries().TotalIds(), 1u);
    EXPECT_EQ(Found(dictionary, "="), u"");
}

TEST_F(FastDictionary, AddsAKeyTextsKey) {
    EXPECT_EQ(AddText(dictionary, "$$$/a=ignored", u"one"), 0);
    EXPECT_EQ(AddText(dictionary, "/b", u"two"), 1);
    EXPECT_EQ(AddText(dictionary, "$$$/a", u"new"), 0);
    EXPECT_EQ(dictionary.Entries().TotalIds(), 2u);
    EXPECT_EQ(Found(dictionary, "$$$/a=x"), u"new");
    EXPECT_EQ(Found(dictionary, "$$$/b=x"), u"two");
}

TEST_F(FastDictionary, RefusesAnInvalidKey) {
    EXPECT_EQ(dictionary.Add(nullptr, u"x", 1, 0, nullptr, 0), -1);
    EXPECT_EQ(AddText(dictionary, "", u"x"), -1);
    EXPECT_EQ(AddText(dictionary, "$$/a", u"x"), -1);
    EXPECT_EQ(AddText(dictionary, std::string(65536, 'k'), u"x"), -1);
    EXPECT_EQ(AddText(dictionary, std::string(65535, 'k'), u"x"), 0);
    EXPECT_TRUE(dictionary.IsGood());
    const auto chains = ZStringDictionary::Create(false);
    EXPECT_EQ(AddText(*chains, "/a", u"x"), -1);
}

TEST_F(FastDictionary, CutsLongValues) {
    const std::u16string value(40000, u'x');
    AddText(dictionary, "/a", value);
    EXPECT_EQ(Found(dictionary, "/a").size(), 32767u);
    LoadText(dictionary, u"$$$/b=" + value);
    EXPECT_EQ(Found(dictionary, "/b").size(), 32767u);
    std::u16string pairs;
    for (int i = 0; i < 20000; ++i) pairs += u"\U0001F600";
    AddText(dictionary, "/c", pairs);
    EXPECT_EQ(Found(dictionary, "/c").size(), 32766u);
}

TEST_F(FastDictionary, ClearsItsStatusForAKeyThatIsTooLong) {
    LoadText(dictionary, std::u16string(70000, u'k') + u"=x\n$$$/a=1");
    EXPECT_FALSE(dictionary.IsGood());
    EXPECT_EQ(Found(dictionary, "/a"), u"1");
}

TEST_F(FastDictionary, KeepsANote) {
    EXPECT_EQ(dictionary.Add("/a", u"v", 1, 0, u"note", 4), 0);
    const auto note = dictionary.Entries().Note(0);
    ASSERT_TRUE(note.has_value());
    EXPECT_EQ(ZString(note->bytes, note->length).Text(), u"note");
}

TEST_F(FastDictionary, AsksTheFallbackBeforeTheDefault) {
    {
        ZStringDictionary fallback(true);
        LoadText(fallback, u"$$$/a=fallback\n$$$/b=fallback\n");
        LoadText(dictionary, u"$$$/b=own\n");
        State().fallback = &fallback;
        EXPECT_EQ(Found(dictionary, "$$$/a=default"), u"fallback");
        EXPECT_EQ(Found(dictionary, "$$$/b=default"), u"own");
        EXPECT_EQ(Found(fallback, "$$$/c=default"), u"default");
    }
    EXPECT_EQ(State().fallback, nullptr) << "a dictionary clears the slot that holds it";
    EXPECT_EQ(Found(dictionary, "$$$/a=default"), u"default");
}

TEST_P(BothStores, AsksAFallbackWithEitherStore) {
    for (const bool isFast : {false, true}) {
        ZStringDictionary fallback(isFast);
        LoadText(fallback, u"$$$/a=fallback\n$$$/b=fallback\n");
        LoadText(dictionary, u"$$$/b=own\n");
        State().fallback = &fallback;
        EXPECT_EQ(Found(dictionary, "$$$/a=default"), u"fallback");
        EXPECT_EQ(Found(dictionary, "$$$/b=default"), u"own");
    }
}

TEST_F(FastDictionary, LeavesAFallbackSlotThatHoldsAnother) {
    State().fallback = &dictionary;
    ZStringDictionary::Create(true).reset();
    EXPECT_EQ(State().fallback, &dictionary);
}

TEST_F(FastDictionary, LeaksNothingWhenMemoryRunsOutInALoad) {
    std::u16string text;
    for (int i = 0; i < 30; ++i)
        text += u"\"$$$/key/" + std::u16string(1, static_cast<char16_t>(u'A' + i)) + u"=^C value\"\n";
    const std::string bytes = LittleEndian(text);
    const std::size_t failures = ForEveryFailingAllocation([&] {
        try {
            ZStringDictionary loaded(true);
            LoadBytes(loaded, bytes);
            ZString found;
            loaded.Lookup(found, "$$$/absent=some default text", &kEncodingUtf8);
        } catch (const std::bad_alloc&) {
            // The caller checks that nothing is leaked.
        }
    });
    EXPECT_GT(failures, 60u);
}

TEST(ByteRunKey, OwnsACopyWhenItIsCopied) {
    std::string bytes = "key";
    const ByteRunKey borrowed(bytes, ByteRunKey::Bytes::kBorrowed);
    const ByteRunKey copy(borrowed);
    EXPECT_FALSE(borrowed.OwnsKey());
    EXPECT_TRUE(copy.OwnsKey());
    EXPECT_TRUE(copy.Equals(borrowed));
    EXPECT_EQ(copy.Hash(1021), borrowed.Hash(1021));
    bytes[0] = 'K';
    EXPECT_FALSE(copy.Equals(borrowed));
    EXPECT_EQ(copy.Key(), "key");
}

TEST(ByteRunKey, WritesItsBytesByEveryWriterOfTheBase) {
    const ByteRunKey key("key", ByteRunKey::Bytes::kCopied);
    std::ostringstream stream;
    EXPECT_EQ(key.WriteKey(stream, true), 3u);
    EXPECT_EQ(key.WriteValue(stream, true, nullptr, ByteOrder::kNative), 3u);
    EXPECT_EQ(stream.str(), "keykey");
}

std::string Written(const DictionaryEntry& entry, std::size_t expected, const auto& write) {
    std::ostringstream stream;
    EXPECT_EQ(write(entry, stream), expected);
    return stream.str();
}

std::string Units(std::u16string_view text) { return LittleEndian(text).substr(2); }

TEST(DictionaryEntry, WritesALineOfText) {
    const DictionaryEntry entry("/a", ZString(u"say \"hi\"\r\n\u20AC"));
    EXPECT_EQ(Written(entry, 0, [](auto& e, auto& s) { return e.Write(s, false, nullptr); }),
              Units(u"\"/a=say \\\"hi\\\"\\r\\n\u20AC\"\r\n"));
    EXPECT_EQ(Written(entry, 0, [](auto& e, auto& s) { return e.WriteKey(s, false); }), Units(u"\"/a="));
}

TEST(DictionaryEntry, WritesRawBytes) {
    const DictionaryEntry entry("/a", ZString(u"x\u20AC"));
    EXPECT_EQ(Written(entry, 2, [](auto& e, auto& s) { return e.WriteKey(s, true); }), "/a");
    EXPECT_EQ(Written(entry, 6, [](auto& e, auto& s) { return e.Write(s, true, nullptr); }),
              "/a" + Units(u"x\u20AC"));
    EXPECT_EQ(Written(entry, 6, [](auto& e, auto& s) { return e.Write(s, true, &kEncodingUtf8); }),
              "/ax\xE2\x82\xAC");
    EXPECT_EQ(Written(entry, 4,
                      [](auto& e, auto& s) { return e.WriteValue(s, true, nullptr, ByteOrder::kSwapped); }),
              std::string("\0x\x20\xAC", 4));
}

TEST_F(FastDictionary, ReadsBackWhatAnEntryWrote) {
    const DictionaryEntry entry("/a", ZString(u"say \"hi\"\r\n\u20AC"));
    std::ostringstream stream;
    entry.Write(stream, false, nullptr);
    LoadBytes(dictionary, "\xFF\xFE" + stream.str());
    EXPECT_EQ(Found(dictionary, "/a"), entry.Value().Text());
}

} // namespace
