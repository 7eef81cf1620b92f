// Compiled dictionaries of versions 1.0 and 1.5.
#include "unit/dictionaries/files/binary_support.h"

#include "dictionaries/process_dictionary.h"
#include "dictionaries/translation.h"
#include "dictionaries/zstring/encoding.h"
#include "support/failing_allocator.h"

#include <new>
#include <stdexcept>

using namespace pavane_test;
using kestrel::ZStringDictionary;
using kestrel_private::KeyBucket;

namespace {

struct Item {
    std::string key;
    std::string value; // bytes
};
struct Bucket {
    std::uint32_t number;
    std::vector<Item> items;
};

std::string Utf16(std::u16string_view text) { return FieldWriter().Units(text).Written(); }

std::vector<Bucket> BucketsOf(const std::vector<Item>& items) {
    std::vector<Bucket> buckets;
    for (const Item& item : items) buckets.push_back({KeyBucket(item.key), {item}});
    return buckets;
}

std::string Version10(const std::vector<Bucket>& buckets, int conversionCode = 0,
                      std::uint32_t firstOffset = 0) {
    FieldWriter file, items;
    file.Bytes(Header(1, 0, conversionCode)).U16(static_cast<std::uint32_t>(buckets.size()) + 1);
    const auto offset = [&] { return firstOffset + static_cast<std::uint32_t>(items.Written().size()); };
    for (const Bucket& bucket : buckets) {
        file.U16(bucket.number).U32(offset());
        for (const Item& item : bucket.items) {
            items.U32(static_cast<std::uint32_t>(item.key.size())).Bytes(item.key);
            items.U32(static_cast<std::uint32_t>(item.value.size())).Bytes(item.value);
        }
    }
    // The number of the last row has no meaning.
    return file.U16(0xFFFF).U32(offset()).Bytes(items.Written()).Written();
}

std::string Version15(const std::vector<Bucket>& buckets, int conversionCode = 0) {
    FieldWriter file, lengths, numbers, strings;
    file.Bytes(Header(1, 5, conversionCode)).U32(static_cast<std::uint32_t>(buckets.size()));
    std::uint32_t rows = 0;
    for (const Bucket& bucket : buckets) {
        for (const Item& item : bucket.items) {
            lengths.U16(static_cast<std::uint32_t>(item.key.size()));
            lengths.U16(static_cast<std::uint32_t>(item.value.size()));
            strings.Bytes(item.key).Bytes(item.value);
        }
        numbers.U16(bucket.number);
        file.U32(rows += static_cast<std::uint32_t>(bucket.items.size()));
    }
    return file.Bytes(lengths.Written()).Bytes(numbers.Written()).Bytes(strings.Written()).Written();
}

using Writer = std::string (*)(const std::vector<Bucket>&, int conversionCode);

class BinaryChainsOf : public DictionaryTest {
protected:
    ZStringDictionary dictionary{false};
};

class BinaryChains : public BinaryChainsOf, public testing::WithParamInterface<Writer> {
protected:
    std::string Write(const std::vector<Bucket>& buckets, int conversionCode = 0) const {
        return GetParam()(buckets, conversionCode);
    }
};

INSTANTIATE_TEST_SUITE_P(Version, BinaryChains,
                         testing::Values(Writer([](const std::vector<Bucket>& buckets, int code) {
                                             return Version10(buckets, code);
                                         }),
                                         Writer(Version15)),
                         [](const auto& parameter) { return parameter.index == 0 ? "OneZero" : "OneFive"; });

const std::vector<Item> kItems = {{"/a", Utf16(u"one")}, {"/b", Utf16(u"zw\u00F6lf")}, {"/c", ""}};

TEST_P(BinaryChains, FillTheChains) {
    LoadBytes(dictionary, Write(BucketsOf(kItems)));
    EXPECT_EQ(Found(dictionary, "/a"), u"one");
    EXPECT_EQ(Found(dictionary, "/b"), u"zw\u00F6lf");
    EXPECT_EQ(Found(dictionary, "/c=default"), u"");
    EXPECT_EQ(Found(dictionary, "/d=default"), u"default");
    EXPECT_TRUE(dictionary.IsGood());
    EXPECT_FALSE(dictionary.IsFast());
}

TEST_P(BinaryChains, AreNotReadByAFastDictionary) {
    ZStringDictionary fast(true);
    LoadBytes(fast, Write(BucketsOf(kItems)));
    EXPECT_TRUE(fast.IsGood());
    EXPECT_EQ(Found(fast, "/a=default"), u"default");
    EXPECT_NE(fast.Chains().Find("/a"), nullptr);
}

TEST_P(BinaryChains, KeepTheOrderOfABucketBeforeOlderItems) {
    const std::uint32_t bucket = KeyBucket("/a");
    LoadText(dictionary, u"/a=oldest");
    LoadBytes(dictionary, Write({{bucket, {{"/a", Utf16(u"first")}, {"/a", Utf16(u"second")}}}}));
    EXPECT_EQ(Found(dictionary, "/a"), u"first");
    LoadBytes(dictionary, Write({{bucket, {{"/a", Utf16(u"newer")}}}}));
    EXPECT_EQ(Found(dictionary, "/a"), u"newer");
    LoadText(dictionary, u"/a=newest");
    EXPECT_EQ(Found(dictionary, "/a"), u"newest");
}

TEST_P(BinaryChains, DecodeValuesByTheConversionCode) {
    LoadBytes(dictionary,
              Write(BucketsOf({{"/a", "zw\xC3\xB6lf"}, {"/b", ""}}), kestrel_private::kEncodingUtf8));
    EXPECT_EQ(Found(dictionary, "/a"), u"zw\u00F6lf");
    EXPECT_EQ(Found(dictionary, "/b=default"), u"");
    LoadBytes(dictionary, Write(BucketsOf({{"/c", "ascii"}}), 200));
    EXPECT_EQ(Found(dictionary, "/c"), u"ascii");
}

TEST_P(BinaryChains, KeepTheItemsBeforeAValueThatDoesNotDecode) {
    const std::string bytes = Write(BucketsOf({{"/a", "good"}, {"/b", "\xFF\xFE"}, {"/c", "good"}}), 1);
    EXPECT_THROW(LoadBytes(dictionary, bytes), kestrel_private::ConversionCode);
    EXPECT_EQ(Found(dictionary, "/a"), u"good");
    EXPECT_EQ(Found(dictionary, "/c=default"), u"default");
}

TEST_P(BinaryChains, ThatDoNotDecodeThrowALogicErrorFromThePopulation) {
    const std::string bytes = Write(BucketsOf({{"/a", "good"}, {"/b", "\xFF\xFE"}}), 1);
    try {
        brixen::zeve::PopulateDictionary(bytes.data(), static_cast<std::int64_t>(bytes.size()));
        FAIL();
    } catch (const std::logic_error& failure) {
        EXPECT_STREQ(failure.what(), "Exception thrown at CardexLib Zeve dictionary population.");
    }
    EXPECT_NE(kestrel_private::ProcessDictionary().Chains().Find("/a"), nullptr);
}

TEST_P(BinaryChains, OfNoBucketsAreGood) {
    LoadBytes(dictionary, Write({}));
    EXPECT_TRUE(dictionary.IsGood());
}

TEST_P(BinaryChains, SkipBucketsThatDoNotExist) {
    LoadBytes(dictionary,
              Write({{1021, {{"/a", Utf16(u"lost")}}}, {KeyBucket("/b"), {{"/b", Utf16(u"two")}}}}));
    EXPECT_EQ(Found(dictionary, "/a=default"), u"default");
    EXPECT_EQ(Found(dictionary, "/b"), u"two");
    EXPECT_TRUE(dictionary.IsGood());
}

TEST_P(BinaryChains, CutAnywhereClearTheStatusAndKeepWholeItems) {
    const std::string bytes = Write(BucketsOf(kItems));
    std::size_t most = 0;
    for (std::size_t length = 21; length < bytes.size(); ++length) {
        ZStringDictionary dictionary(false);
        const std::vector<char> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
        LoadBytes(dictionary, {cut.data(), cut.size()});
        EXPECT_FALSE(dictionary.IsGood()) << length;
        std::size_t present = 0;
        for (const Item& item : kItems) present += dictionary.Chains().Find(item.key) != nullptr;
        EXPECT_GE(present, most) << length;
        most = present;
        EXPECT_TRUE(Found(dictionary, "/a").empty() || Found(dictionary, "/a") == u"one");
    }
    EXPECT_EQ(most, 2u);
}

TEST_P(BinaryChains, SurviveAnyByteAnywhere) {
    const std::string bytes = Write(BucketsOf(kItems));
    for (std::size_t place = 21; place < bytes.size(); ++place) {
        for (const char byte : {'\x00', '\x01', '\x7F', '\xFF'}) {
            std::string changed = bytes;
            changed[place] = byte;
            ZStringDictionary dictionary(false);
            try {
                LoadBytes(dictionary, changed);
            } catch (kestrel_private::ConversionCode) {
                EXPECT_EQ(place, 23u);
            }
            for (const Item& item : kItems) Found(dictionary, item.key.c_str());
        }
    }
}

TEST_P(BinaryChains, LeakNothingWhenMemoryRunsOut) {
    const std::string bytes = Write(BucketsOf(kItems));
    const std::size_t failures = ForEveryFailingAllocation([&] {
        try {
            ZStringDictionary dictionary(false);
            LoadBytes(dictionary, bytes);
        } catch (const std::bad_alloc&) {
            // The caller checks that nothing is leaked.
        }
    });
    EXPECT_GT(failures, 5u);
}

TEST_F(BinaryChainsOf, Version10CountOffsetsFromTheFirst) {
    LoadBytes(dictionary, Version10(BucketsOf(kItems), 0, 0x80000000));
    EXPECT_EQ(Found(dictionary, "/b"), u"zw\u00F6lf");
    EXPECT_TRUE(dictionary.IsGood());
}

TEST_F(BinaryChainsOf, Version10MayHaveNoRowAtAll) {
    LoadBytes(dictionary, FieldWriter().Bytes(Header(1, 0)).U16(0).Written());
    EXPECT_TRUE(dictionary.IsGood());
}

TEST_F(BinaryChainsOf, Version10ReadNothingWhereOffsetsDecrease) {
    const std::string bytes = FieldWriter()
                                  .Bytes(Header(1, 0))
                                  .U16(3)
                                  .U16(KeyBucket("/a"))
                                  .U32(100)
                                  .U16(KeyBucket("/a"))
                                  .U32(50)
                                  .U16(0)
                                  .U32(112)
                                  .U32(2)
                                  .Bytes("/a")
                                  .U32(2)
                                  .Units(u"1")
                                  .Written();
    LoadBytes(dictionary, bytes);
    EXPECT_EQ(Found(dictionary, "/a"), u"1");
    EXPECT_TRUE(dictionary.IsGood());
}

TEST_F(BinaryChainsOf, Version10WithAnItemLargerThanTheFileClearTheStatus) {
    for (const std::uint32_t size : {3u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        ZStringDictionary dictionary(false);
        LoadBytes(dictionary, FieldWriter()
                                  .Bytes(Header(1, 0))
                                  .U16(2)
                                  .U16(0)
                                  .U32(0)
                                  .U16(0)
                                  .U32(0xFFFFFFFF)
                                  .U32(size)
                                  .Bytes("k")
                                  .Written());
        EXPECT_FALSE(dictionary.IsGood());
    }
}

TEST_F(BinaryChainsOf, Version15ClearTheStatusWhereARunLeavesTheLengths) {
    // The last run end counts one row, the first says two.
    const std::string bytes = FieldWriter()
                                  .Bytes(Header(1, 5))
                                  .U32(2)
                                  .U32(2)
                                  .U32(1)
                                  .U16(2)
                                  .U16(2)
                                  .U16(KeyBucket("/a"))
                                  .U16(KeyBucket("/b"))
                                  .Bytes("/a")
                                  .Units(u"1")
                                  .Bytes("/b")
                                  .Units(u"2")
                                  .Written();
    LoadBytes(dictionary, bytes);
    EXPECT_EQ(Found(dictionary, "/a"), u"1");
    EXPECT_EQ(Found(dictionary, "/b=default"), u"default");
    EXPECT_FALSE(dictionary.IsGood());
}

TEST_F(BinaryChainsOf, Version15WithCountsBeyondTheFileClearTheStatus) {
    for (const std::uint32_t count : {1u, 0x40000000u, 0xFFFFFFFFu}) {
        ZStringDictionary dictionary(false);
        LoadBytes(dictionary, FieldWriter().Bytes(Header(1, 5)).U32(count).U8(0).Written());
        EXPECT_FALSE(dictionary.IsGood());
    }
    LoadBytes(dictionary, FieldWriter().Bytes(Header(1, 5)).U32(1).U32(0xFFFFFFFF).U16(0).Written());
    EXPECT_FALSE(dictionary.IsGood());
}

} // namespace
