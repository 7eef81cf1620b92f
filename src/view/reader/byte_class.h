// The classes of bytes in the view language.
#pragma once

#include "view/scope/scope_name.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace brixen::zeve {

// The bytes of an identifier have the codes 0 to 62 of ScopeNameByteCode, digits the first ten of them.
inline constexpr std::uint8_t kFirstLetterClass = 10;
inline constexpr std::uint8_t kIdentifierClassCount = 63;
inline constexpr std::uint8_t kBlankClass = 64;
inline constexpr std::uint8_t kOtherClass = 65;

constexpr std::array<std::uint8_t, 256> MakeByteClasses() {
    std::array<std::uint8_t, 256> classes{};
    for (std::size_t byte = 0; byte < classes.size(); ++byte) {
        const std::uint32_t code = ScopeNameByteCode(static_cast<char>(byte));
        classes[byte] = code != 0 || byte == '0' ? static_cast<std::uint8_t>(code) : kOtherClass;
    }
    for (char blank : {' ', '\t', '\r', '\n'}) {
        classes[static_cast<unsigned char>(blank)] = kBlankClass;
    }
    return classes;
}
inline constexpr std::array<std::uint8_t, 256> kByteClasses = MakeByteClasses();

inline std::uint8_t ByteClass(char byte) { return kByteClasses[static_cast<unsigned char>(byte)]; }

inline bool IsBlank(char byte) { return ByteClass(byte) == kBlankClass; }
inline bool IsDigit(char byte) { return ByteClass(byte) < kFirstLetterClass; }
inline bool BeginsIdentifier(char byte) {
    constexpr std::uint8_t kLetters = kIdentifierClassCount - kFirstLetterClass;
    return static_cast<std::uint8_t>(ByteClass(byte) - kFirstLetterClass) < kLetters;
}

} // namespace brixen::zeve
