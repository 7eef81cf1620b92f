#include "dictionaries/files/binary_block.h"

#include "dictionaries/files/binary_header.h"
#include "dictionaries/store/key_text.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace kestrel_private {
namespace {

constexpr std::uint8_t kNativeOrder = std::endian::native == std::endian::little ? kLittleEndian : kBigEndian;

// The arrays of a column, which stand apart in the file.
struct ColumnFields {
    std::uint32_t areaSize = 0;
    FileArray<std::uint32_t> offsets;
    FileArray<std::uint16_t> lengths;
    FileArray<std::uint8_t> area;

    bool ReadTable(ByteCursor& cursor, std::uint32_t count) {
        return cursor.Read(offsets, count) && cursor.Read(lengths, count);
    }
    bool ReadArea(ByteCursor& cursor) { return cursor.Read(area, areaSize); }
    // Of 16-bit units.
    bool ReadUnits(ByteCursor& cursor) {
        if (!ReadArea(cursor)) return false;
        if (!cursor.Swaps()) return true;
        for (std::size_t i = 0; i + 1 < area.size(); i += 2) std::swap(area[i], area[i + 1]);
        return true;
    }
    TextColumn Column() && { return {std::move(offsets), std::move(lengths), std::move(area)}; }
};

class BlockReader {
public:
    BlockReader(const ByteCursor& cursor, FastArrayBlock& block, BucketLists& lists)
        : cursor(cursor), block(block), lists(lists) {}

    void Read() {
        // Stops where the file does.
        (void)(ReadCounts() && ReadTexts() && ReadLists() && ReadNotes());
        block.keys = std::move(keys).Column();
        block.values = std::move(values).Column();
        block.notes = std::move(notes).Column();
    }

private:
    bool ReadCounts() {
        return cursor.Read(block.firstId) && ReadHasKeys() && cursor.Read(block.entryCount) &&
               cursor.Read(block.liveCount) && cursor.Read(listCount) &&
               (!block.hasKeys || cursor.Read(keys.areaSize)) && cursor.Read(values.areaSize);
    }

    bool ReadHasKeys() {
        std::uint8_t mark = 0;
        if (!cursor.Read(mark)) return false;
        if (mark == kHasKeys) block.hasKeys = true;
        if (mark == kHasNoKeys) block.hasKeys = false;
        return true;
    }

    bool ReadTexts() {
        const std::uint32_t count = block.entryCount;
        return (!block.hasKeys || keys.ReadTable(cursor, count)) && values.ReadTable(cursor, count) &&
               (!block.hasKeys || keys.ReadArea(cursor)) && values.ReadUnits(cursor);
    }

    bool ReadLists() {
        if (!block.hasKeys) return true;
        FileArray<std::uint16_t> buckets;
        FileArray<std::uint32_t> sizes;
        if (listCount > kBucketCount || !cursor.Read(buckets, listCount) || !cursor.Read(sizes, listCount)) {
            return false;
        }
        // The lists follow one another, so they are taken as one array, as far as they are whole.
        const auto most = std::min<std::size_t>(cursor.Left() / sizeof(std::uint32_t), UINT32_MAX);
        lists.lists.reserve(listCount);
        std::size_t end = 0;
        std::size_t list = 0;
        for (; list < listCount && sizes[list] <= most - end; end += sizes[list], ++list) {
            if (buckets[list] >= kBucketCount) continue;
            lists.lists.push_back({buckets[list], static_cast<std::uint32_t>(end), sizes[list]});
        }
        return cursor.Read(lists.ids, end) && list == listCount;
    }

    bool ReadNotes() {
        std::uint32_t count = 0;
        return cursor.Read(count) && count != 0 && cursor.Read(notes.areaSize) &&
               cursor.Read(block.noteIndex, count) && notes.ReadTable(cursor, count) &&
               notes.ReadUnits(cursor);
    }

    ByteCursor cursor;
    FastArrayBlock& block;
    BucketLists& lists;
    std::uint32_t listCount = 0;
    ColumnFields keys, values, notes;
};

// Version 2.0 was always in the order of the machine.
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
    ByteCursor start(begin, end);
    bool swaps = false;
    if (!ReadByteOrder(start, minor, swaps)) return body;
    ByteCursor cursor(start.Next(), end, swaps);
    std::uint32_t length = 0;
    if (!cursor.Read(length) || cursor.Left() == 0) return body;
    const std::uint8_t* const text = cursor.Take(length);
    if (text == nullptr) return body;
    body.headerText = std::string(reinterpret_cast<const char*>(text), length);
    BlockReader(cursor, body.block, body.lists).Read();
    return body;
}

} // namespace kestrel_private
