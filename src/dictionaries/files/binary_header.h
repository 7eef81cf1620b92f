// The header of a compiled dictionary.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kestrel_private {

// The magic, then one byte each for the major version, the minor version and the conversion code.
inline constexpr std::string_view kBinaryMagic = "ZString Binary Format";
inline constexpr std::size_t kBinaryHeaderSize = kBinaryMagic.size() + 3;

// The low bit of the byte order; the other bits mean nothing.
inline constexpr std::uint8_t kLittleEndian = 0;
inline constexpr std::uint8_t kBigEndian = 1;

// Whether the block of a file has keys; any other byte means that it has.
inline constexpr std::uint8_t kHasKeys = 0x59;
inline constexpr std::uint8_t kHasNoKeys = 0x4E;

struct BinaryVersion {
    std::uint8_t major;
    std::int8_t minor;
    std::uint8_t conversionCode; // the encoding of values in version 1; 0 for UTF-16
};

inline bool HasBinaryMagic(const std::uint8_t* bytes, std::size_t length) {
    return length >= kBinaryMagic.size() && std::memcmp(bytes, kBinaryMagic.data(), kBinaryMagic.size()) == 0;
}

// Reads the version of a file that is longer than the header.
inline BinaryVersion BinaryVersionOf(const std::uint8_t* bytes) {
    const std::uint8_t* const version = bytes + kBinaryMagic.size();
    return {version[0], static_cast<std::int8_t>(version[1]), version[2]};
}

} // namespace kestrel_private
