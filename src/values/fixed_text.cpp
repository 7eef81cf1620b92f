#include "values/fixed_text.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace brixen::lyr::gen {
namespace {

constexpr std::size_t kLargestSize = 0x7FFFFFFF;

bool IsUsable(std::size_t size) { return size != 0 && size <= kLargestSize; }

template <class Char>
void Copy(Char* dest, const Char* source, std::size_t size) {
    if (!IsUsable(size)) return;
    for (; size > 1 && *source != 0; --size) *dest++ = *source++;
    *dest = 0;
}

template <class Char>
void Append(Char* dest, const Char* source, std::size_t size) {
    if (!IsUsable(size)) return;
    Char* const end = std::find(dest, dest + size, Char{0});
    Copy(end, source, size - static_cast<std::size_t>(end - dest));
}

} // namespace

void SafeCopy(char* dest, const char* source, std::size_t size) { Copy(dest, source, size); }
void SafeCopyWide(char16_t* dest, const char16_t* source, std::size_t size) { Copy(dest, source, size); }
void SafeAppend(char* dest, const char* source, std::size_t size) { Append(dest, source, size); }
void SafeAppendWide(char16_t* dest, const char16_t* source, std::size_t size) { Append(dest, source, size); }

void SafePrintf(char* dest, std::size_t size, const char* format, ...) {
    if (!IsUsable(size)) return;
    std::va_list arguments;
    va_start(arguments, format);
    const int written = std::vsnprintf(dest, size, format, arguments);
    va_end(arguments);
    if (written < 0) dest[0] = '\0';
}

} // namespace brixen::lyr::gen
