#pragma once

#include <memory>
#include <vector>

namespace kestrel_private {

// Leaves new elements as they are, for arrays that are copied into as a whole.
template <class Element>
struct UnfilledAllocator : std::allocator<Element> {
    template <class Other>
    struct rebind {
        using other = UnfilledAllocator<Other>;
    };

    template <class Other>
    void construct(Other* place) noexcept {
        ::new (static_cast<void*>(place)) Other;
    }
};

// An array of plain numbers as it stood in a file. `resize(n)` gives elements without a value; give one, as
// in `resize(n, 0)`, wherever they are not written at once.
template <class Number>
using FileArray = std::vector<Number, UnfilledAllocator<Number>>;

} // namespace kestrel_private
