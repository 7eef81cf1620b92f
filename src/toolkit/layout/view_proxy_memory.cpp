// Where views live: side by side, in the order of the text. The layout walks a tree that is much larger than
// what it reads of it, and would spend half its time waiting for memory if views lay among their attributes.
#include "toolkit/layout/view_proxy.h"

#include <cstddef>
#include <memory>
#include <vector>

// A slot without a view is shut to everyone where AddressSanitizer watches; elsewhere that is no code at all.
#if __has_include(<sanitizer/asan_interface.h>)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(room, size) static_cast<void>(0)
#define ASAN_UNPOISON_MEMORY_REGION(room, size) static_cast<void>(0)
#endif

namespace brixen::zeve {
namespace {

constexpr std::size_t kCacheLine = 64;
constexpr std::size_t kSlotsPerBlock = 64;

struct alignas(kCacheLine) Slot {
    std::byte room[sizeof(ViewProxy)];
    Slot* next; // the next free one, while this one is free
};

class ViewProxyMemory {
public:
    void* Take() {
        if (!free) AddBlock();
        Slot* const slot = free;
        free = slot->next;
        ++viewCount;
        ASAN_UNPOISON_MEMORY_REGION(slot->room, sizeof slot->room);
        return slot->room;
    }
    void GiveBack(void* room) noexcept {
        MakeFree(static_cast<Slot*>(room));
        --viewCount;
        if (viewCount == 0) *this = {}; // nothing is kept from one description to the next
    }

private:
    void AddBlock() {
        blocks.push_back(std::make_unique_for_overwrite<Slot[]>(kSlotsPerBlock));
        Slot* const slots = blocks.back().get();
        for (std::size_t place = kSlotsPerBlock; place-- > 0;) MakeFree(slots + place);
    }
    void MakeFree(Slot* slot) noexcept {
        ASAN_POISON_MEMORY_REGION(slot->room, sizeof slot->room);
        slot->next = free;
        free = slot;
    }

    std::vector<std::unique_ptr<Slot[]>> blocks;
    Slot* free = nullptr;
    std::size_t viewCount = 0; // of those that live
};

ViewProxyMemory gViewProxyMemory;

} // namespace

void* ViewProxy::operator new(std::size_t) { return gViewProxyMemory.Take(); }

void ViewProxy::operator delete(void* room) noexcept { gViewProxyMemory.GiveBack(room); }

} // namespace brixen::zeve
