// The catalogue of controls: which keyword of a view makes which box.
#pragma once

#include <memory>
#include <string_view>

namespace brixen::zeve {

class CEveBox;

// Enters the whole catalogue. Doing so again replaces each entry by an equal one.
void FillKeywordTable();
// A new box for the keyword; a CEveEmpty for one that the table lacks.
std::unique_ptr<CEveBox> MakeBox(std::string_view keyword);

} // namespace brixen::zeve
