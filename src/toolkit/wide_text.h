// Text of boxes on its way to and from the window system. Lone surrogates pass in both directions, so that
// what a user has put into a field can be read and shown again.
#pragma once

#include "values/unicode/text_conversion.h"

#include <string>
#include <string_view>

namespace brixen::zeve {

// Throws lyr::gen::illegal_utf_sequence for bytes that are no UTF-8.
inline std::u16string WideText(std::string_view text) { return lyr::gen::ToUtf16(text, true); }
inline std::string NarrowText(std::u16string_view text) { return lyr::gen::ToUtf8(text, true); }

} // namespace brixen::zeve
