// A variable's name together with its hash. Everything that takes a name takes one of these and is content
// with a plain text; a name that is known when the program is compiled is best written as a literal,
// "width"_name, which costs no hashing when the program runs and is not copied when a scope defines it.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::zeve {

inline constexpr std::uint32_t kScopeBucketCount = 127;

// What a byte of a name adds to its hash: its place in 0-9, A-Z, a-z, _; any other byte adds nothing.
constexpr std::uint32_t ScopeNameByteCode(char byte) {
    if (byte >= '0' && byte <= '9') return static_cast<std::uint32_t>(byte - '0');
    if (byte >= 'A' && byte <= 'Z') return static_cast<std::uint32_t>(byte - 'A') + 10;
    if (byte >= 'a' && byte <= 'z') return static_cast<std::uint32_t>(byte - 'a') + 36;
    return byte == '_' ? 62 : 0;
}

// Wraps at 32 bits; the bucket of a name is the remainder by kScopeBucketCount, taken at the end.
constexpr std::uint32_t ScopeNameHash(std::string_view name) {
    std::uint32_t hash = 0;
    for (char byte : name) {
        hash = hash * 63 + ScopeNameByteCode(byte);
    }
    return hash;
}

// Borrows its text.
struct ScopeName {
    template <class Text>
    requires std::convertible_to<const Text&, std::string_view>
    constexpr ScopeName(const Text& name) : ScopeName(name, ScopeNameHash(name)) {}

    // For a reader that hashes while it scans.
    constexpr ScopeName(std::string_view name, std::uint32_t itsHash, bool livesForever = false)
        : text(name), hash(itsHash), bucket(static_cast<std::uint8_t>(itsHash % kScopeBucketCount)),
          isLiteral(livesForever) {}

    std::string_view text;
    std::uint32_t hash;
    std::uint8_t bucket;
    bool isLiteral; // the text outlives every scope
};

inline namespace literals {

consteval ScopeName operator""_name(const char* text, std::size_t length) {
    return {std::string_view(text, length), ScopeNameHash({text, length}), true};
}

} // namespace literals

} // namespace brixen::zeve
