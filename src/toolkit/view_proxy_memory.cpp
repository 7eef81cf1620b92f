// Where views live: side by side, in the order of the text. The layout walks a tree that is much larger than
// what it reads of it, and would spend its time waiting for memory if views lay among their attributes.
#include "toolkit/view_proxy.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace brixen::zeve {
namespace {

constexpr std::size_t kCacheLine = 64;
constexpr std::size_t kSlotsPerBlock = 64;

// The room for one view; while it is free, a link to the next free one.
union alignas(kCacheLine) Slot {
    Slot* next;
    std::byte room[sizeof(ViewProxy)];
};

struct ViewProxyMemory {
    std::vector<std::unique_ptr<Slot[]>> blocks;
    Slot* free = nullptr;
    std::size_t viewCount = 0; // of those that live

    void AddBlock() {
        auto block = std::make_unique_for_overwrite<Slot[]>(kSlotsPerBlock);
        Slot* const slots = block.get();
        blocks.push_back(std::move(block));
        for (std::size_t place = kSlotsPerBlock; place-- > 0;) {
            slots[place].next = free;
            free = &slots[place];
        }
    }
    // Nothing is kept from one description to the next.
    void Clear() noexcept {
        blocks = decltype(blocks)();
        free = nullptr;
    }
};

ViewProxyMemory gViewProxyMemory;

} // namespace

void* ViewProxy::operator new(std::size_t) {
    ViewProxyMemory& memory = gViewProxyMemory;
    if (!memory.free) memory.AddBlock();
    Slot* const slot = memory.free;
    memory.free = slot->next;
    ++memory.viewCount;
    return slot;
}

void ViewProxy::operator delete(void* room) noexcept {
    ViewProxyMemory& memory = gViewProxyMemory;
    Slot* const slot = static_cast<Slot*>(room);
    slot->next = memory.free;
    memory.free = slot;
    if (--memory.viewCount == 0) memory.Clear();
}

} // namespace brixen::zeve
