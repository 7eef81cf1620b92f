// What the resource layer needs of the system besides files: where the library lies, and PNG files as
// bitmaps. Paths are UTF-16; a backslash separates folders on every system. Nothing here throws unless memory
// runs out.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace brixen::pvn::pvn_workflow::platform {

// Size of every path buffer, with the terminator.
inline constexpr std::size_t kPathUnits = 260;

// The folder of the file that holds this code, found by the address of one of its functions, so that a
// renamed file finds its own folder too. A path that does not fit into kPathUnits is cut before its last
// component goes.
std::u16string LibraryFolder();

// The decoder is started before the first DecodeBitmap and stopped after the last. The caller counts.
bool StartDecoder() noexcept;
void StopDecoder() noexcept;

inline constexpr std::uint32_t kDecodeFailed = 0x80004005;

struct DecodedBitmap {
    zeve::NativeBitmap bitmap = nullptr; // owned by the caller, see DeleteBitmap
    std::uint32_t code = kDecodeFailed;  // 0 or kDecodeFailed
};

// A device-independent bitmap of the file's size, bottom row first, blue first in each pixel: 32 bits with
// straight alpha where the file's format has alpha, else 24 bits. The file is closed on return.
DecodedBitmap DecodeBitmap(const char16_t* path);
void DeleteBitmap(zeve::NativeBitmap bitmap) noexcept;

} // namespace brixen::pvn::pvn_workflow::platform
