// The hash of a variable's name.
#pragma once

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

// Returns the number that a byte of a name adds to its hash: its place in 0-9, A-Z, a-z, _. Any other byte
// adds 0.
constexpr std::uint32_t ScopeNameByteCode(char byte) {
    if (byte >= '0' && byte <= '9') return static_cast<std::uint32_t>(byte - '0');
    if (byte >= 'A' && byte <= 'Z') return static_cast<std::uint32_t>(byte - 'A') + 10;
    if (byte >= 'a' && byte <= 'z') return static_cast<std::uint32_t>(byte - 'a') + 36;
    return byte == '_' ? 62 : 0;
}

// Wraps at 32 bits.
constexpr std::uint32_t ScopeNameHash(std::string_view name) {
    std::uint32_t hash = 0;
    for (const char byte : name) {
        hash = hash * 63 + ScopeNameByteCode(byte);
    }
    return hash;
}

} // namespace brixen::zeve
