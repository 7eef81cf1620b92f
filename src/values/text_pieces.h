#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Whole texts that are too long for one piece, or not legal all through. Private to the text conversion,
// whose ToUtf8 and ToUtf16 say what they do and throw.
namespace brixen::lyr::gen {

inline constexpr std::size_t kPiece = 256; // bytes or units that are converted at a time

std::string Utf8InPieces(std::u16string_view wide, bool lenient);
std::u16string Utf16InPieces(std::string_view narrow, bool lenient);

} // namespace brixen::lyr::gen
