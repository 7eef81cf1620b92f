// The names of this computer itself, which a call reaches without leaving it.
#pragma once

#include "values/unicode/ascii.h"

#include <algorithm>
#include <string_view>

namespace brixen::pvn {

// Whether `place`, a host with or without ":" and a port, is this computer. `Unit` is char or char16_t.
template <class Unit>
[[nodiscard]] bool IsThisComputer(std::basic_string_view<Unit> place) {
    using namespace std::string_view_literals;
    for (const std::string_view name : {"127.0.0.1"sv, "localhost"sv, "[::1]"sv}) {
        if (!std::ranges::equal(place.substr(0, name.size()), name, {}, lyr::gen::ToAsciiLower<Unit>))
            continue;
        place.remove_prefix(name.size());
        return place.empty() ||
               (place.front() == ':' && std::ranges::all_of(place.substr(1), lyr::gen::IsAsciiDigit<Unit>));
    }
    return false;
}

} // namespace brixen::pvn
