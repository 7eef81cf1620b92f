#include "values/unicode/lenient_text.h"

#include "values/unicode/code_point.h"
#include "values/unicode/text_conversion.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace brixen::lyr::gen {
namespace {

// Reads one code point; 0 at the end of the text.
char32_t NextCode(const char16_t*& wide) {
    const char32_t unit = *wide;
    if (unit == 0) return 0;
    ++wide;
    if (!IsSurrogate(unit)) return unit;
    const char32_t next = *wide;
    if (next == 0) return 0;
    ++wide;
    return CodeOfPair(unit, next);
}

struct Utf8Source {
    const char* at;
    std::int64_t left; // bytes; below 0 for a text that ends with its NUL

    bool Ended() const { return left == 0; }
    std::uint8_t Peek() const { return static_cast<std::uint8_t>(*at); }
    std::uint8_t Next() {
        --left;
        return static_cast<std::uint8_t>(*at++);
    }
};

char32_t NextCode(Utf8Source& source) {
    const std::uint8_t lead = source.Next();
    if (lead < 0x80) return lead;
    const int trailing = (lead & 0x20) == 0 ? 1 : (lead & 0x10) == 0 ? 2 : 3;
    char32_t code = lead & (0x3FU >> trailing);
    for (int i = 0; i < trailing; ++i) {
        if (source.Ended() || source.Peek() < 0x80) return U'?';
        code = (code << 6) | (source.Next() & 0x3FU);
    }
    return code;
}

std::int32_t PutUnits(char16_t* out, char32_t code) {
    if (code <= kLastBasicCode) {
        if (out != nullptr) out[0] = static_cast<char16_t>(code);
        return 1;
    }
    if (out != nullptr) {
        out[0] = HighSurrogateOf(code);
        out[1] = LowSurrogateOf(code);
    }
    return 2;
}

} // namespace

std::int32_t EncodeUtf8(char* out, const char16_t* wide, std::int32_t size) {
    std::int32_t length = 0;
    while (const char32_t code = NextCode(wide)) {
        const std::size_t added = Utf8Length(code);
        if (out != nullptr) {
            if (static_cast<std::int32_t>(added) > size - length) break;
            WriteUtf8(code, added, out + length);
        }
        length += static_cast<std::int32_t>(added);
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

std::string LenientUtf8(const char16_t* wide) {
    std::string utf8(static_cast<std::size_t>(EncodeUtf8(nullptr, wide, 0)), '\0');
    EncodeUtf8(utf8.data(), wide, static_cast<std::int32_t>(utf8.size()));
    return utf8;
}

std::u16string LenientUtf16(std::string_view utf8) {
    const auto length = static_cast<std::int32_t>(utf8.size());
    std::u16string units(static_cast<std::size_t>(DecodeUtf8(nullptr, utf8.data(), length)), u'\0');
    // A NUL that ends the text takes the terminator's place.
    DecodeUtf8(units.data(), utf8.data(), length);
    return units;
}

std::u16string ReplacingUtf16(std::string_view bytes) {
    std::u16string units(bytes.size(), u'\0'); // no byte makes more than one
    const auto* at = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const auto* const end = at + bytes.size();
    char16_t* out = units.data();
    while (ConvertUtf8ToUtf16(at, end, out, units.data() + units.size(), false) !=
           ConversionResult::ConversionOk) {
        ++at;
        *out++ = kReplacementCharacter;
    }
    units.resize(static_cast<std::size_t>(out - units.data()));
    return units;
}

} // namespace brixen::lyr::gen
