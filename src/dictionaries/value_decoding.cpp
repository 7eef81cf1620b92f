#include "dictionaries/value_decoding.h"

#include "dictionaries/dictionaries_state.h"
#include "dictionaries/entity_table.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace kestrel_private {
namespace {

using namespace std::string_view_literals;

struct Escape {
    char16_t after;
    char16_t unit;
};

// The last row is in force only when the state says so.
constexpr std::array kCaretEscapes = {Escape{u'Q', 0x0022}, Escape{u'[', 0x201C}, Escape{u']', 0x201D},
                                      Escape{u'{', 0x2018}, Escape{u'}', 0x2019}, Escape{u'C', 0x00A9},
                                      Escape{u'R', 0x00AE}, Escape{u'T', 0x2122}, Escape{u'D', 0x00B0},
                                      Escape{u'B', 0x2022}, Escape{u'#', 0x2318}, Escape{u'!', 0x00AC},
                                      Escape{u'I', 0x2206}, Escape{u'S', 0x2211}, Escape{u'n', u'\n'},
                                      Escape{u'r', u'\r'},  Escape{u'e', 0x00E9}};
constexpr std::array kBackslashEscapes = {Escape{u'"', 0x0022}, Escape{u'n', u'\n'}, Escape{u'r', u'\r'},
                                          Escape{u't', u'\t'}, Escape{u'b', u'\b'}};

std::span<const Escape> CaretEscapes() {
    DictionariesState& state = State();
    if (!state.escapesInForce) state.escapesInForce = state.accentedEscapes;
    const std::span<const Escape> all(kCaretEscapes);
    return *state.escapesInForce ? all : all.first(all.size() - 1);
}

constexpr bool IsLead(char16_t unit) { return unit == u'^' || unit == u'\\'; }

// Replaces a lead and the unit after it. Without a row both are kept, but a doubled lead becomes one.
void PutEscape(std::span<const Escape> rows, char16_t lead, char16_t after, std::u16string& output) {
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const Escape& e) { return e.after == after; });
    if (row != rows.end()) {
        output += row->unit;
        return;
    }
    output += lead;
    if (after != lead) output += after;
}

// The text of an entity `#{...}`, and how many units the entity has.
struct Replacement {
    char16_t unit;
    char16_t second;
    std::size_t length;
};

constexpr std::size_t kOpening = 2; // `#{`

std::optional<Replacement> MatchName(std::u16string_view form) {
    const std::u16string_view rest = form.substr(kOpening);
    for (const Entity& entity : kEntities) {
        const std::size_t length = entity.name.size();
        if (rest.starts_with(entity.name) && rest.size() > length && rest[length] == u'}') {
            return Replacement{entity.unit, entity.second, kOpening + length + 1};
        }
    }
    return std::nullopt;
}

int HexDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10;
    return -1;
}

std::optional<Replacement> MatchHex(std::u16string_view form, std::u16string_view prefix) {
    constexpr std::size_t kMostDigits = 4;
    if (!form.substr(kOpening).starts_with(prefix)) return std::nullopt;
    const std::u16string_view rest = form.substr(kOpening + prefix.size());
    std::uint32_t code = 0;
    std::size_t digits = 0;
    while (digits < rest.size() && digits < kMostDigits && HexDigit(rest[digits]) >= 0) {
        code = code * 16 + static_cast<std::uint32_t>(HexDigit(rest[digits++]));
    }
    if (digits == 0 || digits == rest.size() || rest[digits] != u'}') return std::nullopt;
    return Replacement{static_cast<char16_t>(code), 0, kOpening + prefix.size() + digits + 1};
}

std::optional<Replacement> MatchEntity(std::u16string_view form) {
    if (auto match = MatchName(form)) return match;
    for (const std::u16string_view prefix : {u"U+"sv, u"u"sv, u""sv}) {
        if (auto match = MatchHex(form, prefix)) return match;
    }
    return std::nullopt;
}

std::u16string DecodeEscapes(std::u16string_view text) {
    const std::span<const Escape> caretRows = CaretEscapes();
    std::u16string output;
    output.reserve(text.size());
    std::size_t i = 0;
    while (i < text.size()) {
        const char16_t lead = text[i++];
        if (!IsLead(lead) || i == text.size()) {
            output += lead;
        } else {
            PutEscape(lead == u'^' ? caretRows : std::span<const Escape>(kBackslashEscapes), lead, text[i++],
                      output);
        }
    }
    return output;
}

std::u16string DecodeEntities(std::u16string_view text) {
    std::u16string output;
    output.reserve(text.size());
    while (true) {
        const std::size_t form = text.find(u"#{"sv);
        output += text.substr(0, form);
        if (form == text.npos) return output;
        text.remove_prefix(form);
        const auto match = MatchEntity(text);
        if (match) {
            output += match->unit;
            if (match->second != 0) output += match->second;
        } else {
            output += text[0];
        }
        text.remove_prefix(match ? match->length : 1);
    }
}

} // namespace

std::u16string DecodeValue(std::u16string_view text) {
    std::u16string decoded = DecodeEscapes(text);
    return decoded.find(u"#{"sv) == decoded.npos ? decoded : DecodeEntities(decoded);
}

} // namespace kestrel_private
