// The entries of popups and of labels with a choice of texts: `label{value};label{value}`.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brixen::zeve {

struct ListItem {
    std::string label;
    std::string value;
};

enum class Separators { Keep, Drop };

// Reads the translated text of a list. An entry whose label or value is there already is dropped, and so are
// empty entries. An entry without both braces is a separator, with the label `-`; it is kept, without the
// test for equals, or dropped.
std::vector<ListItem> ParseItemList(std::string_view text, Separators separators);

// The first item with that value, null if none. It lies in the list.
const ListItem* FindItemByValue(const std::vector<ListItem>& items, std::string_view value);

// The value that leaves a selection alone.
inline constexpr std::string_view kKeepSelection = "-";

} // namespace brixen::zeve
