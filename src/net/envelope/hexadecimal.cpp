#include "net/envelope/hexadecimal.h"

#include "compiler.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace brixen::pvn {
namespace {

constexpr char kDigits[] = "0123456789ABCDEF";

struct DigitPair {
    char digits[2];
};

constexpr std::array<DigitPair, 256> MakePairs() {
    std::array<DigitPair, 256> pairs{};
    for (std::size_t byte = 0; byte < pairs.size(); ++byte)
        pairs[byte] = {{kDigits[byte >> 4], kDigits[byte & 15]}};
    return pairs;
}

// The value of a digit, and kNoDigit for every other character.
constexpr std::uint8_t kNoDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> MakeValues() {
    std::array<std::uint8_t, 256> values{};
    values.fill(kNoDigit);
    for (std::uint8_t value = 0; value < 16; ++value)
        values[static_cast<std::uint8_t>(kDigits[value])] = value;
    return values;
}

constexpr auto kPairs = MakePairs();
constexpr auto kValues = MakeValues();

// The functions below work on whole blocks of 16 bytes and return the number of bytes that they did. The
// plain loops do the rest, and all of it on processors without vectors.
#ifdef PVN_HAS_SSE2

constexpr std::size_t kBlock = 16;

inline __m128i Load(const void* bytes) { return _mm_loadu_si128(static_cast<const __m128i*>(bytes)); }
inline void Store(void* bytes, __m128i block) { _mm_storeu_si128(static_cast<__m128i*>(bytes), block); }

// The digits of sixteen nibbles.
inline __m128i DigitsOf(__m128i nibbles) {
    const __m128i isLetter = _mm_cmpgt_epi8(nibbles, _mm_set1_epi8(9));
    const __m128i toLetter = _mm_and_si128(isLetter, _mm_set1_epi8('A' - '9' - 1));
    return _mm_add_epi8(_mm_add_epi8(nibbles, _mm_set1_epi8('0')), toLetter);
}

std::size_t EncodeBlocks(const std::uint8_t* bytes, std::size_t length, char* digits) {
    const __m128i nibble = _mm_set1_epi8(0x0F);
    std::size_t done = 0;
    for (; length - done >= kBlock; done += kBlock) {
        const __m128i block = Load(bytes + done);
        const __m128i high = DigitsOf(_mm_and_si128(_mm_srli_epi16(block, 4), nibble));
        const __m128i low = DigitsOf(_mm_and_si128(block, nibble));
        Store(digits + 2 * done, _mm_unpacklo_epi8(high, low));
        Store(digits + 2 * done + kBlock, _mm_unpackhi_epi8(high, low));
    }
    return done;
}

// The values of sixteen digits. Clears the bytes of `areDigits` for the characters that are none.
inline __m128i ValuesOf(__m128i characters, __m128i& areDigits) {
    // Codes wrap below the first digit, so one comparison checks both ends.
    const __m128i fromZero = _mm_sub_epi8(characters, _mm_set1_epi8('0'));
    const __m128i fromA = _mm_sub_epi8(characters, _mm_set1_epi8('A'));
    const __m128i isDecimal = _mm_cmpeq_epi8(fromZero, _mm_min_epu8(fromZero, _mm_set1_epi8(9)));
    const __m128i isLetter = _mm_cmpeq_epi8(fromA, _mm_min_epu8(fromA, _mm_set1_epi8(5)));
    areDigits = _mm_and_si128(areDigits, _mm_or_si128(isDecimal, isLetter));
    return _mm_sub_epi8(fromZero, _mm_and_si128(isLetter, _mm_set1_epi8('A' - '9' - 1)));
}

// Eight bytes, each in 16 bits, from the values of sixteen digits. The first digit is in the low half.
inline __m128i BytesOf(__m128i values) {
    const __m128i high = _mm_slli_epi16(_mm_and_si128(values, _mm_set1_epi16(0x00FF)), 4);
    return _mm_or_si128(high, _mm_srli_epi16(values, 8));
}

// Stops before a block with a character that is no digit.
std::size_t DecodeBlocks(const char* digits, std::uint8_t* bytes, std::size_t length) {
    std::size_t done = 0;
    for (; length - done >= kBlock; done += kBlock) {
        __m128i areDigits = _mm_set1_epi8(-1);
        const __m128i first = ValuesOf(Load(digits + 2 * done), areDigits);
        const __m128i second = ValuesOf(Load(digits + 2 * done + kBlock), areDigits);
        if (_mm_movemask_epi8(areDigits) != 0xFFFF) break;
        Store(bytes + done, _mm_packus_epi16(BytesOf(first), BytesOf(second)));
    }
    return done;
}

#else

std::size_t EncodeBlocks(const std::uint8_t*, std::size_t, char*) { return 0; }
std::size_t DecodeBlocks(const char*, std::uint8_t*, std::size_t) { return 0; }

#endif

} // namespace

void EncodeHexadecimal(const void* bytes, std::size_t length, char* digits) noexcept {
    const auto* const from = static_cast<const std::uint8_t*>(bytes);
    for (std::size_t i = EncodeBlocks(from, length, digits); i < length; ++i)
        std::memcpy(digits + 2 * i, &kPairs[from[i]], sizeof(DigitPair));
}

std::size_t DecodeHexadecimal(const char* digits, void* bytes, std::size_t length) noexcept {
    auto* const to = static_cast<std::uint8_t*>(bytes);
    for (std::size_t i = DecodeBlocks(digits, to, length); i < length; ++i) {
        const unsigned high = kValues[static_cast<std::uint8_t>(digits[2 * i])];
        const unsigned low = kValues[static_cast<std::uint8_t>(digits[2 * i + 1])];
        if ((high | low) == kNoDigit) return i;
        to[i] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return length;
}

} // namespace brixen::pvn
