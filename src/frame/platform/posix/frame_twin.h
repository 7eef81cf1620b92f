// The native twin of the frame's platform: its answers are set here by tests.
#pragma once

#include "frame/platform/frame_platform.h"

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

namespace brixen::pvn {

// Milliseconds that a test may set while another thread looks at them. Empty at first.
class TwinTicks {
    static constexpr std::int64_t kEmpty = -1;
    std::atomic<std::int64_t> ticks_ = kEmpty;

public:
    TwinTicks() = default;
    TwinTicks& operator=(const TwinTicks& other) noexcept {
        ticks_ = other.ticks_.load();
        return *this;
    }
    TwinTicks& operator=(std::uint32_t ticks) noexcept {
        ticks_ = ticks;
        return *this;
    }
    [[nodiscard]] explicit operator bool() const noexcept { return ticks_ != kEmpty; }
    // The milliseconds now; `step` are added for the next look.
    [[nodiscard]] std::uint32_t Look(std::uint32_t step) noexcept {
        return static_cast<std::uint32_t>(ticks_.fetch_add(step));
    }
    [[nodiscard]] std::uint32_t operator*() const noexcept {
        return static_cast<std::uint32_t>(ticks_.load());
    }
};

struct FrameTwin {
    // With its last separator. Unset: the system's own.
    std::optional<std::u16string> temporaryFolder;
    // Unset: the system's clock.
    TwinTicks tickCount;
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
