#include "dictionaries/files/binary_chains.h"

#include "dictionaries/files/byte_cursor.h"

#include <cstring>
#include <optional>

namespace kestrel_private {
namespace {

// Adds the items of one bucket. The items of a bucket that does not exist are dropped.
class Bucket {
public:
    Bucket(ChainStore& chains, std::uint32_t bucket, std::uint8_t conversionCode)
        : conversionCode(conversionCode) {
        if (bucket < kBucketCount) front.emplace(chains, bucket);
    }

    void Add(std::string_view key, std::string_view value) {
        if (front) front->Add(key, Decoded(value));
    }

private:
    kestrel::ZString Decoded(std::string_view value) const {
        if (value.empty()) return kestrel::ZString();
        const EncodingCode encoding = conversionCode;
        if (encoding != 0) return kestrel::ZString::FromBytes(value, &encoding);
        return {value.data(), static_cast<std::uint32_t>(value.size())};
    }

    std::optional<ChainStore::Front> front;
    std::uint8_t conversionCode;
};

std::optional<std::string_view> TakeText(ByteCursor& cursor, std::uint32_t length) {
    const std::uint8_t* const bytes = cursor.Take(length);
    if (bytes == nullptr) return std::nullopt;
    return std::string_view(reinterpret_cast<const char*>(bytes), length);
}

// Reads an item of version 1.0. Returns its size in the file, or nothing when it is not whole.
std::optional<std::uint64_t> ReadItem(ByteCursor& cursor, Bucket& bucket) {
    const auto takeWithLength = [&]() -> std::optional<std::string_view> {
        std::uint32_t length = 0;
        if (!cursor.Read(length)) return std::nullopt;
        return TakeText(cursor, length);
    };
    const auto key = takeWithLength();
    if (!key) return std::nullopt;
    const auto value = takeWithLength();
    if (!value) return std::nullopt;
    bucket.Add(*key, *value);
    return 2 * sizeof(std::uint32_t) + key->size() + value->size();
}

// Each row of the table is a bucket and where its items begin. The last row only ends the row before it.
bool ReadVersion10(const std::uint8_t* begin, const std::uint8_t* end, std::uint8_t conversionCode,
                   ChainStore& chains) {
    constexpr std::size_t kRowSize = sizeof(std::uint16_t) + sizeof(std::uint32_t);
    ByteCursor cursor(begin, end);
    std::uint16_t rowCount = 0;
    if (!cursor.Read(rowCount)) return false;
    auto rows = cursor.TakePart(rowCount * kRowSize);
    if (!rows) return false;
    std::uint16_t number = 0;
    std::uint32_t offset = 0;
    if (!rows->Read(number) || !rows->Read(offset)) return true;
    std::uint64_t running = offset;
    std::uint16_t nextNumber = 0;
    for (; rows->Read(nextNumber) && rows->Read(offset); number = nextNumber) {
        Bucket bucket(chains, number, conversionCode);
        while (running < offset) {
            const auto size = ReadItem(cursor, bucket);
            if (!size) return false;
            running += *size;
        }
    }
    return true;
}

// The tables of version 1.5. The run ends count the rows of the length table, which are pairs of key and
// value.
struct Version15Tables {
    ByteCursor runEnds, lengths, buckets;
};

std::optional<Version15Tables> ReadTables(ByteCursor& cursor) {
    std::uint32_t count = 0;
    if (!cursor.Read(count)) return std::nullopt;
    const auto runEnds = cursor.TakePart(std::uint64_t{count} * sizeof(std::uint32_t));
    if (!runEnds) return std::nullopt;
    std::uint32_t rowCount = 0;
    if (count != 0) std::memcpy(&rowCount, cursor.Next() - sizeof rowCount, sizeof rowCount);
    const auto lengths = cursor.TakePart(std::uint64_t{rowCount} * 2 * sizeof(std::uint16_t));
    if (!lengths) return std::nullopt;
    const auto buckets = cursor.TakePart(std::uint64_t{count} * sizeof(std::uint16_t));
    if (!buckets) return std::nullopt;
    return Version15Tables{*runEnds, *lengths, *buckets};
}

// A key or value whose length is next in the table.
std::optional<std::string_view> TakeNextText(ByteCursor& lengths, ByteCursor& texts) {
    std::uint16_t length = 0;
    if (!lengths.Read(length)) return std::nullopt;
    return TakeText(texts, length);
}

bool ReadVersion15(const std::uint8_t* begin, const std::uint8_t* end, std::uint8_t conversionCode,
                   ChainStore& chains) {
    ByteCursor cursor(begin, end);
    auto tables = ReadTables(cursor);
    if (!tables) return false;
    std::uint32_t row = 0;
    std::uint32_t runEnd = 0;
    std::uint16_t number = 0;
    while (tables->runEnds.Read(runEnd) && tables->buckets.Read(number)) {
        Bucket bucket(chains, number, conversionCode);
        for (; row < runEnd; ++row) {
            const auto key = TakeNextText(tables->lengths, cursor);
            if (!key) return false;
            const auto value = TakeNextText(tables->lengths, cursor);
            if (!value) return false;
            bucket.Add(*key, *value);
        }
    }
    return true;
}

} // namespace

ChainReader ChainReaderOf(const BinaryVersion& version) {
    if (version.major != 1) return nullptr;
    if (version.minor == 0) return ReadVersion10;
    return version.minor == 5 ? ReadVersion15 : nullptr;
}

} // namespace kestrel_private
