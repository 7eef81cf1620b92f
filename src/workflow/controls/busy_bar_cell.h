// The moving cell of a busy bar: three blocks with soft edges, each stronger than the one before it.
#pragma once

#include "workflow/platform/painting.h"

#include <cstdint>

namespace brixen::pvn::pvn_workflow {

inline constexpr std::int32_t kBusyCellWidth = 22, kBusyCellHeight = 7; // pixels

// Fills a bitmap of the cell's size and 4 bytes a pixel with the color in premultiplied form. A bitmap of
// another size stays as it is.
void FillBusyCell(const platform::PixelRows& cell, platform::Color color);

} // namespace brixen::pvn::pvn_workflow
