#include "values/markup/blocks.h"

namespace brixen::lyr::gen {

NameBlock PaddedBlock(const char* bytes, std::ptrdiff_t count) {
    NameBlock block{};
    std::memcpy(block.bytes, bytes, static_cast<std::size_t>(count));
    return block;
}

} // namespace brixen::lyr::gen
