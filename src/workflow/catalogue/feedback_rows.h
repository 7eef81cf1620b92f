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
// text, indented after the first. A line that is too long goes on in the next row, after an ellipsis. A blank
// stands for a tab, and U+FFFD for a character that would hide or change the order of what is shown. There
// are at most kMostRows: each field may have an equal share of them, and what the fields before it left of
// theirs. The last row of a field that needs more holds the number of those that are missing.
[[nodiscard]] std::vector<std::u16string> RowsOfFeedback(T_StorageInterface& bag);

} // namespace brixen::pvn::pvn_workflow
