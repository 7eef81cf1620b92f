#include "support/failing_allocator.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

namespace pavane_test {
namespace {

std::atomic<std::size_t> gLiveBlocks = 0;
std::atomic<std::size_t> gAllocations = 0;
std::atomic<std::size_t> gBytes = 0;
std::atomic<std::size_t> gFailingAllocation = 0; // the number of the one that fails, counted as gAllocations
std::atomic<bool> gHasFailed = false;

// The block whose deletion is awaited; null after it.
std::atomic<const void*> gKeptBlock = nullptr;
char* gKeptBytes = nullptr;
std::size_t gKeptSize = 0;

bool IsToFail(std::size_t size) noexcept {
    gBytes += size;
    if (++gAllocations != gFailingAllocation) return false;
    gHasFailed = true;
    return true;
}

void* Counted(void* block) noexcept {
    if (block) ++gLiveBlocks;
    return block;
}

void* Allocate(std::size_t size) noexcept {
    return IsToFail(size) ? nullptr : Counted(std::malloc(size ? size : 1));
}

// An over-aligned block has the address that malloc returned just before its own.
void* AllocateAligned(std::size_t size, std::size_t alignment) noexcept {
    if (IsToFail(size)) return nullptr;
    const std::size_t room = alignment + sizeof(void*);
    void* block = Counted(std::malloc(size + room));
    if (!block) return nullptr;
    const auto first = reinterpret_cast<std::uintptr_t>(block);
    void** given = reinterpret_cast<void**>((first + room) & ~(alignment - 1));
    given[-1] = block;
    return given;
}

void Release(void* block) noexcept {
    if (block) --gLiveBlocks;
    if (block && block == gKeptBlock) {
        std::memcpy(gKeptBytes, block, gKeptSize);
        gKeptBlock = nullptr;
    }
    std::free(block);
}

void ReleaseAligned(void* block) noexcept { Release(block ? static_cast<void**>(block)[-1] : nullptr); }

void* OrThrow(void* block) {
    if (!block) throw std::bad_alloc();
    return block;
}

} // namespace

std::size_t LiveBlocks() noexcept { return gLiveBlocks; }

std::size_t AllocationCount() noexcept { return gAllocations; }

std::size_t AllocatedBytes() noexcept { return gBytes; }

FailNthAllocation::FailNthAllocation(std::size_t n) noexcept {
    gHasFailed = false;
    gFailingAllocation = gAllocations + n;
}

FailNthAllocation::~FailNthAllocation() { gFailingAllocation = 0; }

bool FailNthAllocation::HasFailed() const noexcept { return gHasFailed; }

KeepDeletedBytes::KeepDeletedBytes(const void* block, std::size_t size) : kept(size, '\0') {
    gKeptBytes = kept.data();
    gKeptSize = size;
    gKeptBlock = block;
}

KeepDeletedBytes::~KeepDeletedBytes() { gKeptBlock = nullptr; }

std::string KeepDeletedBytes::Bytes() const { return gKeptBlock ? std::string() : kept; }

} // namespace pavane_test

using namespace pavane_test;
using Alignment = std::align_val_t;

static std::size_t Bytes(Alignment alignment) { return static_cast<std::size_t>(alignment); }

void* operator new(std::size_t size) { return OrThrow(Allocate(size)); }
void* operator new[](std::size_t size) { return OrThrow(Allocate(size)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new(std::size_t size, Alignment to) { return OrThrow(AllocateAligned(size, Bytes(to))); }
void* operator new[](std::size_t size, Alignment to) { return OrThrow(AllocateAligned(size, Bytes(to))); }
void* operator new(std::size_t size, Alignment to, const std::nothrow_t&) noexcept {
    return AllocateAligned(size, Bytes(to));
}
void* operator new[](std::size_t size, Alignment to, const std::nothrow_t&) noexcept {
    return AllocateAligned(size, Bytes(to));
}

void operator delete(void* block) noexcept { Release(block); }
void operator delete[](void* block) noexcept { Release(block); }
void operator delete(void* block, std::size_t) noexcept { Release(block); }
void operator delete[](void* block, std::size_t) noexcept { Release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Release(block); }
void operator delete(void* block, Alignment) noexcept { ReleaseAligned(block); }
void operator delete[](void* block, Alignment) noexcept { ReleaseAligned(block); }
void operator delete(void* block, std::size_t, Alignment) noexcept { ReleaseAligned(block); }
void operator delete[](void* block, std::size_t, Alignment) noexcept { ReleaseAligned(block); }
void operator delete(void* block, Alignment, const std::nothrow_t&) noexcept { ReleaseAligned(block); }
void operator delete[](void* block, Alignment, const std::nothrow_t&) noexcept { ReleaseAligned(block); }
