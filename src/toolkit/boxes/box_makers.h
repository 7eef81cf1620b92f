// Makes the box for a keyword of a view.
#pragma once

#include <memory>
#include <string_view>

namespace brixen::zeve {

class CEveBox;

// Enters every keyword of the toolkit into gToolkit.keywords. Calling it again replaces each entry.
void FillKeywordTable();
// Returns a new box; for a keyword that is not in the table, a CEveEmpty.
[[nodiscard]] std::unique_ptr<CEveBox> MakeBox(std::string_view keyword);

} // namespace brixen::zeve
