#include "view/scope/scope_memory.h"

namespace brixen::zeve {
namespace {

bool NeedsAlignedNew(std::size_t alignment) { return alignment > __STDCPP_DEFAULT_NEW_ALIGNMENT__; }

} // namespace

void ScopeMemory::Charge(std::size_t bytes) {
    if (held > limit || bytes > limit - held) throw ScopeMemoryExhausted();
    held += bytes;
}

void* ScopeMemory::do_allocate(std::size_t bytes, std::size_t alignment) {
    Charge(bytes);
    void* const room = NeedsAlignedNew(alignment)
                           ? ::operator new (bytes, std::align_val_t{alignment}, std::nothrow)
                           : ::operator new(bytes, std::nothrow);
    if (room) return room;
    held -= bytes;
    throw std::bad_alloc();
}

void ScopeMemory::do_deallocate(void* room, std::size_t bytes, std::size_t alignment) {
    held -= bytes;
    if (NeedsAlignedNew(alignment)) {
        ::operator delete (room, std::align_val_t{alignment});
    } else {
        ::operator delete(room);
    }
}

} // namespace brixen::zeve
