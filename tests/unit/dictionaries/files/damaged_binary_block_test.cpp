// Reading one compiled dictionary of version 2 that is cut, has wrong numbers, or meets the end of the
// memory.
#include "unit/dictionaries/files/binary_support.h"

#include "support/failing_allocator.h"

#include <new>

using namespace pavane_test;
using kestrel::ZStringDictionary;
using kestrel_private::KeyBucket;

namespace {

class DamagedBinaryBlock : public DictionaryTest {};

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

TEST_F(DamagedBinaryBlock, CutAnywhereKeepsItsCountsAndWholeEntries) {
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

TEST_F(DamagedBinaryBlock, CutAfterItsCountsHasIdsWithoutTexts) {
    const std::string bytes = BinaryFile{.entries = kEntries}.Written();
    constexpr std::size_t kAfterLiveCount = 29 + 4 + 1 + 4 + 4;
    EXPECT_EQ(Loaded(bytes.substr(0, kAfterLiveCount - 1)).Entries().TotalIds(), 0u);
    const Loaded dictionary(bytes.substr(0, kAfterLiveCount));
    EXPECT_EQ(dictionary.Entries().TotalIds(), 3u);
    EXPECT_EQ(dictionary.Entries().LiveEntries(), 3u);
    EXPECT_EQ(ValueOfId(dictionary, 0), u"");
}

TEST_F(DamagedBinaryBlock, CutAfterItsListsStillAnswers) {
    const std::string bytes = BinaryFile{.entries = kEntries}.Written();
    const Loaded dictionary(bytes.substr(0, bytes.size() - 4));
    for (const auto& [key, value] : kEntries) EXPECT_EQ(Found(dictionary, (key + "=default").c_str()), value);
}

TEST_F(DamagedBinaryBlock, CutInItsNotesStillAnswers) {
    const std::string bytes = BinaryFile{.entries = kEntries, .notes = {{0, u"note"}}}.Written();
    const Loaded dictionary(bytes.substr(0, bytes.size() - 1));
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
    EXPECT_EQ(NoteOfId(dictionary, 0), u"");
}

TEST_F(DamagedBinaryBlock, IgnoresBytesAfterItsEnd) {
    EXPECT_EQ(Found(Loaded(BinaryFile{.entries = kEntries}.Written() + "more"), "/a"), u"one");
}

// --- Wrong numbers

TEST_F(DamagedBinaryBlock, HasAbsentTextsWhereOffsetsAndLengthsLeaveTheirArea) {
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

TEST_F(DamagedBinaryBlock, WithCountsBeyondTheFileReadsNothingAfterThem) {
    for (const std::uint32_t count : {4u, 1000u, 0x40000000u, 0xFFFFFFFFu}) {
        Loaded dictionary(BinaryFile{.entries = kEntries, .entryCount = count});
        EXPECT_EQ(dictionary.Entries().TotalIds(), count);
        EXPECT_EQ(ValueOfId(dictionary, 0), u"");
        EXPECT_EQ(Found(dictionary, "/a=default"), u"default");
        EXPECT_EQ(AddText(dictionary, "/a", u"mended"), static_cast<std::int32_t>(count));
        EXPECT_EQ(Found(dictionary, "/a=default"), count == 0xFFFFFFFF ? u"default" : u"mended");
    }
}

TEST_F(DamagedBinaryBlock, RefusesALineWhenNoIdIsLeft) {
    Loaded dictionary(BinaryFile{.entries = kEntries, .entryCount = 0xFFFFFFFF});
    EXPECT_TRUE(dictionary.IsGood());
    LoadText(dictionary, u"/new=x");
    EXPECT_FALSE(dictionary.IsGood());
    EXPECT_EQ(dictionary.Entries().TotalIds(), 0xFFFFFFFFu);
}

TEST_F(DamagedBinaryBlock, WithMoreListsThanBucketsReadsNoList) {
    std::vector<BinaryFile::List> lists(1022, {5, {}});
    lists[0] = {KeyBucket("/a"), {0}};
    EXPECT_EQ(Found(Loaded(BinaryFile{.entries = kEntries, .lists = lists}), "/a=default"), u"default");
    lists.pop_back();
    EXPECT_EQ(Found(Loaded(BinaryFile{.entries = kEntries, .lists = lists}), "/a=default"), u"one");
}

TEST_F(DamagedBinaryBlock, SkipsListsOfBucketsThatDoNotExist) {
    for (const std::uint32_t bucket : {1021u, 1022u, 0xFFFFu}) {
        const Loaded dictionary(
            BinaryFile{.entries = kEntries, .lists = {{{bucket, {1, 2}}, {KeyBucket("/a"), {0}}}}});
        EXPECT_EQ(Found(dictionary, "/a"), u"one");
        EXPECT_EQ(Found(dictionary, "/b/longer=default"), u"default");
    }
}

TEST_F(DamagedBinaryBlock, KeepsTheListsBeforeOneThatDoesNotFit) {
    std::string bytes =
        BinaryFile{.entries = kEntries, .lists = {{{KeyBucket("/a"), {0}}, {KeyBucket("/c"), {2}}}}}
            .Written();
    // The size of the second list, before both ids and the note count.
    bytes.replace(bytes.size() - 16, 4, "\xFF\xFF\xFF\xFF");
    const Loaded dictionary(bytes);
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
    EXPECT_EQ(Found(dictionary, "/c=default"), u"default");
}

TEST_F(DamagedBinaryBlock, ReadsNoNotesAfterAListThatDoesNotFit) {
    std::string bytes =
        BinaryFile{.entries = kEntries, .lists = {{{KeyBucket("/a"), {0}}, {KeyBucket("/c"), {1}}}}}
            .Written();
    bytes.replace(bytes.size() - 16, 4, "\xFF\xFF\xFF\xFF");
    // Without the second list, its id and the bytes after it would be one note of the first entry.
    bytes += FieldWriter(std::endian::little).U32(0).U32(0).U16(0).Written();
    EXPECT_EQ(NoteOfId(Loaded(bytes), 0), u"no note");
}

TEST_F(DamagedBinaryBlock, CountsNoMoreLiveEntriesThanTheirNumberHolds) {
    Loaded dictionary(BinaryFile{.entries = {{"/a", u"one"}}, .liveCount = UINT32_MAX});
    LoadBytes(dictionary, BinaryFile{.entries = {{"/b", u"two"}}, .liveCount = 2}.Written());
    EXPECT_EQ(dictionary.Entries().LiveEntries(), UINT32_MAX);
    EXPECT_EQ(Found(dictionary, "/b"), u"two");
}

TEST_F(DamagedBinaryBlock, KeepsTheLargestLiveCountWhenAnEntryIsAdded) {
    Loaded dictionary(BinaryFile{.entries = {{"/a", u"one"}}, .liveCount = UINT32_MAX});
    EXPECT_EQ(AddText(dictionary, "/b", u"two"), 1);
    EXPECT_EQ(dictionary.Entries().LiveEntries(), UINT32_MAX);
    EXPECT_EQ(Found(dictionary, "/b"), u"two");
}

TEST_F(DamagedBinaryBlock, StoresNoIdBeyondItsEntries) {
    Loaded dictionary(BinaryFile{
        .entries = kEntries, .lists = {{{KeyBucket("/a"), {3, 0xFFFFFFFF, 0}}, {KeyBucket("/x"), {3, 4}}}}});
    EXPECT_EQ(dictionary.Entries().Bucket(KeyBucket("/a")), (std::vector<std::uint32_t>{0}));
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
    // Such an id does not mean a later entry either.
    AddText(dictionary, "/x", u"mine");
    EXPECT_EQ(dictionary.Entries().Bucket(KeyBucket("/x")), (std::vector<std::uint32_t>{3}));
}

TEST_F(DamagedBinaryBlock, SearchesTheListsOfOneBucketInTheirOrder) {
    const std::uint32_t bucket = KeyBucket("/a");
    const Loaded dictionary(BinaryFile{.entries = {{"/x", u"x"}, {"/a", u"later"}, {"/a", u"first"}},
                                       .lists = {{{bucket, {0}}, {7, {}}, {bucket, {9, 2}}, {bucket, {1}}}}});
    EXPECT_EQ(dictionary.Entries().Bucket(bucket), (std::vector<std::uint32_t>{0, 2, 1}));
    EXPECT_EQ(Found(dictionary, "/a"), u"first");
}

TEST_F(DamagedBinaryBlock, AnswersAlikeWhenALongKeyIsListedTooOftenForAnIndex) {
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
    EXPECT_EQ(AddText(dictionary, longKey, u"replaced by a longer one"), 0);
    EXPECT_EQ(Found(dictionary, longKey.c_str()), u"replaced by a longer one");
    EXPECT_EQ(AddText(dictionary, longKey.substr(1), u"another"), 2);
    EXPECT_EQ(Found(dictionary, longKey.substr(1).c_str()), u"another");
    EXPECT_EQ(Found(dictionary, key.c_str()), u"short");
}

TEST_F(DamagedBinaryBlock, FindsNoNoteThroughAnIndexOutOfOrder) {
    const Loaded dictionary(
        BinaryFile{.entries = kEntries, .notes = {{2, u"c"}, {0xFFFFFFFF, u"?"}, {0, u"a"}}});
    EXPECT_EQ(NoteOfId(dictionary, 0), u"no note");
    EXPECT_EQ(NoteOfId(dictionary, 1), u"no note");
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
}

TEST_F(DamagedBinaryBlock, SurvivesAnyByteAnywhere) {
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

TEST_F(DamagedBinaryBlock, LeavesTheStoreAsItWasWhenMemoryRunsOut) {
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
