#pragma once

#include "dictionaries/store/key_text.h"
#include "dictionaries/store/text_column.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace kestrel_private {

inline constexpr std::size_t kLongestValue = kLongestText / 2; // characters

// The key and the value of a line of a text dictionary, not yet decoded. A line may carry its text in quotes,
// with anything around them. Nothing for a text that begins with `$` but not with `$$$`.
std::optional<KeyText<char16_t>> SplitLine(std::u16string_view line);

} // namespace kestrel_private
