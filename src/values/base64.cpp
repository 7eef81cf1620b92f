#include "values/base64.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace brixen::lyr::gen {
namespace {

using Byte = unsigned char;

constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kLine = 64;
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::uint32_t kInvalid = 0xFF000000;

// The two characters of each 12 bits, so that three bytes take two steps.
constexpr auto kPairs = [] {
    std::array<std::array<char, 2>, 4096> pairs{};
    for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
        pairs[bits] = {kAlphabet[bits >> 6], kAlphabet[bits & 63]};
    }
    return pairs;
}();

// The bits of each character at each of the four places of a group, the first byte of the group lowest.
constexpr auto kPlaces = [] {
    std::array<std::array<std::uint32_t, 256>, 4> places{};
    for (auto& place : places) place.fill(kInvalid);
    for (std::uint32_t value = 0; value < kAlphabet.size(); ++value) {
        const auto character = static_cast<Byte>(kAlphabet[value]);
        places[0][character] = value << 2;
        places[1][character] = (value >> 4) | ((value & 15) << 12);
        places[2][character] = ((value >> 2) << 8) | ((value & 3) << 22);
        places[3][character] = value << 16;
    }
    return places;
}();

void EncodeGroup(const Byte* bytes, char* out) {
    const std::uint32_t bits = static_cast<std::uint32_t>(bytes[0] << 16 | bytes[1] << 8 | bytes[2]);
    std::memcpy(out, kPairs[bits >> 12].data(), 2);
    std::memcpy(out + 2, kPairs[bits & 0xFFF].data(), 2);
}

// One or two bytes, padded.
void EncodeRest(const Byte* bytes, std::size_t length, char* out) {
    const std::array<Byte, 3> group = {bytes[0], length == 2 ? bytes[1] : Byte{0}, 0};
    EncodeGroup(group.data(), out);
    out[3] = '=';
    if (length == 1) out[2] = '=';
}

std::uint32_t DecodeGroup(const Byte* text) {
    return kPlaces[0][text[0]] | kPlaces[1][text[1]] | kPlaces[2][text[2]] | kPlaces[3][text[3]];
}

void PutBytes(std::uint32_t bits, std::size_t count, char* out) {
    for (std::size_t i = 0; i < count; ++i) out[i] = static_cast<char>(bits >> (8 * i));
}

} // namespace

std::string Base64Encode(const void* bytes, std::size_t length) {
    const Byte* source = static_cast<const Byte*>(bytes);
    std::string text((length + 2) / 3 * 4, '\0');
    char* out = text.data();
    for (; length >= 3; length -= 3, source += 3, out += 4) EncodeGroup(source, out);
    if (length != 0) EncodeRest(source, length, out);
    return text;
}

std::string Base64Decode(std::string_view text) {
    const Byte* source = reinterpret_cast<const Byte*>(text.data());
    const Byte* const end = source + text.size();
    std::string bytes(text.size() / 4 * 3 + 3, '\0');
    char* out = bytes.data();
    for (; end - source >= 4; source += 4, out += 3) {
        const std::uint32_t bits = DecodeGroup(source);
        if ((bits & kInvalid) != 0) break;
        PutBytes(bits, 3, out);
    }
    std::uint32_t bits = 0;
    std::size_t characters = 0;
    while (source + characters != end && characters < 4 &&
           kPlaces[characters][source[characters]] != kInvalid) {
        bits |= kPlaces[characters][source[characters]];
        ++characters;
    }
    const std::size_t last = characters == 0 ? 0 : characters - 1;
    PutBytes(bits, last, out);
    bytes.resize(static_cast<std::size_t>(out - bytes.data()) + last);
    return bytes;
}

std::string EncodeBase64Wrapped(const void* bytes, std::size_t length) {
    const std::string flat = Base64Encode(bytes, length);
    const std::size_t reserve = length * 4 / 3 + 3;
    std::string text(kLineEnd);
    text.reserve(reserve + reserve / kLine * 2 + 4);
    for (std::size_t i = 0; i < flat.size(); i += kLine) {
        const std::string_view line = std::string_view(flat).substr(i, kLine);
        text += line;
        if (line.size() == kLine || line.back() == '=') text += kLineEnd;
    }
    return text;
}

std::size_t DecodeBase64Wrapped(std::string_view text, void* out, std::size_t outSize) {
    if (outSize == 0) return text.size() / 4 * 3 + 3;
    std::array<Byte, 4> group{};
    std::size_t characters = 0;
    std::size_t pads = 0;
    std::size_t stored = 0;
    for (const char character : text) {
        if (character == '\r' || character == '\n') continue;
        pads += character == '=';
        const bool known = kPlaces[0][static_cast<Byte>(character)] != kInvalid;
        group[characters++] = known ? static_cast<Byte>(character) : static_cast<Byte>('A');
        if (characters < group.size()) continue;
        const std::size_t count = 3 - std::min<std::size_t>(pads, 3);
        if (count > outSize - stored) return 0;
        PutBytes(DecodeGroup(group.data()), count, static_cast<char*>(out) + stored);
        stored += count;
        characters = 0;
    }
    return stored;
}

} // namespace brixen::lyr::gen
