// The version of the library. The resources of the build take it from here too.
#pragma once

#include <cstdint>

namespace brixen::pvn {

// Major from bit 27 up, minor below it, patch from bit 15 up, build in the low 15 bits.
inline constexpr std::uint32_t kVersionWord = 403023709;
inline constexpr char kVersionText[] = "3.0.11.10077";

} // namespace brixen::pvn
