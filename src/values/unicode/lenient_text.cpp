#include "values/unicode/light_text.h"

#include "values/unicode/character_borders.h"

#include <array>
#include <cstddef>

namespace brixen::lyr::gen {
namespace {

constexpr std::uint32_t kLastBmp = 0xFFFF;

// Reads one code point; 0 at the end of the text.
std::uint32_t NextCode(const char16_t*& wide) {
    const std::uint32_t unit = *wide;
    if (unit == 0) return 0;
    ++wide;
    if (!IsSurrogate(unit)) return unit;
    const std::uint32_t next = *wide;
    if (next == 0) return 0;
    ++wide;
    return ((next & 0x3FF) | ((unit & 0x3FF) << 10)) + 0x10000;
}

std::int32_t PutCode(std::uint32_t code, std::array<char, 4>& bytes) {
    if (code < 0x80) {
        bytes[0] = static_cast<char>(code);
        return 1;
    }
    const std::int32_t length = code < 0x800 ? 2 : code <= kLastBmp ? 3 : 4;
    for (auto i = static_cast<std::size_t>(length - 1); i > 0; --i) {
        bytes[i] = static_cast<char>(0x80 | (code & 0x3F));
        code >>= 6;
    }
    const std::uint32_t mark = length == 2 ? 0xC0 : length == 3 ? 0xE0 : 0xF0;
    bytes[0] = static_cast<char>(mark | code);
    return length;
}

struct Utf8Source {
    const char* at;
    std::int64_t left; // bytes; endless for a text that ends with its NUL

    bool Ended() const { return left == 0; }
    std::uint32_t Peek() const { return static_cast<unsigned char>(*at); }
    std::uint32_t Next() {
        --left;
        return static_cast<unsigned char>(*at++);
    }
};

std::uint32_t NextCode(Utf8Source& source) {
    const std::uint32_t lead = source.Next();
    if (lead < 0x80) return lead;
    const int trailing = (lead & 0x20) == 0 ? 1 : (lead & 0x10) == 0 ? 2 : 3;
    std::uint32_t code = lead & (0x3FU >> trailing);
    for (int i = 0; i < trailing; ++i) {
        if (source.Ended() || source.Peek() < 0x80) return u'?';
        code = (code << 6) | (source.Next() & 0x3F);
    }
    return code;
}

std::int32_t PutUnits(char16_t* out, std::uint32_t code) {
    if (code <= kLastBmp) {
        if (out != nullptr) out[0] = static_cast<char16_t>(code);
        return 1;
    }
    code -= 0x10000;
    if (out != nullptr) {
        out[0] = static_cast<char16_t>(0xD800 + ((code >> 10) & 0x3FF));
        out[1] = static_cast<char16_t>(0xDC00 + (code & 0x3FF));
    }
    return 2;
}

} // namespace

std::int32_t EncodeUtf8(char* out, const char16_t* wide, std::int32_t size) {
    std::int32_t length = 0;
    std::array<char, 4> bytes;
    while (const std::uint32_t code = NextCode(wide)) {
        const std::int32_t added = PutCode(code, bytes);
        if (out != nullptr) {
            if (added > size - length) break;
            for (std::int32_t i = 0; i < added; ++i) out[length + i] = bytes[static_cast<std::size_t>(i)];
        }
        length += added;
    }
    if (out != nullptr && length < size) out[length] = '\0';
    return length;
}

std::int32_t DecodeUtf8(char16_t* out, const char* utf8, std::int32_t length) {
    Utf8Source source{utf8, length};
    std::int32_t units = 0;
    while (!source.Ended()) {
        if (source.Peek() == 0) {
            if (out != nullptr) out[units] = u'\0';
            break;
        }
        units += PutUnits(out == nullptr ? nullptr : out + units, NextCode(source));
    }
    return out == nullptr ? units : static_cast<std::int32_t>(source.at - utf8);
}

} // namespace brixen::lyr::gen
