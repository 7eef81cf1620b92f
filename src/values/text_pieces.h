#pragma once

#include "values/range_positions.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Whole texts that are too long for one piece, or not legal all through. Private to the text conversion.
namespace brixen::lyr::gen {

inline constexpr std::size_t kPiece = 256; // bytes or units that are converted at a time

// Converts at least one character of what the quick roads of values/legal_text.h leave behind, or throws.
template <class Source, class Target>
using CarefulStep = RangePositions<Source, Target> (*)(const Source* source, const Source* sourceEnd,
                                                       Target* target, Target* targetEnd, bool lenient);

std::string Utf8InPieces(std::u16string_view wide, bool lenient, CarefulStep<char16_t, std::uint8_t> careful);
std::u16string Utf16InPieces(std::string_view narrow, bool lenient,
                             CarefulStep<std::uint8_t, char16_t> careful);

} // namespace brixen::lyr::gen
