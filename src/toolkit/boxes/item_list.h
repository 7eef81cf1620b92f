// The list of texts in a popup or a label: `label{value};label{value}`.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::zeve {

class CEveBox;

struct ListItem {
    std::string label;
    std::string value;
};

// What reading does with entries that are separators.
enum class Separators { kKeep, kDrop };

// Reads the translated text of a list, in time linear in its length. Empty entries are dropped, and so is an
// entry whose label or value an earlier one has. An entry without both braces is a separator: it gets the
// label `-`, and is kept, even if it repeats, or dropped.
[[nodiscard]] std::vector<ListItem> ParseItemList(std::string_view text, Separators separators);

// Takes the entries of a list from the budget of the box, empty and repeated ones too. Throws
// SystemBudgetExhausted.
void SpendItems(const CEveBox& box, std::string_view text, std::size_t costOfAnEntry = 1);

// Returns the first item of the list with that value; null if there is none.
[[nodiscard]] const ListItem* FindItemByValue(const std::vector<ListItem>& items, std::string_view value);

// The value that leaves the selection alone.
inline constexpr std::string_view kKeepSelection = "-";

} // namespace brixen::zeve
