// Conversion between UTF-8 and the narrow text of the C library, for files whose encoding is the user's own.
#pragma once

#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// Between UTF-8 and the narrow text of the C library in the process's locale, up to a NUL. Empty when the
// locale cannot show the text or the bytes are none of its text.
std::string Utf8ToCodePage(std::string_view utf8);
std::string CodePageToUtf8(std::string_view text);

} // namespace brixen::lyr::gen
