// The rows of the list that shows what Feedback sends.
#pragma once

#include "values/storage.h"

#include <cstddef>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow {

// A longer list takes the system too long, and a longer row is too wide to scroll.
inline constexpr std::size_t kMostRows = 4096;
inline constexpr std::size_t kLongestRow = 500; // units, besides its indent and its ellipsis

// Returns each field of the bag that is sent, in the words of the dictionary: a row for each line of its
// text, indented after the first. A line that is too long goes on in the next row, after an ellipsis. Tabs
// become blanks. Characters that hide text or change its order become U+FFFD. The list has at most kMostRows
// rows. Each field gets an equal share of them, and what the fields before it did not need. If a field needs
// more, its last row says how many of its rows are missing.
[[nodiscard]] std::vector<std::u16string> RowsOfFeedback(T_StorageInterface& bag);

} // namespace brixen::pvn::pvn_workflow
