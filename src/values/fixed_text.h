#pragma once

#include <cstddef>

// Copies into fixed fields: NUL-terminated text, truncated silently. `size` counts all characters of `dest`,
// terminator included. A size of 0 or above 0x7FFFFFFF does nothing at all; otherwise the result is
// terminated. The texts do not overlap.
namespace brixen::lyr::gen {

void SafeCopy(char* dest, const char* source, std::size_t size);
void SafeCopyWide(char16_t* dest, const char16_t* source, std::size_t size);

// Appends at the NUL of `dest`; without one inside `size` nothing happens.
void SafeAppend(char* dest, const char* source, std::size_t size);
void SafeAppendWide(char16_t* dest, const char16_t* source, std::size_t size);

// Formats as printf does.
void SafePrintf(char* dest, std::size_t size, const char* format, ...);

} // namespace brixen::lyr::gen
