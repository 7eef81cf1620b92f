// Arithmetic on the pixels of bitmaps: one pass over rows in memory, without a call of the system.
#pragma once

#include "workflow/platform/painting.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

// Returns value × alpha / 255, rounded down: a color byte in the form that the system blends.
constexpr std::uint8_t Premultiplied(std::uint8_t value, std::uint8_t alpha) {
    return static_cast<std::uint8_t>(value * alpha / 255);
}

// Returns the byte of a pixel that shows `source` with that alpha over `target`, rounded down.
constexpr std::uint8_t Blended(std::uint8_t source, std::uint8_t target, std::uint8_t alpha) {
    return static_cast<std::uint8_t>((source * alpha + target * (255 - alpha)) / 255);
}

// Both lay the picture with its top left corner at (x, y) of a target with 4 bytes a pixel. Pixels outside
// the target are left out, and the fourth bytes of the target stay. Pixels of 3 bytes are opaque.

// The fourth byte of the picture's pixels is their alpha; their colors are not premultiplied.
void LayBlended(const platform::PixelRows& target, const platform::PixelRows& picture, std::int32_t x,
                std::int32_t y);
// White pixels (255, 255, 255) are left out, all others are copied whatever their alpha.
void LayWithoutWhite(const platform::PixelRows& target, const platform::PixelRows& picture, std::int32_t x,
                     std::int32_t y);

} // namespace brixen::pvn::pvn_workflow
