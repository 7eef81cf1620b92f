// What the resource layer needs of the system besides files: the library's folder, and PNG files as bitmaps.
// Paths are UTF-16, with a backslash between folders on every system. Nothing here throws but std::bad_alloc.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace brixen::pvn::pvn_workflow::platform {

// Size of every path buffer, with the terminator.
inline constexpr std::size_t kPathUnits = 260;

// Returns the folder of the file that holds this code, found by the address of one of its functions, so that
// a renamed file finds its own folder too. A path that is longer than kPathUnits is cut before its last
// component is removed.
std::u16string LibraryFolder();

// Starts the decoder, before the first DecodeBitmap. Returns whether it runs. The caller counts its users and
// calls StopDecoder after the last DecodeBitmap.
[[nodiscard]] bool StartDecoder() noexcept;
void StopDecoder() noexcept;

inline constexpr std::uint32_t kDecodeFailed = 0x80004005;

struct DecodedBitmap {
    zeve::NativeBitmap bitmap = nullptr; // owned by the caller, see DeleteBitmap
    std::uint32_t code = kDecodeFailed;  // 0 or kDecodeFailed
};

// A bitmap of more pixels is not decoded: one small file could take gigabytes of memory.
inline constexpr std::uint64_t kMostBitmapPixels = std::uint64_t{16} * 1024 * 1024;

// Returns a device-independent bitmap of the file's size, bottom row first, blue first in each pixel: 32 bits
// with straight alpha where the file's format has alpha, else 24 bits. The file is closed on return.
[[nodiscard]] DecodedBitmap DecodeBitmap(const char16_t* path);
// Null is harmless.
void DeleteBitmap(zeve::NativeBitmap bitmap) noexcept;

} // namespace brixen::pvn::pvn_workflow::platform
