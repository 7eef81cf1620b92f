// Conversion between UTF-8 and the narrow text of the C library, for files whose encoding is the user's own.
#pragma once

#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// Convert up to a NUL, in the locale of the process. The result is empty when the locale cannot show the text
// or cannot read the bytes, and for a text of 512 MiB and more.
[[nodiscard]] std::string Utf8ToCodePage(std::string_view utf8);
[[nodiscard]] std::string CodePageToUtf8(std::string_view text);

} // namespace brixen::lyr::gen
