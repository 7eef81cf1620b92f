#include "workflow/controls/pixel_blend.h"

#include <algorithm>
#include <cstddef>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr int kColors = 3; // blue, green, red
constexpr std::uint8_t kOpaque = 255;

// The part of a picture that lies inside the target, in pixels of the picture. 64 bits, so that a picture of
// any size can lie at any place.
struct Span {
    std::int64_t begin, end;
};
Span Inside(std::int32_t place, std::int32_t extent, std::int32_t targetExtent) {
    return {std::max<std::int64_t>(0, -std::int64_t{place}),
            std::min<std::int64_t>(extent, std::int64_t{targetExtent} - place)};
}

// Calls layPixel(target, source) for each pixel of the picture inside the target.
template <class LayPixel>
void LayPixels(const platform::PixelRows& target, const platform::PixelRows& picture, std::int32_t x,
               std::int32_t y, LayPixel layPixel) {
    const Span columns = Inside(x, picture.width, target.width);
    const Span rows = Inside(y, picture.height, target.height);
    if (columns.begin >= columns.end) return;
    for (std::int64_t row = rows.begin; row < rows.end; ++row) {
        const std::byte* from = picture.top + row * picture.pitch + columns.begin * picture.pixelBytes;
        std::byte* to = target.top + (y + row) * target.pitch + (x + columns.begin) * target.pixelBytes;
        for (std::int64_t column = columns.begin; column < columns.end; ++column) {
            layPixel(to, from);
            from += picture.pixelBytes;
            to += target.pixelBytes;
        }
    }
}

std::uint8_t Value(std::byte byte) { return std::to_integer<std::uint8_t>(byte); }

} // namespace

void LayBlended(const platform::PixelRows& target, const platform::PixelRows& picture, std::int32_t x,
                std::int32_t y) {
    const bool hasAlpha = picture.pixelBytes > kColors;
    LayPixels(target, picture, x, y, [hasAlpha](std::byte* to, const std::byte* from) {
        const std::uint8_t alpha = hasAlpha ? Value(from[kColors]) : kOpaque;
        for (int color = 0; color < kColors; ++color) {
            to[color] = std::byte{Blended(Value(from[color]), Value(to[color]), alpha)};
        }
    });
}

void LayWithoutWhite(const platform::PixelRows& target, const platform::PixelRows& picture, std::int32_t x,
                     std::int32_t y) {
    LayPixels(target, picture, x, y, [](std::byte* to, const std::byte* from) {
        constexpr std::byte kWhite{255};
        if (from[0] == kWhite && from[1] == kWhite && from[2] == kWhite) return;
        std::copy_n(from, kColors, to);
    });
}

} // namespace brixen::pvn::pvn_workflow
