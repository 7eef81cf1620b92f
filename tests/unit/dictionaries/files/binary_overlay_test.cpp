// Several compiled dictionaries in one store: overlays, files made to follow others, refusal.
#include "unit/dictionaries/files/binary_support.h"

#include <numeric>

using namespace pavane_test;
using kestrel::ZStringDictionary;
using kestrel_private::KeyBucket;

namespace {

using Entries = std::vector<std::pair<std::string, std::u16string>>;

class BinaryOverlay : public DictionaryTest {
protected:
    BinaryOverlay() { Load({.entries = {{"/a", u"one"}, {"/b", u"two"}}}); }

    void Load(const BinaryFile& file) { LoadBytes(dictionary, file.Written()); }
    std::u16string At(const char* key) const { return Found(dictionary, key); }
    std::uint32_t Total() const { return dictionary.Entries().TotalIds(); }
    std::uint32_t Live() const { return dictionary.Entries().LiveEntries(); }

    ZStringDictionary dictionary{true};
};

TEST_F(BinaryOverlay, ReplacesOldValuesAndKeepsOldIds) {
    Load({.entries = {{"/b", u"zwei, and longer"}, {"/c", u"drei"}, {"/a", u"1"}}});
    EXPECT_EQ(At("/a"), u"1");
    EXPECT_EQ(At("/b"), u"zwei, and longer");
    EXPECT_EQ(At("/c"), u"drei");
    EXPECT_EQ(dictionary.Entries().Find("/b"), 1u);
    EXPECT_EQ(dictionary.Entries().Find("/c"), 3u);
    EXPECT_EQ(ValueOfId(dictionary, 2), u"");
    EXPECT_EQ(Total(), 5u);
    EXPECT_EQ(Live(), 3u);
}

TEST_F(BinaryOverlay, HasNoKeyAtAnIdWhoseValueReplacedAnother) {
    Load({.entries = {{"/b", u"zwei"}, {"/c", u"drei"}, {"/a", u"1"}}});
    std::vector<std::string_view> keys;
    for (std::uint32_t id = 0; id < Total(); ++id) keys.push_back(dictionary.Entries().Key(id));
    EXPECT_EQ(keys, (std::vector<std::string_view>{"/a", "/b", "", "/c", ""}));
}

TEST_F(BinaryOverlay, InTheOtherByteOrderDoesTheSame) {
    Load({.entries = {{"/b", u"zwei, and longer"}, {"/c", u"drei"}}, .order = std::endian::big});
    EXPECT_EQ(At("/b"), u"zwei, and longer");
    EXPECT_EQ(At("/c"), u"drei");
}

TEST_F(BinaryOverlay, OfOldKeysAloneIsDropped) {
    Load({.entries = {{"/b", u"zwei"}, {"/a", u"eins"}}});
    EXPECT_EQ(At("/a"), u"eins");
    EXPECT_EQ(At("/b"), u"zwei");
    EXPECT_EQ(Total(), 2u);
    EXPECT_EQ(Live(), 2u);
    EXPECT_EQ(dictionary.Entries().BlockCount(), 1u);
}

TEST_F(BinaryOverlay, ThatIsDroppedRemovesItsOtherIdsFromTheBuckets) {
    // One live entry by its count, of two that it has.
    Load({.entries = {{"/a", u"eins"}, {"/c", u"drei"}}, .liveCount = 1});
    EXPECT_EQ(At("/a"), u"eins");
    EXPECT_EQ(At("/c=default"), u"default");
    EXPECT_TRUE(dictionary.Entries().Bucket(KeyBucket("/c")).empty());
    EXPECT_EQ(AddText(dictionary, "/c", u"three"), 2);
}

TEST_F(BinaryOverlay, WithoutLiveEntriesStillReplaces) {
    Load({.entries = {{"/a", u"eins"}}, .liveCount = 0});
    EXPECT_EQ(At("/a"), u"eins");
    EXPECT_EQ(Live(), 2u);
}

TEST_F(BinaryOverlay, NeverCountsLiveEntriesBelowZero) {
    Load({.entries = {{"/a", u"eins"}, {"/b", u"zwei"}, {"/c", u"drei"}}, .liveCount = 1});
    EXPECT_EQ(Total(), 2u);
    EXPECT_EQ(Live(), 2u);
}

TEST_F(BinaryOverlay, ReplacesAKeyAsOftenAsTheFileHasIt) {
    Load(
        {.entries = {
             {"/a", u"a long first one"}, {"/a", u"x"}, {"/a", u"longest of all of them"}, {"/a", u"last"}}});
    EXPECT_EQ(At("/a"), u"last");
    EXPECT_EQ(Total(), 2u);
}

TEST_F(BinaryOverlay, ReplacesByTheLengthThatTheValueHasThen) {
    // Both values are the same bytes: a change in place shows in the other.
    Load({.entries = {{"/c", u"origin"}, {"/d", u""}}, .valuePlaces = {{{0, 12}, {0, 12}}}});
    Load({.entries = {{"/c", u"x"}, {"/c", u"longer"}, {"/c", u"in"}}});
    EXPECT_EQ(At("/c"), u"in");
    EXPECT_EQ(At("/d"), u"xrigin");
}

TEST_F(BinaryOverlay, ComparesOnlyWithOlderEntries) {
    Load({.entries = {{"/c", u"first"}, {"/c", u"second"}}});
    EXPECT_EQ(At("/c"), u"first");
    EXPECT_EQ(Live(), 4u);
}

TEST_F(BinaryOverlay, ReplacesEntriesThatWereAddedOneByOne) {
    AddText(dictionary, "/c", u"three");
    Load({.entries = {{"/c", u"drei"}, {"/d", u"vier"}}});
    EXPECT_EQ(At("/c"), u"drei");
    EXPECT_EQ(At("/d"), u"vier");
    EXPECT_EQ(AddText(dictionary, "/e", u"five"), 5);
    EXPECT_EQ(At("/e"), u"five");
}

TEST_F(BinaryOverlay, DoesNotCompareKeysOf1024Bytes) {
    const std::string compared(1023, 'k');
    const std::string taken(1024, 'k');
    Load({.entries = {{compared, u"old"}, {taken, u"old"}}});
    Load({.entries = {{compared, u"new"}, {taken, u"new"}}});
    EXPECT_EQ(At(compared.c_str()), u"new");
    EXPECT_EQ(At(taken.c_str()), u"old");
    EXPECT_EQ(Live(), 5u);
}

TEST_F(BinaryOverlay, FindsOldKeysOnlyInTheBucketOfItsOwnList) {
    const std::uint32_t foreign = (KeyBucket("/hidden") + 1) % kestrel_private::kBucketCount;
    Load({.entries = {{"/hidden", u"old"}}, .lists = {{{foreign, {0}}}}});
    Load({.entries = {{"/hidden", u"new"}}, .lists = {{{foreign, {0}}}}});
    EXPECT_EQ(ValueOfId(dictionary, 2), u"new");
    Load({.entries = {{"/hidden", u"newest"}}});
    EXPECT_EQ(ValueOfId(dictionary, 2), u"new");
    EXPECT_EQ(At("/hidden"), u"newest");
}

TEST_F(BinaryOverlay, AnswersAlikeInLargeBuckets) {
    // Padded numbers share a bucket.
    Entries old;
    for (int i = 0; i < 300; ++i) old.push_back({"/pane_" + std::to_string(1000 + i) + "/title", u"old"});
    Entries fresh;
    for (int i = 150; i < 450; ++i)
        fresh.push_back({"/pane_" + std::to_string(1000 + i) + "/title", u"fresh and longer"});
    Load({.entries = old});
    Load({.entries = fresh});
    for (int i = 0; i < 450; ++i) {
        const std::string key = "/pane_" + std::to_string(1000 + i) + "/title";
        ASSERT_EQ(At(key.c_str()), i < 150 ? u"old" : u"fresh and longer");
        ASSERT_EQ(dictionary.Entries().Find(key), static_cast<std::uint32_t>(i < 300 ? 2 + i : 2 + i + 150));
    }
    EXPECT_EQ(Live(), 452u);
}

// Lays `count` entries over old ones of the same keys. All share one value of `bytes` bytes, and the file is
// padded to `fileSize`. Returns whether the overlay was taken.
bool TakesSharedValues(int count, std::uint32_t bytes, std::size_t fileSize = 0) {
    Entries old;
    for (int i = 0; i < count; ++i) old.push_back({"/" + std::to_string(i), u""});
    Entries shared = old;
    shared[0].second.assign(bytes / 2, u'v');
    ZStringDictionary dictionary(true);
    LoadBytes(dictionary, BinaryFile{.entries = old}.Written());
    const auto entries = static_cast<std::size_t>(count);
    std::string file =
        BinaryFile{.entries = shared, .valuePlaces = std::vector<BinaryFile::Text>(entries, {0, bytes})}
            .Written();
    if (file.size() < fileSize) file.resize(fileSize);
    LoadBytes(dictionary, file);
    const bool isTaken = Found(dictionary, "/0").size() == bytes / 2;
    for (const auto& [key, value] : old) {
        EXPECT_EQ(Found(dictionary, key.c_str()), isTaken ? shared[0].second : u"") << key;
    }
    EXPECT_EQ(dictionary.Entries().TotalIds(), entries);
    return isTaken;
}

TEST_F(BinaryOverlay, OfASmallFileMayUnfoldToOneMebibyte) {
    EXPECT_TRUE(TakesSharedValues(2, 800)) << "940 bytes that unfold to 1,600";
    EXPECT_TRUE(TakesSharedValues(128, 0x2000));
    EXPECT_FALSE(TakesSharedValues(129, 0x2000));
}

TEST_F(BinaryOverlay, MayUnfoldToSixtyFourTimesItsFile) {
    // 100 values of 32 KiB are 64 times this.
    constexpr std::size_t kEnough = 100 * 0x8000 / 64;
    EXPECT_TRUE(TakesSharedValues(100, 0x8000, kEnough));
    EXPECT_FALSE(TakesSharedValues(100, 0x8000, kEnough - 1));
}

// --- Files made to follow others

TEST_F(BinaryOverlay, MadeToFollowIsTakenUnchanged) {
    Load({.entries = {{"/a", u"hidden"}, {"/c", u"three"}}, .firstId = 2});
    EXPECT_EQ(At("/a"), u"one");
    EXPECT_EQ(At("/c"), u"three");
    EXPECT_EQ(ValueOfId(dictionary, 2), u"hidden");
    EXPECT_EQ(Total(), 4u);
    EXPECT_EQ(Live(), 4u);
}

TEST_F(BinaryOverlay, MadeForAnotherPlaceIsRefused) {
    for (const std::uint32_t firstId : {1u, 3u, 0xFFFFFFFFu}) {
        Load({.entries = {{"/a", u"eins"}, {"/c", u"drei"}}, .headerText = "kept", .firstId = firstId});
        EXPECT_EQ(At("/a"), u"one");
        EXPECT_EQ(At("/c=default"), u"default");
        EXPECT_EQ(Total(), 2u);
        EXPECT_EQ(dictionary.HeaderText(), "kept");
        EXPECT_TRUE(dictionary.IsGood());
    }
}

TEST_F(BinaryOverlay, ThatIsRefusedChangesNoNote) {
    ZStringDictionary noted(true);
    LoadBytes(noted,
              BinaryFile{.entries = {{"/a", u"one"}, {"/b", u"two"}}, .notes = {{0, u"kept"}}}.Written());
    LoadBytes(noted, BinaryFile{.entries = {{"/a", u"eins"}, {"/b", u"zwei"}},
                                .notes = {{0, u"lost"}, {1, u"lost"}},
                                .firstId = 7}
                         .Written());
    EXPECT_EQ(NoteOfId(noted, 0), u"kept");
    EXPECT_EQ(NoteOfId(noted, 1), u"no note");
    EXPECT_EQ(NoteOfId(noted, 2), u"no note");
    EXPECT_EQ(noted.Add("/a", u"x", 1, 0, u"new", 3), 0);
    EXPECT_EQ(NoteOfId(noted, 0), u"new");
}

TEST_F(BinaryOverlay, KeepsItsOwnNotesAfterOthers) {
    Load({.entries = {{"/c", u"three"}, {"/d", u"four"}}, .notes = {{1, u"note of d"}}});
    EXPECT_EQ(NoteOfId(dictionary, 1), u"no note");
    EXPECT_EQ(NoteOfId(dictionary, 2), u"no note");
    EXPECT_EQ(NoteOfId(dictionary, 3), u"note of d");
}

TEST_F(BinaryOverlay, MadeToFollowOthersBeginsAtIdZeroWhenItIsFirst) {
    ZStringDictionary dictionary(true);
    LoadBytes(dictionary, BinaryFile{.entries = {{"/a", u"one"}}, .firstId = 77}.Written());
    EXPECT_EQ(dictionary.Entries().Find("/a"), 0u);
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
}

TEST_F(BinaryOverlay, StoresNoIdBeyondItsEntries) {
    Load({.entries = {{"/c", u"three"}},
          .firstId = 2,
          .lists = {{{KeyBucket("/c"), {1, 0xFFFFFFFF, 0, 0xFFFFFFFE}}}}});
    EXPECT_EQ(dictionary.Entries().Bucket(KeyBucket("/c")), (std::vector<std::uint32_t>{2}));
}

TEST_F(BinaryOverlay, ThatWouldExceedTheLastIdIsRefused) {
    Load({.entries = {{"/a", u"eins"}}, .entryCount = 0xFFFFFFFE});
    EXPECT_EQ(Total(), 2u);
    EXPECT_EQ(At("/a"), u"one");
    Load({.entries = {{"/a", u"eins"}}, .entryCount = 0xFFFFFFFD});
    EXPECT_EQ(Total(), 0xFFFFFFFFu);
    Load({.entries = {{"/b", u"zwei"}}});
    EXPECT_EQ(Total(), 0xFFFFFFFFu);
    EXPECT_EQ(At("/b"), u"two");
    EXPECT_EQ(AddText(dictionary, "/new", u"x"), -1);
    EXPECT_EQ(AddText(dictionary, "/b", u"replaced"), 1);
    EXPECT_EQ(At("/b"), u"replaced");
}

TEST_F(BinaryOverlay, WithALiveCountButNoEntryUsesNoId) {
    ZStringDictionary dictionary(true);
    LoadBytes(dictionary, BinaryFile{.liveCount = 3, .lists = {{{KeyBucket("/a"), {0, 1}}}}}.Written());
    EXPECT_EQ(dictionary.Entries().BlockCount(), 1u);
    EXPECT_EQ(dictionary.Entries().TotalIds(), 0u);
    EXPECT_EQ(Found(dictionary, "/a=default"), u"default");
    LoadBytes(dictionary, BinaryFile{.entries = {{"/b", u"two"}, {"/a", u"one"}}}.Written());
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
    EXPECT_EQ(dictionary.Entries().Find("/b"), 0u);
    AddText(dictionary, "/c", u"three");
    EXPECT_EQ(Found(dictionary, "/c"), u"three");
}

TEST_F(BinaryOverlay, AnswersAlikeWithAnIndex) {
    Entries many;
    for (int i = 0; i < 2000; ++i)
        many.push_back({"/pane_" + std::to_string(10000 + i) + "/title", u"value"});
    Load({.entries = many});
    for (int round = 0; round < 3; ++round) {
        for (const auto& [key, value] : many) ASSERT_EQ(At(key.c_str()), value);
    }
    EXPECT_TRUE(dictionary.Entries().IsIndexed());
    Load({.entries = {{many[7].first, u"overlaid"}, {"/z", u"new"}}});
    EXPECT_FALSE(dictionary.Entries().IsIndexed());
    EXPECT_EQ(At(many[7].first.c_str()), u"overlaid");
    EXPECT_EQ(At("/z"), u"new");
}

} // namespace
