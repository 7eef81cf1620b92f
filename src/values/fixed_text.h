// Copies of NUL-terminated text into fields of a fixed size, with silent truncation.
#pragma once

#include "compiler.h"

#include <cstddef>

// `size` counts all characters of `dest`, with the terminator. A size of 0 or above 0x7FFFFFFF does nothing
// at all; otherwise the result is terminated. The texts must not overlap.
namespace brixen::lyr::gen {

void SafeCopy(char* dest, const char* source, std::size_t size);
void SafeCopyWide(char16_t* dest, const char16_t* source, std::size_t size);

// Appends at the NUL of `dest`. Nothing happens when `dest` has none within `size`.
void SafeAppend(char* dest, const char* source, std::size_t size);
void SafeAppendWide(char16_t* dest, const char16_t* source, std::size_t size);

// Formats as printf does. On a formatting error the result is empty.
void SafePrintf(char* dest, std::size_t size, const char* format, ...) PVN_PRINTF_LIKE(3, 4);

} // namespace brixen::lyr::gen
