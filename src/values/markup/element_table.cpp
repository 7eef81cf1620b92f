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

// A small table grows by few entries at a time; it has memory for more than it tells.
constexpr std::int32_t AllocatedFor(std::int32_t entries) { return std::max(entries, 32); }

std::unique_ptr<ElemPos[]> MakeSegment(std::int32_t entries) {
    // Not zeroed: a big table would be written twice, and touched before it is needed.
    return std::unique_ptr<ElemPos[]>(new ElemPos[static_cast<std::size_t>(AllocatedFor(entries))]);
}

} // namespace

ElementTable::ElementTable(const ElementTable& other) {
    if (other.fCapacity == 0) return;
    const std::int32_t last = SegmentOf(other.fFree - 1);
    ReserveSegments(last);
    for (std::int32_t segment = 0; segment <= last; ++segment) {
        const std::int32_t entries = std::min(other.fFree - EntriesBefore(segment), kSegmentEntries);
        SegmentAt(segment) = MakeSegment(entries);
        std::copy_n(other.SegmentAt(segment).get(), entries, SegmentAt(segment).get());
    }
    fFree = fCapacity = other.fFree;
}

ElementTable::ElementTable(ElementTable&& other) noexcept : ElementTable() { swap(*this, other); }

ElementTable& ElementTable::operator=(ElementTable other) noexcept {
    swap(*this, other);
    return *this;
}

void swap(ElementTable& left, ElementTable& right) noexcept {
    std::swap(left.fSegments, right.fSegments);
    std::swap(left.fFree, right.fFree);
    std::swap(left.fCapacity, right.fCapacity);
    std::swap(left.fSegmentCapacity, right.fSegmentCapacity);
}

void ElementTable::Clear() {
    fFree = 1;
    if (fCapacity > 0) (*this)[0] = {};
}

void ElementTable::Grow(std::int32_t request) {
    if (request == 0) request = fFree + fFree / 2;
    request = std::max(request, fFree + 1);
    if (fCapacity >= request) return;
    const std::int32_t oldLast = fCapacity == 0 ? -1 : SegmentOf(fCapacity - 1);
    request = std::min(request, EntriesUpTo(oldLast + 1));
    const std::int32_t last = SegmentOf(request - 1);
    ReserveSegments(last);
    if (oldLast >= 0) {
        ResizeSegment(oldLast, fCapacity - EntriesBefore(oldLast),
                      std::min(request - EntriesBefore(oldLast), kSegmentEntries));
    }
    if (last > oldLast) ResizeSegment(last, 0, request - EntriesBefore(last));
    if (fCapacity == 0) (*this)[0] = {};
    fCapacity = request;
}

void ElementTable::ResizeSegment(std::int32_t segment, std::int32_t used, std::int32_t entries) {
    if (used > 0 && entries <= AllocatedFor(used)) return;
    Segment larger = MakeSegment(entries);
    if (used > 0) std::copy_n(SegmentAt(segment).get(), used, larger.get());
    SegmentAt(segment) = std::move(larger);
}

void ElementTable::ReserveSegments(std::int32_t lastSegment) {
    if (lastSegment < fSegmentCapacity) return;
    const std::int32_t capacity = lastSegment * 2 + 4;
    auto larger = std::make_unique<Segment[]>(static_cast<std::size_t>(capacity));
    std::move(fSegments.get(), fSegments.get() + fSegmentCapacity, larger.get());
    fSegments = std::move(larger);
    fSegmentCapacity = capacity;
}

} // namespace brixen::lyr::gen
