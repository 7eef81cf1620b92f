// The native twin of the frame's platform: its answers are set here by tests.
#pragma once

#include "frame/platform/frame_platform.h"

#include <cstdint>
#include <optional>
#include <string>

namespace brixen::pvn {

struct FrameTwin {
    // With its last separator. Unset: the system's own.
    std::optional<std::u16string> temporaryFolder;
    // Unset: the system's clock.
    std::optional<std::uint32_t> tickCount;
    // Added to tickCount after each look.
    std::uint32_t ticksPerLook = 0;
    // Counts down with each thread start; the start that takes it to 0 is refused. 0 refuses none.
    int startsUntilRefusal = 0;
    int openThreadHandles = 0;
    int pins = 0; // calls of PinLibrary
    LanguageIdentifier threadLanguage = 0x0409;
    HostProgram hostProgram = {"", "", "host"};
};

[[nodiscard]] FrameTwin& GetFrameTwin() noexcept;
// Restores the defaults of all but openThreadHandles.
void ResetFrameTwin();

} // namespace brixen::pvn
