#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>

namespace brixen::lyr::gen {

// Where one element lies: byte positions in the document, and indexes of other elements in the table.
// The element is empty in the short form (`<a/>`) exactly when startTagRight equals endTagLeft plus 1.
struct ElemPos {
    std::int32_t startTagLeft;  // the `<` of the start tag
    std::int32_t startTagRight; // the `>` of the start tag
    std::int32_t endTagLeft;    // the `<` of the end tag; in the short form the `/`
    std::int32_t endTagRight;   // the `>` of the end tag; in the short form the same as startTagRight
    std::int32_t parent;
    std::int32_t firstChild;  // 0 for none
    std::int32_t nextSibling; // 0 for none
};

// The elements of one document by index. Index 0 is the virtual root, so 1 is the first to be given out; an
// index stays what it is until Clear. Entries lie in segments of 65536, so that growing never copies more
// than one segment. Fresh entries hold nothing sensible. Memory exhaustion is left to the allocator's
// exception and changes nothing that can be seen.
class ElementTable {
public:
    static constexpr std::int32_t kSegmentBits = 16;
    static constexpr std::int32_t kSegmentEntries = 1 << kSegmentBits;

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
    std::int32_t Free() const { return fFree; }
    // Entries allocated in total, the root's included. A fresh table has none, not even the root.
    std::int32_t Capacity() const { return fCapacity; }
    // Length of the array of segments.
    std::int32_t SegmentCapacity() const { return fSegmentCapacity; }

    // Gives the next entry out as it lies there. There must be room for it.
    std::int32_t Take() { return fFree++; }
    bool IsFull() const { return fFree >= fCapacity; }
    // How many entries from there on lie side by side.
    std::int32_t FreeRun() const {
        return std::min(fCapacity - fFree, kSegmentEntries - (fFree & kEntryMask));
    }
    // Takes back the entry at `firstUnused` and all behind it, or says that all in front of it are given out.
    void SetFree(std::int32_t firstUnused) { fFree = firstUnused; }
    // Removes all elements and zeroes the root; the memory stays.
    void Clear();
    // Makes room for `request` entries, or for half as many again as are in use when it is 0. At most one
    // segment is added in a call, and there is always room for one more entry afterward. Entries may move.
    void Grow(std::int32_t request = 0);

    friend void swap(ElementTable& left, ElementTable& right) noexcept;

private:
    static constexpr std::int32_t kEntryMask = kSegmentEntries - 1;
    using Segment = std::unique_ptr<ElemPos[]>;

    Segment& SegmentAt(std::int32_t segment) const { return fSegments.get()[segment]; }
    void ResizeSegment(std::int32_t segment, std::int32_t used, std::int32_t entries);
    void ReserveSegments(std::int32_t lastSegment);

    std::unique_ptr<Segment[]> fSegments;
    std::int32_t fFree = 1;
    std::int32_t fCapacity = 0;
    std::int32_t fSegmentCapacity = 0;
};

} // namespace brixen::lyr::gen
