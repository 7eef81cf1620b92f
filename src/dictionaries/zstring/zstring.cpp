#include "dictionaries/zstring/zstring.h"

#include "compiler.h"
#include "dictionaries/zstring/encoding.h"

#include <algorithm>
#include <array>
#include <bit>
#include <new>

namespace kestrel_private {
namespace {

constexpr std::size_t kMostUnits = 0x7FFFFFFF;

using UnitPair = std::array<char16_t, 2>;

// Where the two units first follow each other in the text, or npos. Looks at eight places at a time where the
// processor has vectors, since such a pair is rare in a text.
std::size_t FindPair(std::u16string_view text, const UnitPair& pair) {
    std::size_t at = 0;
#if defined(PVN_HAS_SSE2)
    const __m128i firsts = _mm_set1_epi16(static_cast<short>(pair[0]));
    const __m128i seconds = _mm_set1_epi16(static_cast<short>(pair[1]));
    for (; text.size() - at > 8; at += 8) {
        const auto* const here = reinterpret_cast<const __m128i*>(text.data() + at);
        const auto* const next = reinterpret_cast<const __m128i*>(text.data() + at + 1);
        const __m128i places = _mm_and_si128(_mm_cmpeq_epi16(_mm_loadu_si128(here), firsts),
                                             _mm_cmpeq_epi16(_mm_loadu_si128(next), seconds));
        const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(places));
        if (bytes != 0) return at + static_cast<std::size_t>(std::countr_zero(bytes)) / sizeof(char16_t);
    }
#endif
    return text.find(pair.data(), at, pair.size());
}

// `^` and its mark. Every `^` that is not directly before the mark is kept.
class Placeholder {
public:
    explicit Placeholder(std::uint32_t index) : units{u'^', static_cast<char16_t>(u'0' + index)} {}

    std::size_t Length() const { return units.size(); }
    std::size_t FindIn(std::u16string_view text) const { return FindPair(text, units); }
    std::size_t CountIn(std::u16string_view text) const {
        std::size_t count = 0;
        for (std::size_t at = FindIn(text); at != text.npos; at = FindIn(text)) {
            text.remove_prefix(at + Length());
            ++count;
        }
        return count;
    }
    // The length of the text with `count` of them replaced. Throws bad_alloc when it is too long for a
    // ZString.
    std::size_t ReplacedLength(std::u16string_view text, std::size_t count,
                               std::u16string_view replacement) const {
        const std::size_t length = text.size() - count * Length() + count * replacement.size();
        if (length > kMostUnits) throw std::bad_alloc();
        return length;
    }
    // Replaces `count` of them; `output` has room for the result.
    void Replace(std::u16string_view text, std::size_t count, std::u16string_view replacement,
                 char16_t* output) const {
        for (; count > 0; --count) {
            const std::size_t at = FindIn(text);
            output = std::copy_n(text.begin(), at, output);
            output = std::copy(replacement.begin(), replacement.end(), output);
            text.remove_prefix(at + Length());
        }
        std::copy(text.begin(), text.end(), output);
    }

private:
    UnitPair units;
};

} // namespace

bool SubstituteText(std::u16string_view text, std::uint32_t index, std::u16string_view replacement,
                    std::u16string& output) {
    const Placeholder placeholder(index);
    const std::size_t count = placeholder.CountIn(text);
    if (count == 0) return false;
    output.resize(placeholder.ReplacedLength(text, count, replacement));
    placeholder.Replace(text, count, replacement, output.data());
    return true;
}

} // namespace kestrel_private

namespace kestrel {

using kestrel_private::ByteRunValue;

namespace {

// Never destroyed: handles in other static objects may be destroyed later.
ByteRunValue* EmptyValue() {
    static ByteRunValue* const empty = [] {
        auto* const value = ByteRunValue::Make(0);
        value->AddRef();
        return value;
    }();
    return empty;
}

std::uint32_t ByteLengthOf(std::u16string_view text) {
    return static_cast<std::uint32_t>(text.size() * sizeof(char16_t));
}

} // namespace

ZString::ZString() : value(EmptyValue()) {}

ZString::ZString(std::u16string_view text) : ZString(text.data(), ByteLengthOf(text)) {}

ZString::ZString(const void* bytes, std::uint32_t byteLength)
    : value(ByteRunValue::Copy(bytes, byteLength)) {}

ZString ZString::FromBytes(std::string_view bytes, const std::int32_t* encoding) {
    return ZString(kestrel_private::DecodeBytes(bytes, encoding));
}

std::u16string_view ZString::Text() const {
    return {reinterpret_cast<const char16_t*>(value->Bytes()), Length()};
}

void ZString::CopyOut(char16_t* buffer, std::uint32_t capacity, bool failOnOverflow) const {
    if (capacity != 0) {
        const std::u16string_view fitting = Text().substr(0, capacity - 1);
        *std::copy(fitting.begin(), fitting.end(), buffer) = u'\0';
    }
    if (failOnOverflow && capacity < LengthWithTerminator()) throw kestrel_private::kBufferCode;
}

void Substitute(ZString& string, std::uint32_t index, const ZString& replacement) {
    const kestrel_private::Placeholder placeholder(index);
    const std::size_t count = placeholder.CountIn(string.Text());
    if (count == 0) return;
    const std::size_t length = placeholder.ReplacedLength(string.Text(), count, replacement.Text());
    ZString substituted(ByteRunValue::Make(static_cast<std::uint32_t>(length * sizeof(char16_t))));
    if (length != 0) {
        placeholder.Replace(string.Text(), count, replacement.Text(),
                            reinterpret_cast<char16_t*>(substituted.value->FillBytes()));
    }
    string = substituted;
}

} // namespace kestrel
