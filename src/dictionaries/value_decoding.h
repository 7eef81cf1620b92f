#pragma once

#include <string>
#include <string_view>

namespace kestrel_private {

// A value as it stands in a dictionary line or a key text, with its escapes (`^C`, `\n`) and then its
// entities (`#{copy}`, `#{U+2318}`, `#{a}`) replaced. Replaced text is not scanned again.
std::u16string DecodeValue(std::u16string_view text);

// The two steps alone.
std::u16string DecodeEscapes(std::u16string_view text);
std::u16string DecodeEntities(std::u16string_view text);

} // namespace kestrel_private
