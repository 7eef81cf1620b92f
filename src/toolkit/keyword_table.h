// The process-wide table from a view's keyword to the maker of its box. Dialogs are made on one thread, and
// so is this table used: it has no lock.
#pragma once

#include <memory>
#include <string_view>

namespace brixen::zeve {

class CEveBox;

using BoxMaker = std::unique_ptr<CEveBox> (*)();

// Enters a keyword with its maker; a keyword that is there already gets the new maker.
void DefineKeyword(std::string_view keyword, BoxMaker maker);
// Enters the whole catalogue. Doing so again replaces each entry by an equal one.
void FillKeywordTable();
// A new box for the keyword; a CEveEmpty for one that the table lacks.
std::unique_ptr<CEveBox> MakeBox(std::string_view keyword);
// Empties the table, for tests.
void ResetKeywordTable();

} // namespace brixen::zeve
