#pragma once

namespace brixen::lyr::gen {

// How far a range conversion came.
template <class Source, class Target>
struct RangePositions {
    const Source* source;
    Target* target;
};

} // namespace brixen::lyr::gen
