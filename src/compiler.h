// The one place that tells compilers and processors apart. Every room may include it; it includes nothing of
// ours.
#pragma once

// Asks the compiler to check the arguments of a function that formats like printf. `format` and `first` are
// the positions of the format and of the first argument, from 1.
#if defined(__MINGW_PRINTF_FORMAT)
#define PVN_PRINTF_LIKE(format, first) __attribute__((__format__(__MINGW_PRINTF_FORMAT, format, first)))
#elif defined(__GNUC__)
#define PVN_PRINTF_LIKE(format, first) __attribute__((__format__(__printf__, format, first)))
#else
#define PVN_PRINTF_LIKE(format, first)
#endif

// Defined where the processor has 16-byte vectors. Code that uses them has a plain variant beside it.
#if defined(__SSE2__) || defined(_M_X64)
#define PVN_HAS_SSE2 1
#include <emmintrin.h>
#endif

// Defined where the compiler has 128-bit integers.
#if defined(__SIZEOF_INT128__)
#define PVN_HAS_INT128 1
#endif
