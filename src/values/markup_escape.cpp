#include "values/markup_escape.h"

#include "values/markup_blocks.h"

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

constexpr std::size_t kLongestName = 5;   // with its semicolon
constexpr std::size_t kLongestNumber = 7; // likewise

// Above 0xFFFF the value is cut to its low 16 bits and still takes three bytes: kept.
void AppendUtf8(std::string& result, long value) {
    const auto code = static_cast<unsigned>(value < 0 || value > 0xFFFF ? value & 0xFFFF : value);
    const bool cut = value > 0xFFFF;
    if (code < 0x80 && !cut) {
        result += static_cast<char>(code);
    } else if (code < 0x800 && !cut) {
        result += static_cast<char>(0xC0 | code >> 6);
        result += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        result += static_cast<char>(0xE0 | code >> 12);
        result += static_cast<char>(0x80 | (code >> 6 & 0x3F));
        result += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// How many bytes behind the `&` a number takes; 0 when there is none.
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

std::size_t ReadName(std::string_view text, std::string& result) {
    const auto* const found =
        std::find_if(kReferences.begin(), kReferences.end(),
                     [text](const Reference& reference) { return text.starts_with(reference.name); });
    if (found == kReferences.end()) return 0;
    result += found->byte;
    return found->name.size();
}

// What becomes of each byte.
using ReferenceTable = std::array<std::uint8_t, 256>; // index in kReferences plus 1, 0 for none

constexpr ReferenceTable ReferencesFor(std::string_view special) {
    ReferenceTable table{};
    for (std::size_t i = 0; i < kReferences.size(); ++i) {
        const char byte = kReferences[i].byte;
        if (special.find(byte) == std::string_view::npos) continue;
        table[static_cast<unsigned char>(byte)] = static_cast<std::uint8_t>(i + 1);
    }
    return table;
}

constexpr ReferenceTable kInContent = ReferencesFor("<&>");
constexpr ReferenceTable kInAttribute = ReferencesFor("<&>'\"");

std::size_t EndOfPlain(std::string_view text, std::size_t from, const ReferenceTable& special) {
    constexpr auto kBlock = static_cast<std::size_t>(kNameBlock);
    while (text.size() - from >= kBlock && markup_blocks::SpecialBytes(text.data() + from) == 0)
        from += kBlock;
    while (from < text.size() && special[static_cast<unsigned char>(text[from])] == 0) ++from;
    return from;
}

// Into an empty text. `mark` is the first byte that needs a reference, or the end.
void AppendEscaped(std::string& result, std::string_view text, std::size_t mark,
                   const ReferenceTable& special) {
    result.reserve(text.size() + text.size() / 10 + kLongestName);
    std::size_t from = 0;
    for (;;) {
        result.append(text, from, mark - from);
        if (mark == text.size()) return;
        const std::size_t reference = special[static_cast<unsigned char>(text[mark])];
        result += '&';
        result += kReferences[reference - 1].name;
        from = mark + 1;
        mark = EndOfPlain(text, from, special);
    }
}

} // namespace

std::string EscapeMarkup(std::string_view text, bool attribute) {
    const ReferenceTable& special = attribute ? kInAttribute : kInContent;
    std::string result;
    AppendEscaped(result, text, EndOfPlain(text, 0, special), special);
    return result;
}

std::string_view EscapedOrSame(std::string_view content, std::string& escaped) {
    const std::size_t mark = EndOfPlain(content, 0, kInContent);
    if (mark == content.size()) return content;
    escaped.clear();
    AppendEscaped(escaped, content, mark, kInContent);
    return escaped;
}

std::string_view UnescapedOrSame(const MarkupSpan& text, std::ptrdiff_t from, std::ptrdiff_t to,
                                 std::string& room) {
    std::ptrdiff_t mark = text.Find('&', from, to);
    if (mark == to) return text.Between(from, to);
    room.clear();
    room.reserve(static_cast<std::size_t>(to - from));
    for (;;) {
        room.append(text.Between(from, mark));
        if (mark == to) return room;
        const std::string_view behind = text.Between(mark + 1, to);
        std::size_t length = ReadNumber(behind, room);
        if (length == 0) length = ReadName(behind, room);
        if (length == 0) room += '&';
        from = mark + 1 + static_cast<std::ptrdiff_t>(length);
        mark = text.Find('&', from, to);
    }
}

} // namespace brixen::lyr::gen
