// Reads one line of a text dictionary.
#pragma once

#include "dictionaries/store/key_text.h"
#include "dictionaries/store/text_column.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace kestrel_private {

inline constexpr std::size_t kLongestValue = kLongestText / 2; // characters

// Where a quotation mark without a `\` before it is, from `from` on; npos when there is none.
std::size_t FindQuote(std::u16string_view line, std::size_t from);

// The text of a line, a part of `line`. A line may have its text in quotation marks, with anything around
// them; a missing closing mark is at the end of the line. A line without marks is all text.
std::u16string_view TextOfLine(std::u16string_view line);

// The key and the value of a line, both not yet decoded and parts of `line`. Nothing for a text that begins
// with `$` but not with `$$$`.
std::optional<KeyText<char16_t>> SplitLine(std::u16string_view line);

} // namespace kestrel_private
