#include "values/markup/element_table.h"

#include <algorithm>
#include <utility>

namespace brixen::lyr::gen {
namespace {

constexpr std::int32_t SegmentOf(std::int32_t index) { return index >> ElementTable::kSegmentBits; }

constexpr std::int32_t EntriesUpTo(std::int32_t segment) {
    return (segment + 1) << ElementTable::kSegmentBits;
}

constexpr std::int32_t EntriesBefore(std::int32_t segment) { return segment << ElementTable::kSegmentBits; }

// A small table grows by few entries at a time, so it has memory for more than its capacity.
constexpr std::int32_t AllocatedFor(std::int32_t entries) { return std::max(entries, 32); }

std::unique_ptr<ElemPos[]> MakeSegment(std::int32_t entries) {
    // Not zeroed: a big table would be written twice, and touched before it is needed.
    return std::unique_ptr<ElemPos[]>(new ElemPos[static_cast<std::size_t>(AllocatedFor(entries))]);
}

} // namespace

ElementTable::ElementTable(const ElementTable& other) {
    if (other.capacity == 0) return;
    const std::int32_t last = SegmentOf(other.free - 1);
    ReserveSegments(last);
    for (std::int32_t segment = 0; segment <= last; ++segment) {
        const std::int32_t entries = std::min(other.free - EntriesBefore(segment), kSegmentEntries);
        SegmentAt(segment) = MakeSegment(entries);
        std::copy_n(other.SegmentAt(segment).get(), entries, SegmentAt(segment).get());
    }
    free = other.free;
    capacity = other.free;
}

ElementTable::ElementTable(ElementTable&& other) noexcept : ElementTable() { swap(*this, other); }

ElementTable& ElementTable::operator=(ElementTable other) noexcept {
    swap(*this, other);
    return *this;
}

void swap(ElementTable& left, ElementTable& right) noexcept {
    std::swap(left.segments, right.segments);
    std::swap(left.free, right.free);
    std::swap(left.capacity, right.capacity);
    std::swap(left.segmentCapacity, right.segmentCapacity);
}

void ElementTable::Clear() {
    free = 1;
    if (capacity > 0) (*this)[0] = {};
}

void ElementTable::Grow(std::int32_t request) {
    if (request == 0) request = free + free / 2;
    request = std::max(request, free + 1);
    if (capacity >= request) return;
    const std::int32_t oldLast = capacity == 0 ? -1 : SegmentOf(capacity - 1);
    request = std::min(request, EntriesUpTo(oldLast + 1));
    const std::int32_t last = SegmentOf(request - 1);
    ReserveSegments(last);
    if (oldLast >= 0) {
        ResizeSegment(oldLast, capacity - EntriesBefore(oldLast),
                      std::min(request - EntriesBefore(oldLast), kSegmentEntries));
    }
    if (last > oldLast) ResizeSegment(last, 0, request - EntriesBefore(last));
    if (capacity == 0) (*this)[0] = {};
    capacity = request;
}

void ElementTable::ResizeSegment(std::int32_t segment, std::int32_t used, std::int32_t entries) {
    if (used > 0 && entries <= AllocatedFor(used)) return;
    Segment larger = MakeSegment(entries);
    if (used > 0) std::copy_n(SegmentAt(segment).get(), used, larger.get());
    SegmentAt(segment) = std::move(larger);
}

void ElementTable::ReserveSegments(std::int32_t lastSegment) {
    if (lastSegment < segmentCapacity) return;
    const std::int32_t largerCapacity = lastSegment * 2 + 4;
    auto larger = std::make_unique<Segment[]>(static_cast<std::size_t>(largerCapacity));
    std::move(segments.get(), segments.get() + segmentCapacity, larger.get());
    segments = std::move(larger);
    segmentCapacity = largerCapacity;
}

} // namespace brixen::lyr::gen
