// Letters and digits of ASCII, the same in every locale.
#pragma once

namespace brixen::lyr::gen {

// The small letter of a capital one, and every other unit as it is. `Unit` is char or char16_t.
template <class Unit>
constexpr Unit ToAsciiLower(Unit unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<Unit>(unit - 'A' + 'a') : unit;
}

template <class Unit>
constexpr bool IsAsciiLetter(Unit unit) {
    return ToAsciiLower(unit) >= 'a' && ToAsciiLower(unit) <= 'z';
}

template <class Unit>
constexpr bool IsAsciiDigit(Unit unit) {
    return unit >= '0' && unit <= '9';
}

} // namespace brixen::lyr::gen
