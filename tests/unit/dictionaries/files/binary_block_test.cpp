// Reading one compiled dictionary of version 2, right and wrong.
#include "unit/dictionaries/files/binary_support.h"

#include "dictionaries/translation.h"
#include "support/failing_allocator.h"

#include <memory>

using namespace pavane_test;
using kestrel::ZStringDictionary;
using kestrel_private::KeyBucket;

namespace {

const std::vector<std::pair<std::string, std::u16string>> kEntries = {
    {"/a", u"one"}, {"/b/longer", u"zw\u00F6lf"}, {"/c", u""}};

struct Loaded : ZStringDictionary {
    explicit Loaded(const std::string& bytes, bool fast = true) : ZStringDictionary(fast) {
        // A copy of exactly this size, freed after the load: the store may neither read past it nor keep it.
        const std::unique_ptr<char[]> copy(new char[bytes.size()]);
        bytes.copy(copy.get(), bytes.size());
        LoadBytes(*this, {copy.get(), bytes.size()});
    }
    explicit Loaded(const BinaryFile& file) : Loaded(file.Written()) {}
};

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

// --- Cut files

std::vector<BinaryFile> SamplesWithEveryField() {
    BinaryFile file{.entries = kEntries, .notes = {{0, u"first"}, {2, u"second"}}, .headerText = "text"};
    BinaryFile big = file;
    big.order = std::endian::big;
    BinaryFile old = file;
    old.minor = 0;
    BinaryFile keyless = file;
    keyless.hasKeys = 'N';
    return {file, big, old, keyless};
}

TEST_F(BinaryBlock, CutAnywhereKeepsItsCountsAndWholeEntries) {
    for (const BinaryFile& file : SamplesWithEveryField()) {
        const std::string bytes = file.Written();
        for (std::size_t length = 2; length < bytes.size(); ++length) {
            Loaded dictionary(bytes.substr(0, length));
            EXPECT_EQ(dictionary.IsGood(), length > 24 || length < 21) << length;
            for (std::uint32_t id = 0; id < 3; ++id) {
                const std::u16string value = ValueOfId(dictionary, id);
                EXPECT_TRUE(value.empty() || value == kEntries[id].second) << length;
                const std::u16string found = Found(dictionary, kEntries[id].first.c_str());
                EXPECT_TRUE(found.empty() || found == kEntries[id].second) << length;
            }
            // The store can still be used.
            AddText(dictionary, "/a", u"mended, and longer");
            EXPECT_EQ(Found(dictionary, "/a"), u"mended, and longer") << length;
        }
    }
}

TEST_F(BinaryBlock, CutAfterItsCountsHasIdsWithoutTexts) {
    const std::string bytes = BinaryFile{.entries = kEntries}.Written();
    constexpr std::size_t kAfterLiveCount = 29 + 4 + 1 + 4 + 4;
    EXPECT_EQ(Loaded(bytes.substr(0, kAfterLiveCount - 1)).Entries().TotalIds(), 0u);
    const Loaded dictionary(bytes.substr(0, kAfterLiveCount));
    EXPECT_EQ(dictionary.Entries().TotalIds(), 3u);
    EXPECT_EQ(dictionary.Entries().LiveEntries(), 3u);
    EXPECT_EQ(ValueOfId(dictionary, 0), u"");
}

TEST_F(BinaryBlock, CutAfterItsListsStillAnswers) {
    const std::string bytes = BinaryFile{.entries = kEntries}.Written();
    const Loaded dictionary(bytes.substr(0, bytes.size() - 4));
    for (const auto& [key, value] : kEntries) EXPECT_EQ(Found(dictionary, (key + "=default").c_str()), value);
}

TEST_F(BinaryBlock, CutInItsNotesStillAnswers) {
    const std::string bytes = BinaryFile{.entries = kEntries, .notes = {{0, u"note"}}}.Written();
    const Loaded dictionary(bytes.substr(0, bytes.size() - 1));
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
    EXPECT_EQ(NoteOfId(dictionary, 0), u"");
}

TEST_F(BinaryBlock, IgnoresBytesAfterItsEnd) {
    EXPECT_EQ(Found(Loaded(BinaryFile{.entries = kEntries}.Written() + "more"), "/a"), u"one");
}

// --- Wrong numbers

TEST_F(BinaryBlock, HasAbsentTextsWhereOffsetsAndLengthsLeaveTheirArea) {
    const std::vector<std::vector<BinaryFile::Text>> places = {
        {{7, 0xFFFE}, {0xFFFFFFFF, 2}, {0xFFFFFFFE, 0xFFFF}},
        {{16, 2}, {15, 2}, {17, 0}},
    };
    for (const auto& wrong : places) {
        const Loaded values(BinaryFile{.entries = kEntries, .valuePlaces = wrong});
        const Loaded keys(BinaryFile{.entries = kEntries, .keyPlaces = wrong});
        for (std::uint32_t id = 0; id < 3; ++id) {
            EXPECT_EQ(ValueOfId(values, id), u"");
            EXPECT_EQ(ValueOfId(keys, id), u"");
            EXPECT_EQ(Found(values, kEntries[id].first.c_str()), u"");
            EXPECT_EQ(Found(keys, (kEntries[id].first + "=default").c_str()), u"default");
        }
    }
}

TEST_F(BinaryBlock, WithCountsBeyondTheFileReadsNothingAfterThem) {
    for (const std::uint32_t count : {4u, 1000u, 0x40000000u, 0xFFFFFFFFu}) {
        Loaded dictionary(BinaryFile{.entries = kEntries, .entryCount = count});
        EXPECT_EQ(dictionary.Entries().TotalIds(), count);
        EXPECT_EQ(ValueOfId(dictionary, 0), u"");
        EXPECT_EQ(Found(dictionary, "/a=default"), u"default");
        EXPECT_EQ(AddText(dictionary, "/a", u"mended"), static_cast<std::int32_t>(count));
        EXPECT_EQ(Found(dictionary, "/a=default"), count == 0xFFFFFFFF ? u"default" : u"mended");
    }
}

TEST_F(BinaryBlock, RefusesALineWhenNoIdIsLeft) {
    Loaded dictionary(BinaryFile{.entries = kEntries, .entryCount = 0xFFFFFFFF});
    EXPECT_TRUE(dictionary.IsGood());
    LoadText(dictionary, u"/new=x");
    EXPECT_FALSE(dictionary.IsGood());
    EXPECT_EQ(dictionary.Entries().TotalIds(), 0xFFFFFFFFu);
}

TEST_F(BinaryBlock, WithMoreListsThanBucketsReadsNoList) {
    std::vector<BinaryFile::List> lists(1022, {5, {}});
    lists[0] = {KeyBucket("/a"), {0}};
    EXPECT_EQ(Found(Loaded(BinaryFile{.entries = kEntries, .lists = lists}), "/a=default"), u"default");
    lists.pop_back();
    EXPECT_EQ(Found(Loaded(BinaryFile{.entries = kEntries, .lists = lists}), "/a=default"), u"one");
}

TEST_F(BinaryBlock, SkipsListsOfBucketsThatDoNotExist) {
    for (const std::uint32_t bucket : {1021u, 1022u, 0xFFFFu}) {
        const Loaded dictionary(
            BinaryFile{.entries = kEntries, .lists = {{{bucket, {1, 2}}, {KeyBucket("/a"), {0}}}}});
        EXPECT_EQ(Found(dictionary, "/a"), u"one");
        EXPECT_EQ(Found(dictionary, "/b/longer=default"), u"default");
    }
}

TEST_F(BinaryBlock, KeepsTheListsBeforeOneThatDoesNotFit) {
    std::string bytes =
        BinaryFile{.entries = kEntries, .lists = {{{KeyBucket("/a"), {0}}, {KeyBucket("/c"), {2}}}}}
            .Written();
    // The size of the second list, before both ids and the note count.
    bytes.replace(bytes.size() - 16, 4, "\xFF\xFF\xFF\xFF");
    const Loaded dictionary(bytes);
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
    EXPECT_EQ(Found(dictionary, "/c=default"), u"default");
}

TEST_F(BinaryBlock, ReadsNoNotesAfterAListThatDoesNotFit) {
    std::string bytes =
        BinaryFile{.entries = kEntries, .lists = {{{KeyBucket("/a"), {0}}, {KeyBucket("/c"), {1}}}}}
            .Written();
    bytes.replace(bytes.size() - 16, 4, "\xFF\xFF\xFF\xFF");
    // Without the second list, its id and the bytes after it would be one note of the first entry.
    bytes += FieldWriter(std::endian::little).U32(0).U32(0).U16(0).Written();
    EXPECT_EQ(NoteOfId(Loaded(bytes), 0), u"no note");
}

TEST_F(BinaryBlock, CountsNoMoreLiveEntriesThanTheirNumberHolds) {
    Loaded dictionary(BinaryFile{.entries = {{"/a", u"one"}}, .liveCount = UINT32_MAX});
    LoadBytes(dictionary, BinaryFile{.entries = {{"/b", u"two"}}, .liveCount = 2}.Written());
    EXPECT_EQ(dictionary.Entries().LiveEntries(), UINT32_MAX);
    EXPECT_EQ(Found(dictionary, "/b"), u"two");
}

TEST_F(BinaryBlock, KeepsTheLargestLiveCountWhenAnEntryIsAdded) {
    Loaded dictionary(BinaryFile{.entries = {{"/a", u"one"}}, .liveCount = UINT32_MAX});
    EXPECT_EQ(AddText(dictionary, "/b", u"two"), 1);
    EXPECT_EQ(dictionary.Entries().LiveEntries(), UINT32_MAX);
    EXPECT_EQ(Found(dictionary, "/b"), u"two");
}

TEST_F(BinaryBlock, StoresNoIdBeyondItsEntries) {
    Loaded dictionary(BinaryFile{
        .entries = kEntries, .lists = {{{KeyBucket("/a"), {3, 0xFFFFFFFF, 0}}, {KeyBucket("/x"), {3, 4}}}}});
    EXPECT_EQ(dictionary.Entries().Bucket(KeyBucket("/a")), (std::vector<std::uint32_t>{0}));
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
    // Such an id does not mean a later entry either.
    AddText(dictionary, "/x", u"mine");
    EXPECT_EQ(dictionary.Entries().Bucket(KeyBucket("/x")), (std::vector<std::uint32_t>{3}));
}

TEST_F(BinaryBlock, SearchesTheListsOfOneBucketInTheirOrder) {
    const std::uint32_t bucket = KeyBucket("/a");
    const Loaded dictionary(BinaryFile{.entries = {{"/x", u"x"}, {"/a", u"later"}, {"/a", u"first"}},
                                       .lists = {{{bucket, {0}}, {7, {}}, {bucket, {9, 2}}, {bucket, {1}}}}});
    EXPECT_EQ(dictionary.Entries().Bucket(bucket), (std::vector<std::uint32_t>{0, 2, 1}));
    EXPECT_EQ(Found(dictionary, "/a"), u"first");
}

TEST_F(BinaryBlock, AnswersAlikeWhenALongKeyIsListedTooOftenForAnIndex) {
    const std::string longKey(65535, 'k');
    const std::uint32_t bucket = KeyBucket(longKey);
    std::string key = "/0";
    for (int i = 1; KeyBucket(key) != bucket; ++i) key = "/" + std::to_string(i);
    // Hashing the long key this often would take longer than any test may.
    std::vector<std::uint32_t> ids(10'000'000, 0);
    ids.push_back(1);
    Loaded dictionary(
        BinaryFile{.entries = {{longKey, u"long"}, {key, u"short"}}, .lists = {{{bucket, ids}}}});
    for (int i = 0; i < 20; ++i) ASSERT_EQ(dictionary.Entries().Find(key), 1u);
    EXPECT_TRUE(dictionary.Entries().IsIndexed());
    EXPECT_EQ(Found(dictionary, longKey.c_str()), u"long");
    EXPECT_EQ(AddText(dictionary, longKey.c_str(), u"replaced by a longer one"), 0);
    EXPECT_EQ(Found(dictionary, longKey.c_str()), u"replaced by a longer one");
    EXPECT_EQ(AddText(dictionary, longKey.substr(1).c_str(), u"another"), 2);
    EXPECT_EQ(Found(dictionary, longKey.substr(1).c_str()), u"another");
    EXPECT_EQ(Found(dictionary, key.c_str()), u"short");
}

TEST_F(BinaryBlock, FindsNoNoteThroughAnIndexOutOfOrder) {
    const Loaded dictionary(
        BinaryFile{.entries = kEntries, .notes = {{2, u"c"}, {0xFFFFFFFF, u"?"}, {0, u"a"}}});
    EXPECT_EQ(NoteOfId(dictionary, 0), u"no note");
    EXPECT_EQ(NoteOfId(dictionary, 1), u"no note");
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
}

TEST_F(BinaryBlock, SurvivesAnyByteAnywhere) {
    for (const BinaryFile& file : SamplesWithEveryField()) {
        const std::string bytes = file.Written();
        for (std::size_t place = 0; place < bytes.size(); ++place) {
            for (const char byte : {'\x00', '\x01', '\x7F', '\xFF'}) {
                std::string changed = bytes;
                changed[place] = byte;
                Loaded dictionary(changed);
                for (std::uint32_t id = 0; id < 4; ++id) {
                    ValueOfId(dictionary, id);
                    NoteOfId(dictionary, id);
                }
                for (const auto& [key, value] : kEntries) Found(dictionary, key.c_str());
                LoadBytes(dictionary, bytes);
                AddText(dictionary, "/a", u"mended, and longer");
            }
        }
    }
}

// --- Without memory

TEST_F(BinaryBlock, LeavesTheStoreAsItWasWhenMemoryRunsOut) {
    const std::string first = SamplesWithEveryField()[0].Written();
    const std::string second =
        BinaryFile{.entries = {{"/c", u"no longer empty"}, {"/d", u"new"}, {"/a", u"longer than one"}},
                   .notes = {{1, u"note"}},
                   .headerText = "another header text"}
            .Written();
    Found(ZStringDictionary(true), "/a"); // makes the shared empty value, which is never freed
    for (const bool isSecond : {false, true}) {
        const std::size_t failures = ForEveryFailingAllocation([&] {
            ZStringDictionary* made = nullptr;
            try {
                ZStringDictionary dictionary(true);
                made = &dictionary;
                if (isSecond) LoadBytes(dictionary, first);
                const std::uint32_t ids = dictionary.Entries().TotalIds();
                try {
                    LoadBytes(dictionary, isSecond ? second : first);
                } catch (const std::bad_alloc&) {
                    EXPECT_EQ(dictionary.Entries().TotalIds(), ids);
                    EXPECT_EQ(dictionary.Entries().LiveEntries(), ids);
                    EXPECT_TRUE(dictionary.IsGood());
                    EXPECT_EQ(Found(dictionary, "/a"), ids == 0 ? u"" : u"one");
                    EXPECT_EQ(Found(dictionary, "/d"), u"");
                    EXPECT_EQ(dictionary.HeaderText(), ids == 0 ? "" : "text");
                }
            } catch (const std::bad_alloc&) {
                EXPECT_TRUE(made == nullptr || isSecond);
            }
        });
        EXPECT_GT(failures, isSecond ? 12u : 5u);
    }
}

} // namespace
