// Where views live: side by side, in the order of the text. The layout walks a tree that is much larger than
// what it reads of it, and would spend half its time waiting for memory if views lay among their attributes.
#include "toolkit/view_proxy.h"

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
};

class ViewProxyMemory {
public:
    void* Take() {
        if (freeSlots.empty()) AddBlock();
        Slot* const slot = freeSlots.back();
        freeSlots.pop_back();
        ASAN_UNPOISON_MEMORY_REGION(slot, sizeof(Slot));
        return slot;
    }
    void GiveBack(void* room) noexcept {
        ASAN_POISON_MEMORY_REGION(room, sizeof(Slot));
        freeSlots.push_back(static_cast<Slot*>(room));
        const bool isUnused = freeSlots.size() == blocks.size() * kSlotsPerBlock;
        if (isUnused) *this = {}; // nothing is kept from one description to the next
    }

private:
    // Throws std::bad_alloc, and what room was made for more blocks goes with the last view.
    void AddBlock() {
        try {
            freeSlots.reserve((blocks.size() + 1) * kSlotsPerBlock);
            blocks.push_back(std::make_unique_for_overwrite<Slot[]>(kSlotsPerBlock));
        } catch (...) {
            if (blocks.empty()) *this = {}; // there is no last view
            throw;
        }
        Slot* const slots = blocks.back().get();
        for (std::size_t place = kSlotsPerBlock; place-- > 0;) freeSlots.push_back(slots + place);
        ASAN_POISON_MEMORY_REGION(slots, kSlotsPerBlock * sizeof(Slot));
    }

    std::vector<std::unique_ptr<Slot[]>> blocks;
    std::vector<Slot*> freeSlots; // the next one last; has room for every slot, so giving back cannot fail
};

ViewProxyMemory gViewProxyMemory;

} // namespace

void* ViewProxy::operator new(std::size_t) { return gViewProxyMemory.Take(); }

void ViewProxy::operator delete(void* room) noexcept { gViewProxyMemory.GiveBack(room); }

} // namespace brixen::zeve
