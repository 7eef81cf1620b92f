// Reading one compiled dictionary of version 2 that is sound.
#include "unit/dictionaries/files/binary_support.h"

#include "dictionaries/translation.h"

using namespace pavane_test;
using kestrel_private::KeyBucket;

namespace {

class BinaryBlock : public DictionaryTest {};

TEST_F(BinaryBlock, IsReadFieldByField) {
    // Two entries in two buckets, one note, written out by hand.
    const std::string bytes = FieldWriter(std::endian::little)
                                  .Bytes("ZString Binary Format")
                                  .U8(2)
                                  .U8(1)
                                  .U8(99) // version 2.1; the conversion code has no meaning
                                  .U8(0)  // little-endian
                                  .U32(3)
                                  .Bytes("abc") // header text
                                  .U32(0)
                                  .U8('Y') // first id, has keys
                                  .U32(2)
                                  .U32(2)
                                  .U32(2) // entries, live, lists
                                  .U32(3)
                                  .U32(6) // bytes of keys and of values
                                  .U32(0)
                                  .U32(1)
                                  .U16(1)
                                  .U16(2) // keys: "k" and "lm"
                                  .U32(2)
                                  .U32(0)
                                  .U16(4)
                                  .U16(2) // values: the second first
                                  .Bytes("klm")
                                  .Units(u"ZXY")
                                  .U16(KeyBucket("k"))
                                  .U16(KeyBucket("lm"))
                                  .U32(1)
                                  .U32(1)
                                  .U32(0)
                                  .U32(1)
                                  .U32(1)
                                  .U32(4) // one note of four bytes
                                  .U32(1)
                                  .U32(0)
                                  .U16(4)
                                  .Units(u"no")
                                  .Written();
    const Loaded dictionary(bytes);
    EXPECT_TRUE(dictionary.IsGood());
    EXPECT_EQ(Found(dictionary, "k"), u"XY");
    EXPECT_EQ(Found(dictionary, "lm"), u"Z");
    EXPECT_EQ(NoteOfId(dictionary, 0), u"no note");
    EXPECT_EQ(NoteOfId(dictionary, 1), u"no");
    EXPECT_EQ(dictionary.HeaderText(), "abc");
    EXPECT_EQ(dictionary.Entries().TotalIds(), 2u);
    EXPECT_EQ(dictionary.Entries().LiveEntries(), 2u);
}

TEST_F(BinaryBlock, IsReadInEitherByteOrder) {
    for (const std::endian order : {std::endian::little, std::endian::big}) {
        const Loaded dictionary(
            {.entries = kEntries, .notes = {{0, u"n"}, {2, u"n\u00F6"}}, .order = order, .headerText = "ab"});
        EXPECT_EQ(Found(dictionary, "/a"), u"one");
        EXPECT_EQ(Found(dictionary, "/b/longer"), u"zw\u00F6lf");
        EXPECT_EQ(Found(dictionary, "/c=default"), u"");
        EXPECT_EQ(Found(dictionary, "/d=default"), u"default");
        EXPECT_EQ(NoteOfId(dictionary, 0), u"n");
        EXPECT_EQ(NoteOfId(dictionary, 1), u"no note");
        EXPECT_EQ(NoteOfId(dictionary, 2), u"n\u00F6");
        EXPECT_EQ(dictionary.HeaderText(), "ab");
        EXPECT_TRUE(dictionary.IsGood());
    }
}

TEST_F(BinaryBlock, TakesOnlyTheLowBitOfTheByteOrder) {
    std::string bytes = BinaryFile{.entries = kEntries, .order = std::endian::big}.Written();
    bytes[24] = '\x55';
    EXPECT_EQ(Found(Loaded(bytes), "/a"), u"one");
    bytes = BinaryFile{.entries = kEntries}.Written();
    bytes[24] = '\xAA';
    EXPECT_EQ(Found(Loaded(bytes), "/a"), u"one");
}

TEST_F(BinaryBlock, OfMinorZeroHasNoByteOrder) {
    const Loaded dictionary(BinaryFile{.entries = kEntries, .minor = 0});
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
}

TEST_F(BinaryBlock, IsReadOfEveryMinor) {
    for (const int minor : {0, 1, 2, 5, 126, 127}) {
        const Loaded dictionary(BinaryFile{.entries = kEntries, .minor = minor});
        EXPECT_EQ(Found(dictionary, "/b/longer"), u"zw\u00F6lf") << minor;
        EXPECT_EQ(dictionary.FormatMajor(), 2u);
        EXPECT_EQ(dictionary.FormatMinor(), 5u);
    }
}

TEST_F(BinaryBlock, OfAnotherVersionLoadsNothingAndKeepsTheStatus) {
    const std::string body = BinaryFile{.entries = kEntries}.Written().substr(24);
    const std::pair<int, int> versions[] = {{2, -1}, {2, -128}, {3, 0},  {0, 0},
                                            {1, 1},  {1, 4},    {1, -5}, {255, 1}};
    for (const auto& [major, minor] : versions) {
        const Loaded dictionary(Header(major, minor) + body);
        EXPECT_TRUE(dictionary.IsGood());
        EXPECT_EQ(dictionary.Entries().TotalIds(), 0u) << major << '.' << minor;
    }
}

TEST_F(BinaryBlock, ClearsTheStatusWhenNothingFollowsTheHeader) {
    const std::string header = Header(2, 1);
    EXPECT_FALSE(Loaded(std::string("ZString Binary Format")).IsGood());
    EXPECT_FALSE(Loaded(header.substr(0, 22)).IsGood());
    EXPECT_FALSE(Loaded(header).IsGood());
    EXPECT_FALSE(Loaded(Header(9, 9)).IsGood());
    EXPECT_TRUE(Loaded(header + '\0').IsGood());
}

TEST_F(BinaryBlock, WithAWrongByteInTheMagicIsText) {
    std::string bytes = BinaryFile{.entries = kEntries}.Written();
    bytes[20] = 'T';
    const Loaded dictionary(bytes);
    EXPECT_EQ(Found(dictionary, "/a=default"), u"default");
    // The text reader takes the text before the first NUL as a key.
    EXPECT_EQ(dictionary.Entries().TotalIds(), 1u);
}

TEST_F(BinaryBlock, TurnsADictionaryOfChainsIntoAFastOne) {
    const Loaded dictionary(BinaryFile{.entries = kEntries}.Written(), false);
    EXPECT_TRUE(dictionary.IsFast());
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
}

TEST_F(BinaryBlock, WithoutLiveEntriesIsDroppedAndItsHeaderTextKept) {
    Loaded dictionary(BinaryFile{.headerText = "kept"});
    EXPECT_EQ(dictionary.HeaderText(), "kept");
    EXPECT_EQ(dictionary.Entries().BlockCount(), 0u);
    LoadBytes(dictionary, BinaryFile{.entries = kEntries, .headerText = "newer", .liveCount = 0}.Written());
    EXPECT_EQ(dictionary.HeaderText(), "newer");
    EXPECT_EQ(dictionary.Entries().TotalIds(), 0u);
    EXPECT_EQ(Found(dictionary, "/a=default"), u"default");
}

TEST_F(BinaryBlock, WithACutHeaderTextKeepsTheOlderOne) {
    Loaded dictionary(BinaryFile{.entries = kEntries, .headerText = "older"});
    const std::string bytes = BinaryFile{.entries = {{"/n", u"new"}}, .headerText = "newer text"}.Written();
    for (const std::size_t length : {25u, 28u, 29u, 30u, 38u}) LoadBytes(dictionary, bytes.substr(0, length));
    EXPECT_EQ(dictionary.HeaderText(), "older");
    EXPECT_TRUE(dictionary.IsGood());
    LoadBytes(dictionary, bytes.substr(0, 39));
    EXPECT_EQ(dictionary.HeaderText(), "newer text");
    EXPECT_EQ(dictionary.Entries().TotalIds(), 3u);
}

TEST_F(BinaryBlock, ReplacesTheHeaderTextByAnEmptyOne) {
    Loaded dictionary(BinaryFile{.entries = kEntries, .headerText = "older"});
    LoadBytes(dictionary, BinaryFile{}.Written().substr(0, 29));
    EXPECT_EQ(dictionary.HeaderText(), "older") << "the file ends at the length, which is 0";
    LoadBytes(dictionary, BinaryFile{.entries = {{"/n", u"new"}}}.Written());
    EXPECT_EQ(dictionary.HeaderText(), "");
}

TEST_F(BinaryBlock, WithoutKeysHasValuesThatNoLookupReaches) {
    const Loaded dictionary(BinaryFile{.entries = kEntries, .notes = {{1, u"note"}}, .hasKeys = 'N'});
    EXPECT_EQ(ValueOfId(dictionary, 0), u"one");
    EXPECT_EQ(ValueOfId(dictionary, 1), u"zw\u00F6lf");
    EXPECT_EQ(NoteOfId(dictionary, 1), u"note");
    EXPECT_EQ(Found(dictionary, "/a=default"), u"default");
    EXPECT_EQ(dictionary.Entries().LiveEntries(), 3u);
}

TEST_F(BinaryBlock, WithoutKeysHasNoListsWhateverTheirCount) {
    for (const std::uint32_t count : {0u, 1021u, 1022u, 0xFFFFFFFFu}) {
        const Loaded dictionary(
            BinaryFile{.entries = kEntries, .notes = {{1, u"note"}}, .hasKeys = 'N', .listCount = count});
        EXPECT_EQ(ValueOfId(dictionary, 1), u"zw\u00F6lf");
        EXPECT_EQ(NoteOfId(dictionary, 1), u"note");
    }
}

TEST_F(BinaryBlock, HasKeysWhenItsMarkIsUnknown) {
    EXPECT_EQ(Found(Loaded(BinaryFile{.entries = kEntries, .hasKeys = '?'}), "/a"), u"one");
}

TEST_F(BinaryBlock, CountsAnEntryWithoutAKeyAsDropped) {
    const Loaded dictionary(BinaryFile{.entries = {{"", u"lost"}, {"/a", u"one"}}, .liveCount = 1});
    EXPECT_EQ(ValueOfId(dictionary, 0), u"");
    EXPECT_EQ(ValueOfId(dictionary, 1), u"one");
    EXPECT_EQ(dictionary.Entries().LiveEntries(), 1u);
}

TEST_F(BinaryBlock, CanBeChangedLikeOneThatWasAddedEntryByEntry) {
    Loaded dictionary(BinaryFile{.entries = kEntries, .notes = {{1, u"note"}}});
    EXPECT_EQ(AddText(dictionary, "/a", u"a much longer value"), 0);
    EXPECT_EQ(AddText(dictionary, "/b/longer", u"short"), 1);
    EXPECT_EQ(AddText(dictionary, "/new", u"new"), 3);
    EXPECT_EQ(dictionary.Add("/b/longer", u"x", 1, 0, u"a longer note", 13), 1);
    EXPECT_EQ(dictionary.Add("/a", u"y", 1, 0, u"dropped", 7), 0);
    EXPECT_EQ(Found(dictionary, "/a"), u"y");
    EXPECT_EQ(Found(dictionary, "/b/longer"), u"x");
    EXPECT_EQ(Found(dictionary, "/new"), u"new");
    EXPECT_EQ(NoteOfId(dictionary, 0), u"no note");
    EXPECT_EQ(NoteOfId(dictionary, 1), u"a longer note");
}

TEST_F(BinaryBlock, WithValuesThatShareBytesChangesBothInPlace) {
    Loaded dictionary(
        BinaryFile{.entries = {{"/a", u"same"}, {"/b", u""}}, .valuePlaces = {{{0, 8}, {0, 8}}}});
    AddText(dictionary, "/a", u"ours");
    EXPECT_EQ(Found(dictionary, "/b"), u"ours");
    AddText(dictionary, "/a", u"longer than it was");
    EXPECT_EQ(Found(dictionary, "/b"), u"ours");
}

TEST_F(BinaryBlock, MayHaveValuesThatBeginOrEndInTheMiddleOfAUnit) {
    const std::string bytes = BinaryFile{.entries = {{"/a", u"ABC"}, {"/b", u""}, {"/c", u""}},
                                         .valuePlaces = {{{1, 4}, {2, 3}, {0, 1}}}}
                                  .Written();
    const Loaded dictionary(bytes);
    EXPECT_EQ(Found(dictionary, "/a"), u"\u4200\u4300");
    EXPECT_EQ(Found(dictionary, "/b"), u"B");
    EXPECT_EQ(Found(dictionary, "/c=default"), u"");
    brixen::zeve::PopulateDictionary(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    EXPECT_EQ(brixen::zeve::ZeveTranslate("/a"), "\xE4\x88\x80\xE4\x8C\x80");
    EXPECT_EQ(brixen::zeve::ZeveTranslate("/a", 0, "x"), "\xE4\x88\x80\xE4\x8C\x80");
    EXPECT_EQ(brixen::zeve::ZeveTranslate("/b"), "B");
}

} // namespace
