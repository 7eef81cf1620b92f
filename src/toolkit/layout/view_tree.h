// The views of one run of a description. The run owns the tree, and the tree owns every view that was made,
// also those that failed later; it frees all of them together.
#pragma once

#include "toolkit/layout/view_proxy.h"

#include <cstddef>
#include <memory_resource>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

namespace brixen::zeve {

// Objects side by side in the order of their making, at addresses that stay.
template <class T>
class Arena {
public:
    explicit Arena(std::pmr::memory_resource& memory) : blocks(&memory) {}
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;
    ~Arena() {
        while (count > 0) Slot(--count)->~T();
        for (T* block : blocks) Memory().deallocate(block, kBlockSize, alignof(T));
    }

    // Throws what the constructor and the memory throw, and then nothing has been made.
    template <class... Arguments>
    T& Make(Arguments&&... arguments) {
        if (count == blocks.size() * kObjectsPerBlock) AddBlock();
        T* const made = ::new (Slot(count)) T(std::forward<Arguments>(arguments)...);
        ++count;
        return *made;
    }

    std::size_t Count() const { return count; }

private:
    static constexpr std::size_t kObjectsPerBlock = 64;
    static constexpr std::size_t kBlockSize = kObjectsPerBlock * sizeof(T);

    std::pmr::memory_resource& Memory() const { return *blocks.get_allocator().resource(); }
    T* Slot(std::size_t place) const { return blocks[place / kObjectsPerBlock] + place % kObjectsPerBlock; }
    void AddBlock() {
        if (blocks.size() == blocks.capacity()) blocks.reserve(blocks.size() * 2 + 8);
        blocks.push_back(static_cast<T*>(Memory().allocate(kBlockSize, alignof(T))));
    }

    std::pmr::vector<T*> blocks;
    std::size_t count = 0;
};

class ViewTree {
public:
    // The generator prepares and creates the views, and outlives the tree: its pool holds their memory.
    explicit ViewTree(CGenerator& itsGenerator) : generator(itsGenerator) {}

    // Makes a view and has the generator prepare it; the view is in no list yet. The arguments are used
    // during the call alone. Throws what the generator throws.
    ViewProxy& Make(std::string_view keyword, CExpressionScope& viewAttributes, ViewProxy* parent,
                    const ViewInheritance& inherited);

    // Counts every view that was made.
    std::size_t Count() const { return views.Count(); }

    // Gives every view below `root` its size and position, writes them into its attributes and has the
    // generator create its box, parents first. Call it once. Returns the generator's `fixedRoot` if it has
    // one, else the root view's handle. Recurses as deep as the tree is, which the reader bounds. Throws what
    // the generator throws; `Current` is then the view that it was asked for.
    ViewHandle LayOutAndMakeBoxes(ViewProxy& root);

    // The view that the generator creates or created last; null before the first.
    const ViewProxy* Current() const { return current; }

private:
    ViewHandle MakeBoxes(ViewProxy& view, ViewHandle parentHandle);

    CGenerator& generator;
    Arena<ViewDetails> details{generator.pool.Memory()};
    Arena<ViewProxy> views{generator.pool.Memory()};
    const ViewProxy* current = nullptr;
};

} // namespace brixen::zeve
