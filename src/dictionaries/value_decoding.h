// Replaces the escapes and entities of a value.
#pragma once

#include <string>
#include <string_view>

namespace kestrel_private {

// The text of a value as it is written in a dictionary line or a key text: first its escapes (`^C`, `\n`) are
// replaced, then its entities (`#{copy}`, `#{U+2318}`, `#{a}`). Text that replaced an entity is not scanned
// again. The result is never longer than `text`. The first call of a process fixes the table of escapes (see
// dictionaries_state.h).
[[nodiscard]] std::u16string DecodeValue(std::u16string_view text);

} // namespace kestrel_private
