// A variable's name together with its hash. A function that takes a name takes a ScopeName, and any text
// converts to one. Write a name that the program knows as a literal, "width"_name: it is hashed when the
// program is compiled, and a scope that defines it does not copy it.
#pragma once

#include "view/scope/listed_names.h"
#include "view/scope/scope_name_hash.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::zeve {

// Borrows its text.
struct ScopeName {
    template <class Text>
    requires std::convertible_to<const Text&, std::string_view>
    constexpr ScopeName(const Text& name) : ScopeName(name, ScopeNameHash(name)) {}

    // For a caller that has the hash. `isLasting` promises that the text outlives every scope that defines
    // the name.
    constexpr ScopeName(std::string_view name, std::uint32_t itsHash, bool isLasting = false)
        : text(name), hash(itsHash), mark(MarkOf(name, itsHash)), lasts(isLasting) {}

    constexpr bool IsListed() const { return mark < kListedNames.size(); }

    std::string_view text;
    std::uint32_t hash;
    // The bit that a scope sets when it holds the name. A listed name has its own bit, the other names share
    // the rest.
    std::uint8_t mark;
    bool lasts;

private:
    static constexpr std::uint32_t kSharedMarkBits = 5;
    static_assert(kListedNames.size() + (1 << kSharedMarkBits) == 64);

    static constexpr std::uint8_t MarkOf(std::string_view name, std::uint32_t hash) {
        const std::uint8_t place = ListedPlace(name, hash);
        if (place < kListedNames.size()) return place;
        return static_cast<std::uint8_t>(kListedNames.size() +
                                         (hash * 0x9E3779B1u >> (32 - kSharedMarkBits)));
    }
};

inline namespace literals {

consteval ScopeName operator""_name(const char* text, std::size_t length) {
    return {std::string_view(text, length), ScopeNameHash({text, length}), true};
}

} // namespace literals

} // namespace brixen::zeve
