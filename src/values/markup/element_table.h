// The table of a document's elements by index, with the places of their tags in the text.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>

namespace brixen::lyr::gen {

// One element: byte positions in the document, and indexes of other elements in the table.
// The element has the short form (`<a/>`) exactly when startTagRight equals endTagLeft plus 1.
struct ElemPos {
    std::int32_t startTagLeft;  // the `<` of the start tag
    std::int32_t startTagRight; // the `>` of the start tag
    std::int32_t endTagLeft;    // the `<` of the end tag; in the short form the `/`
    std::int32_t endTagRight;   // the `>` of the end tag; in the short form the same as startTagRight
    std::int32_t parent;
    std::int32_t firstChild;  // 0 for none
    std::int32_t nextSibling; // 0 for none
};

// The elements of one document. Index 0 is the virtual root, so 1 is the first to be given out. An index
// holds until Clear. Entries are in segments of 65536, so that growing never copies more than one segment.
// Fresh entries are not initialized. Throws std::bad_alloc without any visible change.
class ElementTable {
public:
    static constexpr std::int32_t kSegmentBits = 16;
    static constexpr std::int32_t kSegmentEntries = 1 << kSegmentBits;
    static constexpr std::int32_t kRemoved = -1; // the parent of an element that was removed

    ElementTable() = default;
    // Each segment of the copy is as large as the entries in use.
    ElementTable(const ElementTable& other);
    ElementTable(ElementTable&& other) noexcept;
    ElementTable& operator=(ElementTable other) noexcept;
    ~ElementTable() = default;

    ElemPos& operator[](std::int32_t index) {
        return SegmentAt(index >> kSegmentBits).get()[index & kEntryMask];
    }
    const ElemPos& operator[](std::int32_t index) const {
        return SegmentAt(index >> kSegmentBits).get()[index & kEntryMask];
    }

    // The next index to be given out; 1 when the table is empty.
    std::int32_t Free() const { return free; }
    // The number of allocated entries, with the root's. A fresh table has none, not even the root.
    std::int32_t Capacity() const { return capacity; }
    // The length of the array of segments.
    std::int32_t SegmentCapacity() const { return segmentCapacity; }

    // Gives out the next entry, which is not initialized. There must be room for it.
    std::int32_t Take() { return free++; }
    bool IsFull() const { return free >= capacity; }
    // The number of free entries that are adjacent in memory, from the next one on.
    std::int32_t FreeRun() const { return std::min(capacity - free, kSegmentEntries - (free & kEntryMask)); }
    // Takes back the entries from `firstUnused` on, or marks all before it as given out.
    void SetFree(std::int32_t firstUnused) { free = firstUnused; }
    // Removes all elements and zeroes the root; the memory stays allocated.
    void Clear();
    // Makes room for `request` entries; 0 asks for half as many again as are in use. A call adds at most one
    // segment, and there is always room for one more entry afterward. Entries may move.
    void Grow(std::int32_t request = 0);

    friend void swap(ElementTable& left, ElementTable& right) noexcept;

private:
    static constexpr std::int32_t kEntryMask = kSegmentEntries - 1;
    using Segment = std::unique_ptr<ElemPos[]>;

    Segment& SegmentAt(std::int32_t segment) const { return segments.get()[segment]; }
    void ResizeSegment(std::int32_t segment, std::int32_t used, std::int32_t entries);
    void ReserveSegments(std::int32_t lastSegment);

    std::unique_ptr<Segment[]> segments;
    std::int32_t free = 1;
    std::int32_t capacity = 0;
    std::int32_t segmentCapacity = 0;
};

} // namespace brixen::lyr::gen
