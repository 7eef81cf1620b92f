#include "dictionaries/files/binary_block.h"

#include "dictionaries/files/binary_header.h"
#include "dictionaries/store/key_text.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>

namespace kestrel_private {
namespace {

constexpr std::uint8_t kNativeOrder = std::endian::native == std::endian::little ? kLittleEndian : kBigEndian;

// Copies are as aligned as their file, to this many bytes: so they are made at the speed of the memory.
constexpr std::size_t kCacheLine = 64;

// An array of the file: where it begins in the body, in bytes, and how many numbers it has.
struct ArrayPlace {
    std::size_t begin = 0;
    std::size_t count = 0;
};

struct ColumnPlaces {
    std::uint32_t areaSize = 0; // bytes
    ArrayPlace offsets, lengths, area;
};

struct BlockPlaces {
    std::uint32_t listCount = 0;
    ColumnPlaces keys, values, notes;
    ArrayPlace buckets, sizes, ids, noteIndex;
};

// Finds where the arrays of a block are, and reads its counts.
class BlockScan {
public:
    BlockScan(const ByteCursor& start, FastArrayBlock& target)
        : begin(start.Next()), cursor(start), block(target) {}

    // Ends where the file does.
    BlockPlaces Run() {
        static_cast<void>(ScanCounts() && ScanTexts() && ScanLists() && ScanNotes());
        return places;
    }
    // The bytes of all fields that were read.
    std::size_t Length() const { return static_cast<std::size_t>(cursor.Next() - begin); }

private:
    bool ScanCounts() {
        return cursor.Read(block.firstId) && ScanHasKeys() && cursor.Read(block.entryCount) &&
               cursor.Read(block.liveCount) && cursor.Read(places.listCount) &&
               (!block.hasKeys || cursor.Read(places.keys.areaSize)) && cursor.Read(places.values.areaSize);
    }

    bool ScanHasKeys() {
        std::uint8_t mark = 0;
        if (!cursor.Read(mark)) return false;
        if (mark == kHasKeys) block.hasKeys = true;
        if (mark == kHasNoKeys) block.hasKeys = false;
        return true;
    }

    template <class Number>
    bool ScanArray(ArrayPlace& place, std::uint64_t count) {
        const std::size_t arrayBegin = Length();
        if (cursor.Take(count * sizeof(Number)) == nullptr) return false;
        place = {arrayBegin, static_cast<std::size_t>(count)};
        return true;
    }
    bool ScanTable(ColumnPlaces& column, std::uint32_t count) {
        return ScanArray<std::uint32_t>(column.offsets, count) &&
               ScanArray<std::uint16_t>(column.lengths, count);
    }
    bool ScanArea(ColumnPlaces& column) { return ScanArray<std::uint8_t>(column.area, column.areaSize); }

    bool ScanTexts() {
        const std::uint32_t count = block.entryCount;
        return (!block.hasKeys || ScanTable(places.keys, count)) && ScanTable(places.values, count) &&
               (!block.hasKeys || ScanArea(places.keys)) && ScanArea(places.values);
    }

    // The lists follow one another, so their ids are one array, as far as the lists are whole.
    bool ScanLists() {
        if (!block.hasKeys) return true;
        if (places.listCount > kBucketCount || !ScanArray<std::uint16_t>(places.buckets, places.listCount))
            return false;
        ByteCursor sizes = cursor;
        if (!ScanArray<std::uint32_t>(places.sizes, places.listCount)) return false;
        const auto most = std::min<std::size_t>(cursor.Left() / sizeof(std::uint32_t), UINT32_MAX);
        std::size_t idCount = 0;
        std::uint32_t size = 0;
        std::uint32_t whole = 0;
        while (whole < places.listCount && sizes.Read(size) && size <= most - idCount) {
            idCount += size;
            ++whole;
        }
        return ScanArray<std::uint32_t>(places.ids, idCount) && whole == places.listCount;
    }

    bool ScanNotes() {
        std::uint32_t count = 0;
        return cursor.Read(count) && count != 0 && cursor.Read(places.notes.areaSize) &&
               ScanArray<std::uint32_t>(places.noteIndex, count) && ScanTable(places.notes, count) &&
               ScanArea(places.notes);
    }

    const std::uint8_t* begin;
    ByteCursor cursor;
    FastArrayBlock& block;
    BlockPlaces places;
};

// The copy of the fields of a block. The copy is changed to the byte order of the machine.
class BlockCopy {
public:
    BlockCopy(FastArrayBlock& block, const ByteCursor& start, std::size_t length, const BlockPlaces& places)
        : swaps(start.Swaps()) {
        const std::size_t misplaced = reinterpret_cast<std::uintptr_t>(start.Next()) % kCacheLine;
        block.file.reset(new std::uint8_t[length + 2 * kCacheLine]);
        const std::size_t here = reinterpret_cast<std::uintptr_t>(block.file.get()) % kCacheLine;
        bytes = block.file.get() + (kCacheLine - here) + misplaced;
        // Values are read without a copy where they begin at an even address.
        if (reinterpret_cast<std::uintptr_t>(bytes + places.values.area.begin) % alignof(char16_t) != 0)
            ++bytes;
        std::memcpy(bytes, start.Next(), length);
    }

    template <class Number>
    FileNumbers<Number> Numbers(const ArrayPlace& place) const {
        FileNumbers<Number> numbers(bytes + place.begin, place.count);
        for (std::size_t i = 0; swaps && i < numbers.Size(); ++i) numbers.Set(i, SwapBytes(numbers[i]));
        return numbers;
    }
    // Keys are bytes, and all other texts are units.
    TextColumn Keys(const ColumnPlaces& places) const { return Column(places); }
    TextColumn Texts(const ColumnPlaces& places) const {
        Numbers<std::uint16_t>({places.area.begin, places.area.count / sizeof(std::uint16_t)});
        return Column(places);
    }

private:
    TextColumn Column(const ColumnPlaces& places) const {
        return {Numbers<std::uint32_t>(places.offsets), Numbers<std::uint16_t>(places.lengths),
                std::span(bytes + places.area.begin, places.area.count)};
    }

    bool swaps;
    std::uint8_t* bytes;
};

void ReadBlock(const ByteCursor& start, BinaryBody& body) {
    BlockScan scan(start, body.block);
    const BlockPlaces places = scan.Run();
    const BlockCopy copy(body.block, start, scan.Length(), places);
    body.block.keys = copy.Keys(places.keys);
    body.block.values = copy.Texts(places.values);
    body.block.notes = copy.Texts(places.notes);
    body.lists = {copy.Numbers<std::uint16_t>(places.buckets), copy.Numbers<std::uint32_t>(places.sizes),
                  copy.Numbers<std::uint32_t>(places.ids)};
    const auto noteIndex = copy.Numbers<std::uint32_t>(places.noteIndex);
    body.block.noteIndex.reserve(noteIndex.Size());
    for (std::size_t i = 0; i < noteIndex.Size(); ++i) body.block.noteIndex.push_back(noteIndex[i]);
}

// Version 2.0 has no byte order: it is that of the machine.
bool ReadByteOrder(ByteCursor& cursor, int minor, bool& swaps) {
    if (minor < 1) return true;
    std::uint8_t order = 0;
    if (!cursor.Read(order)) return false;
    swaps = (order & 1) != kNativeOrder;
    return true;
}

} // namespace

BinaryBody ReadBinaryBody(const std::uint8_t* begin, const std::uint8_t* end, int minor) {
    BinaryBody body;
    body.block.fileSize = static_cast<std::uint64_t>(end - begin) + kBinaryHeaderSize;
    ByteCursor start(begin, end);
    bool swaps = false;
    if (!ReadByteOrder(start, minor, swaps)) return body;
    ByteCursor cursor(start.Next(), end, swaps);
    std::uint32_t length = 0;
    if (!cursor.Read(length) || cursor.Left() == 0) return body;
    const std::uint8_t* const text = cursor.Take(length);
    if (text == nullptr) return body;
    body.headerText = std::string(reinterpret_cast<const char*>(text), length);
    ReadBlock(cursor, body);
    return body;
}

} // namespace kestrel_private
