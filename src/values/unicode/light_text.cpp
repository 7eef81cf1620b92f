#include "values/unicode/light_text.h"

#include "values/unicode/character_borders.h"
#include "values/platform/values_platform.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>

namespace brixen::lyr::gen {
namespace {

constexpr std::size_t kLocalUnits = 256;
constexpr std::uint32_t kLastBmp = 0xFFFF;

// Room for a short text on the stack, for any other on the heap.
template <class Unit>
class TextRoom {
public:
    // `count` units and a terminator.
    explicit TextRoom(std::size_t count)
        : fHeap(count < kLocalUnits ? nullptr : new Unit[count + 1]),
          fUnits(fHeap ? fHeap.get() : fLocal.data()) {}
    Unit* Units() { return fUnits; }

private:
    std::array<Unit, kLocalUnits> fLocal;
    std::unique_ptr<Unit[]> fHeap;
    Unit* fUnits;
};

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

std::string NarrowOf(const char16_t* wide) {
    const std::size_t size = NarrowSize(wide);
    if (size == kNoNarrowText) return {};
    TextRoom<char> narrow(size);
    // The size was counted without a look at the characters.
    const std::size_t written = WideToNarrow(narrow.Units(), wide, size + 1);
    return written == kNoNarrowText ? std::string() : std::string(narrow.Units(), written);
}

std::string Utf8Of(const char16_t* wide) {
    const std::int32_t size = EncodeUtf8(nullptr, wide, 0);
    TextRoom<char> utf8(static_cast<std::size_t>(size));
    EncodeUtf8(utf8.Units(), wide, size + 1);
    return {utf8.Units(), static_cast<std::size_t>(size)};
}

bool IsTooLong(std::string_view text) {
    return text.size() >= static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max() / 4);
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

std::string Utf8ToCodePage(std::string_view utf8) {
    if (IsTooLong(utf8)) return {};
    const auto length = static_cast<std::int32_t>(utf8.size());
    const std::int32_t units = DecodeUtf8(nullptr, utf8.data(), length);
    TextRoom<char16_t> wide(static_cast<std::size_t>(units));
    DecodeUtf8(wide.Units(), utf8.data(), length);
    wide.Units()[units] = u'\0';
    return NarrowOf(wide.Units());
}

std::string CodePageToUtf8(std::string_view text) {
    if (IsTooLong(text)) return {};
    // The C library wants a terminated text.
    TextRoom<char> narrow(text.size());
    *std::copy(text.begin(), text.end(), narrow.Units()) = '\0';
    const std::size_t units = WideSize(narrow.Units());
    if (units == kNoNarrowText) return {};
    TextRoom<char16_t> wide(units);
    const bool read = NarrowToWide(wide.Units(), narrow.Units(), units + 1) != kNoNarrowText;
    return read ? Utf8Of(wide.Units()) : std::string();
}

} // namespace brixen::lyr::gen
