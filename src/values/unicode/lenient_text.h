#pragma once

#include <cstdint>

// Conversion that never fails: what is no character becomes a question mark, and reading goes on. For text
// from outside whose writer cannot be asked, such as markup. See values/unicode/text_conversion.h for the strict one.
namespace brixen::lyr::gen {

// UTF-16 up to its NUL, as UTF-8. With a buffer of `size` bytes: writes whole sequences as long as they fit,
// a NUL if there is room for it, and returns the number of bytes without it. With a null `out`: returns the
// bytes that the whole text needs, whatever `size` is. A surrogate takes the next unit as its other half
// untested; one that is the last unit is dropped.
std::int32_t EncodeUtf8(char* out, const char16_t* wide, std::int32_t size);

// UTF-8 of `length` bytes, or up to a NUL, as UTF-16. With a null `out`: returns the number of units. With a
// buffer (as large as a call without one said, and one unit more): returns the number of bytes read; a NUL in
// the text ends it and is written, not counted. A negative `length` reads to the NUL.
std::int32_t DecodeUtf8(char16_t* out, const char* utf8, std::int32_t length);

} // namespace brixen::lyr::gen
