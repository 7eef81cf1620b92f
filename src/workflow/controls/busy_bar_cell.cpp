#include "workflow/controls/busy_bar_cell.h"

#include "workflow/controls/pixel_blend.h"

#include <cstddef>

namespace brixen::pvn::pvn_workflow {

namespace {

// clang-format off
constexpr std::uint8_t kAlpha[kBusyCellHeight][kBusyCellWidth] = {
    {203, 188, 185, 184, 188, 204, 0, 0, 219, 210, 209, 208, 209, 219, 0, 0, 255, 255, 255, 255, 255, 255},
    {187, 164, 162, 161, 166, 188, 0, 0, 209, 197, 197, 196, 197, 209, 0, 0, 255, 255, 255, 255, 255, 255},
    {184, 162, 157, 157, 161, 184, 0, 0, 209, 196, 198, 197, 198, 209, 0, 0, 255, 255, 255, 255, 255, 255},
    {184, 162, 157, 158, 162, 185, 0, 0, 209, 198, 196, 196, 197, 208, 0, 0, 255, 255, 255, 255, 255, 255},
    {184, 162, 158, 157, 162, 185, 0, 0, 209, 197, 197, 197, 197, 209, 0, 0, 255, 255, 255, 255, 255, 255},
    {188, 166, 162, 161, 165, 187, 0, 0, 209, 196, 196, 197, 198, 209, 0, 0, 255, 255, 255, 255, 255, 255},
    {204, 188, 185, 185, 188, 204, 0, 0, 219, 209, 209, 209, 210, 219, 0, 0, 255, 255, 255, 255, 255, 255},
};
// clang-format on

std::byte ColorByte(platform::Color color, int shift, std::uint8_t alpha) {
    return std::byte{Premultiplied(static_cast<std::uint8_t>(color >> shift), alpha)};
}

} // namespace

void FillBusyCell(const platform::PixelRows& cell, platform::Color color) {
    if (cell.width != kBusyCellWidth || cell.height != kBusyCellHeight || cell.pixelBytes != 4) return;
    for (std::int32_t y = 0; y < kBusyCellHeight; ++y) {
        std::byte* pixel = cell.Row(y).data();
        for (const std::uint8_t alpha : kAlpha[y]) {
            pixel[0] = ColorByte(color, 16, alpha); // blue
            pixel[1] = ColorByte(color, 8, alpha);
            pixel[2] = ColorByte(color, 0, alpha);
            pixel[3] = std::byte{alpha};
            pixel += 4;
        }
    }
}

} // namespace brixen::pvn::pvn_workflow
