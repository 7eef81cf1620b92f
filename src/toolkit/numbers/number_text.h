// Converts a number text from one form to another.
#pragma once

#include "toolkit/numbers/number_form.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brixen::zeve {

inline constexpr std::size_t kLongestNumberText = 254; // bytes

struct NumberConversion {
    NumberForm from;
    NumberForm to;
    std::int32_t fromPrecision = 0; // decimals of the text
    std::int32_t toPrecision = 0;   // decimals of the result, if it is a decimal number
    bool isApex = false;            // `to` is an APEX form: see apex.h
};

// Returns the text in the form `to`, cut to kLongestNumberText at a character border. `text` may hold any
// bytes: one without a number counts as 0. Sets `isBeyondScale` if the result is the end mark of an APEX
// scale, and never clears it. Returns no value if both forms are the same and it is no form of texts.
std::optional<std::string> ConvertNumberText(std::string_view text, const NumberConversion& conversion,
                                             bool& isBeyondScale);

} // namespace brixen::zeve
