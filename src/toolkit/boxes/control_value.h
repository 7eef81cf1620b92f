// How boxes read and write the text of their controls.
#pragma once

#include <string>
#include <string_view>

namespace brixen::zeve {

class CEveBox;
class EventRecord;

// The text goes to the first control of the dialog that has the box's id. Nothing happens to a box without a
// control.
void SetTextById(const CEveBox& box, std::string_view text);
std::string TextById(const CEveBox& box);

// A text read from a record, where a null one counts as empty.
std::string_view RecordText(const char* text);

// Stores a copy under `__zeve_get_value_string`, made with new char[]; whoever reads the record frees it with
// delete[]. An empty text is not stored.
void StoreNewText(EventRecord& record, std::string_view text);

} // namespace brixen::zeve
