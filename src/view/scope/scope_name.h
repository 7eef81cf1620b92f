// A variable's name together with its hash. Everything that takes a name takes one of these and is content
// with a plain text; a name that is known when the program is compiled is best written as a literal,
// "width"_name, which costs no hashing when the program runs and is not copied when a scope defines it.
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::zeve {

// What a byte of a name adds to its hash: its place in 0-9, A-Z, a-z, _; any other byte adds nothing.
constexpr std::uint32_t ScopeNameByteCode(char byte) {
    if (byte >= '0' && byte <= '9') return static_cast<std::uint32_t>(byte - '0');
    if (byte >= 'A' && byte <= 'Z') return static_cast<std::uint32_t>(byte - 'A') + 10;
    if (byte >= 'a' && byte <= 'z') return static_cast<std::uint32_t>(byte - 'a') + 36;
    return byte == '_' ? 62 : 0;
}

// Wraps at 32 bits.
constexpr std::uint32_t ScopeNameHash(std::string_view name) {
    std::uint32_t hash = 0;
    for (char byte : name) {
        hash = hash * 63 + ScopeNameByteCode(byte);
    }
    return hash;
}

// The names that every view is asked for. A scope has a fixed place for the number of each, so that neither
// asking nor defining searches anything. Those that the layout writes back stand first, next to each other.
inline constexpr std::array<std::string_view, 32> kListedNames = {"height",
                                                                  "width",
                                                                  "top",
                                                                  "left",
                                                                  "outset",
                                                                  "top_outset",
                                                                  "left_outset",
                                                                  "bottom_outset",
                                                                  "right_outset",
                                                                  "label_width",
                                                                  "alwaysL2R",
                                                                  "reverse",
                                                                  "inset",
                                                                  "top_inset",
                                                                  "horizontal",
                                                                  "vertical",
                                                                  "spacing",
                                                                  "placement",
                                                                  "child_horizontal",
                                                                  "child_vertical",
                                                                  "margin",
                                                                  "margin_width",
                                                                  "margin_height",
                                                                  "margin_top",
                                                                  "margin_left",
                                                                  "margin_right",
                                                                  "margin_bottom",
                                                                  "left_offset",
                                                                  "top_offset",
                                                                  "gSpace",
                                                                  "font",
                                                                  "view_id"};

namespace listed_names {

inline constexpr std::size_t kTableSize = 256; // entries, 8 bits of a product
inline constexpr std::uint8_t kNone = kListedNames.size();

constexpr std::size_t TablePlace(std::uint32_t hash, std::uint32_t factor) { return (hash * factor) >> 24; }

// A factor under which no two listed names share a place.
consteval std::uint32_t FindFactor() {
    for (std::uint32_t factor = 0x9E3779B1;; factor += 2) {
        std::array<bool, kTableSize> taken{};
        bool isGood = true;
        for (std::string_view name : kListedNames) {
            bool& place = taken[TablePlace(ScopeNameHash(name), factor)];
            isGood = isGood && !place;
            place = true;
        }
        if (isGood) return factor;
    }
}
inline constexpr std::uint32_t kFactor = FindFactor();

consteval std::array<std::uint8_t, kTableSize> MakeTable() {
    std::array<std::uint8_t, kTableSize> table{};
    table.fill(kNone);
    for (std::uint8_t place = 0; place < kListedNames.size(); ++place) {
        table[TablePlace(ScopeNameHash(kListedNames[place]), kFactor)] = place;
    }
    return table;
}
inline constexpr std::array<std::uint8_t, kTableSize> kTable = MakeTable();

} // namespace listed_names

// Borrows its text.
struct ScopeName {
    template <class Text>
    requires std::convertible_to<const Text&, std::string_view>
    constexpr ScopeName(const Text& name) : ScopeName(name, ScopeNameHash(name)) {}

    // For a reader that hashes while it scans.
    constexpr ScopeName(std::string_view name, std::uint32_t itsHash, bool livesForever = false)
        : text(name), hash(itsHash), mark(MarkOf(name, itsHash)), isLiteral(livesForever) {}

    constexpr bool IsListed() const { return mark < kListedNames.size(); }

    std::string_view text;
    std::uint32_t hash;
    // The bit that a scope sets when it holds the name: a listed name's own, or one of as many that the
    // others share.
    std::uint8_t mark;
    bool isLiteral; // the text outlives every scope

private:
    static constexpr std::uint8_t MarkOf(std::string_view name, std::uint32_t hash) {
        const std::uint8_t listed =
            listed_names::kTable[listed_names::TablePlace(hash, listed_names::kFactor)];
        if (listed != listed_names::kNone && kListedNames[listed] == name) {
            return listed;
        }
        return static_cast<std::uint8_t>(kListedNames.size() + (hash * 0x9E3779B1u >> 27));
    }
};

inline namespace literals {

consteval ScopeName operator""_name(const char* text, std::size_t length) {
    return {std::string_view(text, length), ScopeNameHash({text, length}), true};
}

} // namespace literals

} // namespace brixen::zeve
