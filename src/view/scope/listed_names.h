// The names that every view is asked for. A scope has a fixed place for the number of each, so that neither
// asking nor defining searches anything.
#pragma once

#include "view/scope/scope_name_hash.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::zeve {

// In the order of the places; the names that the layout writes back come first, next to each other.
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

// Returns a factor under which no two listed names share an entry.
consteval std::uint32_t FindFactor() {
    for (std::uint32_t factor = 0x9E3779B1;; factor += 2) {
        std::array<bool, kTableSize> taken{};
        bool isGood = true;
        for (const std::string_view name : kListedNames) {
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
    for (std::size_t place = 0; place < kListedNames.size(); ++place) {
        table[TablePlace(ScopeNameHash(kListedNames[place]), kFactor)] = static_cast<std::uint8_t>(place);
    }
    return table;
}
inline constexpr std::array<std::uint8_t, kTableSize> kTable = MakeTable();

} // namespace listed_names

// Returns the place of `name` in kListedNames, or kListedNames.size() for any other name. `hash` is its hash.
constexpr std::uint8_t ListedPlace(std::string_view name, std::uint32_t hash) {
    const std::uint8_t place = listed_names::kTable[listed_names::TablePlace(hash, listed_names::kFactor)];
    const bool isListed = place != listed_names::kNone && kListedNames[place] == name;
    return isListed ? place : listed_names::kNone;
}

} // namespace brixen::zeve
