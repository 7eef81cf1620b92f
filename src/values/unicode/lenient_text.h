// Conversion between UTF-8 and UTF-16 that never fails: a question mark takes the place of a broken sequence,
// and reading goes on. It is for text from outside, such as markup. The strict conversion is in
// values/unicode/text_conversion.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// UTF-16 up to its NUL, as UTF-8. With a buffer of `size` bytes: writes whole sequences as long as they fit
// and a NUL if there is room for it, and returns the number of bytes without the NUL. With a null `out`:
// returns the number of bytes of the whole text, whatever `size` is. A surrogate of either kind takes the
// next unit as its other half untested; a surrogate at the end of the text is dropped.
std::int32_t EncodeUtf8(char* out, const char16_t* wide, std::int32_t size);

// UTF-8 of `length` bytes, or up to a NUL, as UTF-16. With a null `out`: returns the number of units. With a
// buffer: returns the number of bytes read. A NUL in the text ends it and is written, but counts nowhere, so
// that the buffer has one unit more than was counted. A negative `length` reads to the NUL.
std::int32_t DecodeUtf8(char16_t* out, const char* utf8, std::int32_t length);

// Whole texts by the same rules. A text ends at its first NUL. The result has less than 2 GiB: a text has
// fewer than 715,827,882 units, or fewer than 2 GiB in UTF-8.
[[nodiscard]] std::string LenientUtf8(const char16_t* wide);
[[nodiscard]] std::u16string LenientUtf16(std::string_view utf8);

// Another rule, for bytes of any origin: U+FFFD takes the place of each byte that is in no legal sequence,
// and NULs are kept. Throws std::bad_alloc.
[[nodiscard]] std::u16string ReplacingUtf16(std::string_view bytes);

} // namespace brixen::lyr::gen
