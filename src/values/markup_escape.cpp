#include "values/markup_escape.h"

#include <algorithm>
#include <array>
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
constexpr std::string_view kInContent = "<&>";
constexpr std::string_view kInAttribute = "<&>'\"";

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

std::string_view NameOf(char byte) {
    return std::find_if(kReferences.begin(), kReferences.end(),
                        [byte](const Reference& reference) { return reference.byte == byte; })
        ->name;
}

} // namespace

std::string EscapeMarkup(std::string_view text, bool attribute) {
    const std::string_view special = attribute ? kInAttribute : kInContent;
    std::string result;
    result.reserve(text.size() + text.size() / 10);
    for (const char byte : text) {
        if (special.find(byte) == std::string_view::npos) {
            result += byte;
        } else {
            result.append("&").append(NameOf(byte));
        }
    }
    return result;
}

std::string UnescapeMarkup(const MarkupSpan& text, std::ptrdiff_t from, std::ptrdiff_t to) {
    std::ptrdiff_t mark = text.Find('&', from, to);
    std::string result(text.Between(from, mark));
    while (mark < to) {
        const std::string_view behind = text.Between(mark + 1, to);
        std::size_t length = ReadNumber(behind, result);
        if (length == 0) length = ReadName(behind, result);
        if (length == 0) result += '&';
        from = mark + 1 + static_cast<std::ptrdiff_t>(length);
        mark = text.Find('&', from, to);
        result.append(text.Between(from, mark));
    }
    return result;
}

} // namespace brixen::lyr::gen
