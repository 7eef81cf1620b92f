// What a run of a description may still ask of the window system. reading_limits.h has the amounts that a run
// begins with.
#pragma once

#include <cstddef>
#include <exception>
#include <limits>

namespace brixen::zeve {

// A budget of the run is used up. The production that asked for more fails.
class SystemBudgetExhausted : public std::exception {
public:
    const char* what() const noexcept override { return "system budget exhausted"; }
};

// Boxes spend it while they are prepared. Outside a run nothing is limited.
struct SystemBudget {
    static constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();

    std::size_t measuredUnits = kUnlimited;
    std::size_t shownBytes = kUnlimited;
    std::size_t listItems = kUnlimited;
    std::size_t controls = kUnlimited;
};

// Takes `amount` from one of the numbers. Throws SystemBudgetExhausted if less is left, and then takes
// nothing.
inline void Spend(std::size_t& left, std::size_t amount) {
    if (amount > left) throw SystemBudgetExhausted();
    left -= amount;
}

} // namespace brixen::zeve
