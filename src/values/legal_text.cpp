#include "values/legal_text.h"

#include "values/ascii_block.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace brixen::lyr::gen::legal_text {

namespace {

constexpr std::uint32_t kLastCodePoint = 0x10FFFF;

// Four bytes as a number, the first lowest.
inline std::uint32_t ReadFour(const Byte* source) {
    std::uint32_t four = 0;
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(&four, source, sizeof four);
    } else {
        for (int i = 3; i >= 0; --i) four = four << 8 | source[i];
    }
    return four;
}

inline void WriteFour(Byte* target, std::uint32_t four) {
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(target, &four, sizeof four);
    } else {
        for (int i = 0; i < 4; ++i) target[i] = static_cast<Byte>(four >> (8 * i));
    }
}

// Moves over a run of ASCII.
inline void QuickAsciiToUtf16(const Byte*& source, const Byte* end, char16_t*& target,
                              const char16_t* targetEnd) {
    while (std::min(end - source, targetEnd - target) >= static_cast<std::ptrdiff_t>(kAsciiBlock)) {
        const std::size_t count = blocks::WidenAsciiBlock(source, target);
        source += count;
        target += count;
        if (count < kAsciiBlock) return;
    }
    if (std::min(end - source, targetEnd - target) >= static_cast<std::ptrdiff_t>(kAsciiBlock / 2)) {
        const std::size_t count = blocks::WidenAsciiHalfBlock(source, target);
        source += count;
        target += count;
    }
    while (source != end && target != targetEnd && *source < 0x80) *target++ = *source++;
}

// One legal sequence of several bytes; false when it is anything else. The marks are tested at once, and an
// overlong form shows in its code point.
inline bool QuickSequence(std::uint32_t four, const Byte*& source, char16_t*& target) {
    if ((four & 0xC0C0F0) == 0x8080E0) {
        const char32_t code = ((four & 0x0F) << 12) | ((four >> 2) & 0xFC0) | ((four >> 16) & 0x3F);
        if (code < 0x800 || IsSurrogate(code)) return false;
        *target++ = static_cast<char16_t>(code);
        source += 3;
        return true;
    }
    if ((four & 0xC0E0) == 0x80C0) {
        const char32_t code = ((four & 0x1F) << 6) | ((four >> 8) & 0x3F);
        if (code < 0x80) return false;
        *target++ = static_cast<char16_t>(code);
        source += 2;
        return true;
    }
    const char32_t code =
        ((four & 0x07) << 18) | ((four << 4) & 0x3F000) | ((four >> 10) & 0xFC0) | ((four >> 24) & 0x3F);
    if ((four & 0xC0C0C0F8) != 0x808080F0 || code < 0x10000 || code > kLastCodePoint) return false;
    target[0] = static_cast<char16_t>(0xD7C0 + (code >> 10));
    target[1] = static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    target += 2;
    source += 4;
    return true;
}

inline void QuickAsciiToUtf8(const char16_t*& source, const char16_t* end, Byte*& target,
                             const Byte* targetEnd) {
    while (std::min(end - source, targetEnd - target) >= static_cast<std::ptrdiff_t>(kAsciiBlock)) {
        const std::size_t count = blocks::NarrowAsciiBlock(source, target);
        source += count;
        target += count;
        if (count < kAsciiBlock) return;
    }
    while (source != end && target != targetEnd && *source < 0x80) *target++ = static_cast<Byte>(*source++);
}

// One character beyond ASCII; false for an unpaired surrogate. Four bytes are written, however many count.
inline bool QuickCharacter(const char16_t*& source, const char16_t* end, Byte*& target) {
    const std::uint32_t unit = *source;
    if (unit < 0x800) {
        WriteFour(target, 0x80C0 | (unit >> 6) | (unit & 0x3F) << 8);
        target += 2;
        ++source;
        return true;
    }
    if (!IsSurrogate(unit)) {
        WriteFour(target, 0x8080E0 | (unit >> 12) | (unit & 0xFC0) << 2 | (unit & 0x3F) << 16);
        target += 3;
        ++source;
        return true;
    }
    if (!IsHighSurrogate(unit) || end - source < 2 || !IsLowSurrogate(source[1])) return false;
    const std::uint32_t code = 0x10000 + ((unit - 0xD800) << 10) + (source[1] - 0xDC00U);
    WriteFour(target, 0x808080F0 | (code >> 18) | ((code >> 4) & 0x3F00) | (code & 0xFC0) << 10 |
                          (code & 0x3F) << 24);
    target += 4;
    source += 2;
    return true;
}

} // namespace

void QuickUtf8ToUtf16(const Byte*& sourceAt, const Byte* end, char16_t*& targetAt,
                      const char16_t* targetEnd) {
    const Byte* source = sourceAt;
    char16_t* target = targetAt;
    bool going = true;
    while (going) {
        // No sequence gives more units than it has bytes, and none more than two.
        const std::ptrdiff_t bytes = std::min(end - source - 3, targetEnd - target - 1);
        const Byte* const stop = source + std::max<std::ptrdiff_t>(bytes, 0);
        going = source < stop;
        while (going && source < stop) {
            const std::uint32_t four = ReadFour(source);
            if ((four & 0x80) == 0) {
                QuickAsciiToUtf16(source, end, target, targetEnd);
            } else {
                going = QuickSequence(four, source, target);
            }
        }
    }
    // The last bytes, with zeros behind them, which belong to no sequence.
    going = end - sourceAt >= 4 && end - source < 4;
    while (going && source != end && targetEnd - target >= 2) {
        const std::uint32_t four = ReadFour(end - 4) >> (8 * (4 - (end - source)));
        if ((four & 0x80) == 0) {
            *target++ = *source++;
        } else {
            going = QuickSequence(four, source, target);
        }
    }
    sourceAt = source;
    targetAt = target;
}

void QuickUtf16ToUtf8(const char16_t*& sourceAt, const char16_t* end, Byte*& targetAt,
                      const Byte* targetEnd) {
    const char16_t* source = sourceAt;
    Byte* target = targetAt;
    bool going = true;
    while (going) {
        // Four bytes are written for each character.
        const char16_t* const stop = source + std::min(end - source, (targetEnd - target) / 4);
        going = source < stop;
        while (going && source < stop) {
            if (*source < 0x80) {
                QuickAsciiToUtf8(source, end, target, targetEnd);
            } else {
                going = QuickCharacter(source, end, target);
            }
        }
    }
    sourceAt = source;
    targetAt = target;
}

std::size_t Utf16Length(std::string_view utf8) {
    const Byte* source = reinterpret_cast<const Byte*>(utf8.data());
    const Byte* const end = source + utf8.size();
    std::size_t units = 0;
    for (; end - source >= static_cast<std::ptrdiff_t>(kAsciiBlock); source += kAsciiBlock) {
        units += blocks::Utf16UnitsOfBlock(source);
    }
    std::array<Byte, kAsciiBlock> rest;
    rest.fill(0x80); // starts nothing
    std::copy(source, end, rest.begin());
    return units + blocks::Utf16UnitsOfBlock(rest.data());
}

std::size_t Utf8Length(std::u16string_view utf16) {
    constexpr std::size_t kHalf = kAsciiBlock / 2;
    std::size_t bytes = 0;
    for (; utf16.size() >= kHalf; utf16.remove_prefix(kHalf)) bytes += blocks::Utf8BytesOfUnits(utf16.data());
    std::array<char16_t, kHalf> rest{};
    std::copy(utf16.begin(), utf16.end(), rest.begin());
    return bytes + blocks::Utf8BytesOfUnits(rest.data()) - (kHalf - utf16.size());
}

} // namespace brixen::lyr::gen::legal_text
