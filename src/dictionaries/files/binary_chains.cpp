#include "dictionaries/files/binary_chains.h"

#include "dictionaries/files/byte_cursor.h"

#include <optional>

namespace kestrel_private {
namespace {

// Adds the items of one bucket. A bucket that no chain has is read and forgotten.
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

// An item of version 1.0; its size in the file, or nothing when it does not fit.
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

// Each row of the table is a bucket and where its items begin; the last row only ends the one before it.
bool ReadVersion10(const std::uint8_t* begin, const std::uint8_t* end, std::uint8_t conversionCode,
                   ChainStore& chains) {
    constexpr std::size_t kRowSize = sizeof(std::uint16_t) + sizeof(std::uint32_t);
    ByteCursor cursor(begin, end);
    std::uint16_t rowCount = 0;
    if (!cursor.Read(rowCount)) return false;
    const std::uint8_t* const table = cursor.Take(rowCount * kRowSize);
    if (table == nullptr) return false;
    ByteCursor rows(table, table + rowCount * kRowSize);
    std::uint16_t number = 0;
    std::uint32_t offset = 0;
    if (!rows.Read(number) || !rows.Read(offset)) return true;
    std::uint64_t running = offset;
    std::uint16_t nextNumber = 0;
    for (; rows.Read(nextNumber) && rows.Read(offset); number = nextNumber) {
        Bucket bucket(chains, number, conversionCode);
        while (running < offset) {
            const auto size = ReadItem(cursor, bucket);
            if (!size) return false;
            running += *size;
        }
    }
    return true;
}

struct Version15Tables {
    FileArray<std::uint32_t> runEnds;
    FileArray<std::uint16_t> lengths; // pairs of key and value
    FileArray<std::uint16_t> buckets;

    bool Read(ByteCursor& cursor) {
        std::uint32_t count = 0;
        if (!cursor.Read(count) || !cursor.Read(runEnds, count)) return false;
        const std::uint64_t rowCount = count == 0 ? 0 : runEnds.back();
        return cursor.Read(lengths, rowCount * 2) && cursor.Read(buckets, count);
    }
};

bool ReadVersion15(const std::uint8_t* begin, const std::uint8_t* end, std::uint8_t conversionCode,
                   ChainStore& chains) {
    ByteCursor cursor(begin, end);
    Version15Tables tables;
    if (!tables.Read(cursor)) return false;
    std::size_t row = 0;
    for (std::size_t list = 0; list < tables.runEnds.size(); ++list) {
        Bucket bucket(chains, tables.buckets[list], conversionCode);
        for (; row < tables.runEnds[list]; ++row) {
            if (row >= tables.lengths.size() / 2) return false;
            const auto key = TakeText(cursor, tables.lengths[2 * row]);
            if (!key) return false;
            const auto value = TakeText(cursor, tables.lengths[2 * row + 1]);
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
