// The library's version, in the one place from which the build's resources take it too.
#pragma once

#include <cstdint>

namespace brixen::pvn {

// Major from bit 27 up, minor below it, patch from bit 15 up, build in the low 15 bits.
inline constexpr std::uint32_t kVersionWord = 403023709;
inline constexpr char kVersionText[] = "3.0.11.10077";

} // namespace brixen::pvn
