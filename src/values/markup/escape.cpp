#include "values/markup/escape.h"

#include "values/markup/blocks.h"
#include "values/markup/writer.h"
#include "values/unicode/code_point.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace brixen::lyr::gen {
namespace {

struct Reference {
    std::string_view name; // without the `&`
    char byte;
};

constexpr std::array<Reference, 5> kReferences = {
    {{"lt;", '<'}, {"amp;", '&'}, {"gt;", '>'}, {"apos;", '\''}, {"quot;", '"'}}};

constexpr std::size_t kLongestNumber = 7; // with its semicolon

// Kept: above 0xFFFF the value is cut to its low 16 bits and still takes three bytes.
void AppendUtf8(std::string& result, long value) {
    const auto code = static_cast<char32_t>(value & 0xFFFF);
    const std::size_t length = value > 0xFFFF ? 3 : Utf8Length(code);
    std::array<char, 3> bytes;
    WriteUtf8(code, length, bytes.data());
    result.append(bytes.data(), length);
}

// Reads a reference by number. Returns its length without the `&`; 0 when there is none.
std::size_t ReadNumber(std::string_view text, std::string& result) {
    if (!text.starts_with('#')) return 0;
    const bool hex = text.substr(1).starts_with('x');
    const std::size_t begin = hex ? 2 : 1;
    const std::size_t length = text.substr(begin, kLongestNumber).find(';');
    if (length == std::string_view::npos) return 0;
    std::array<char, kLongestNumber + 1> digits{};
    text.copy(digits.data(), length, begin);
    char* end = nullptr;
    const long value = std::strtol(digits.data(), &end, hex ? 16 : 10);
    if (end == digits.data()) return 0;
    AppendUtf8(result, value);
    return begin + length + 1;
}

// The same for a reference by name.
std::size_t ReadName(std::string_view text, std::string& result) {
    const auto* const found =
        std::find_if(kReferences.begin(), kReferences.end(),
                     [text](const Reference& reference) { return text.starts_with(reference.name); });
    if (found == kReferences.end()) return 0;
    result += found->byte;
    return found->name.size();
}

// The index in kReferences of each byte that has one.
constexpr auto kReferenceOf = [] {
    std::array<std::uint8_t, 256> references{};
    for (std::size_t i = 0; i < kReferences.size(); ++i) {
        references[static_cast<unsigned char>(kReferences[i].byte)] = static_cast<std::uint8_t>(i);
    }
    return references;
}();

std::string_view ReferenceTo(char byte) {
    return kReferences[kReferenceOf[static_cast<unsigned char>(byte)]].name;
}

// Calls `visit` with the place of each byte that needs a reference.
template <class Visit>
void ForEachSpecial(std::string_view text, bool attribute, Visit visit) {
    const std::ptrdiff_t end = std::ssize(text);
    const auto special = [attribute](const char* block) {
        return markup_blocks::SpecialBytes(block, attribute);
    };
    const auto visitAll = [&visit](std::ptrdiff_t from, std::uint32_t mask) {
        for (; mask != 0; mask &= mask - 1) visit(static_cast<std::size_t>(from + std::countr_zero(mask)));
    };
    std::ptrdiff_t from = 0;
    for (; end - from >= kNameBlock; from += kNameBlock) visitAll(from, special(text.data() + from));
    if (from == end) return;
    // The last bytes are read again with those before them: most texts are short.
    const std::ptrdiff_t seen = kNameBlock - (end - from);
    visitAll(from, from > 0 ? special(text.data() + from - seen) >> seen
                            : special(PaddedBlock(text.data(), end).bytes));
}

} // namespace

EscapedMarkup::EscapedMarkup(std::string_view text, bool attribute)
    : text(text), attribute(attribute), length(text.size()) {
    ForEachSpecial(text, attribute, [&](std::size_t at) { length += ReferenceTo(text[at]).size(); });
}

void EscapedMarkup::CopyTo(char* out) const {
    MarkupWriter writer(out);
    std::size_t from = 0;
    if (length > text.size()) {
        ForEachSpecial(text, attribute, [&](std::size_t at) {
            writer.Put(text.substr(from, at - from));
            writer.PutLiteral("&");
            writer.Put(ReferenceTo(text[at]));
            from = at + 1;
        });
    }
    writer.Put(text.substr(from));
}

std::string EscapeMarkup(std::string_view text, bool attribute) {
    const EscapedMarkup escaped(text, attribute);
    std::string result;
    result.reserve(std::max(text.size() + text.size() / 10, escaped.Length()));
    result.resize(escaped.Length());
    escaped.CopyTo(result.data());
    return result;
}

std::string_view Unescaped(MarkupSpan text, std::ptrdiff_t from, std::ptrdiff_t mark, std::ptrdiff_t to,
                           std::string& room) {
    room.clear();
    room.reserve(static_cast<std::size_t>(to - from));
    for (;;) {
        room.append(text.Between(from, mark));
        if (mark == to) return room;
        const std::string_view rest = text.Between(mark + 1, to);
        std::size_t length = ReadNumber(rest, room);
        if (length == 0) length = ReadName(rest, room);
        if (length == 0) room += '&';
        from = mark + 1 + static_cast<std::ptrdiff_t>(length);
        mark = text.Find('&', from, to);
    }
}

} // namespace brixen::lyr::gen
