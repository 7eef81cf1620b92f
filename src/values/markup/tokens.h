// Tokens of markup: all reading of the markup document goes through them. Private to it.
#pragma once

#include "values/markup/blocks.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::lyr::gen {

// The effect of a byte on a token.
enum MarkupByteClass : std::uint8_t {
    kOrdinaryByte = 0,
    kBlankByte = 1,     // white space: skipped before a token, and ends one
    kDelimiterByte = 2, // ends a token, and is one by itself
    kQuoteByte = 4,     // begins a quoted token; has no meaning within another token
    kNameEndByte = 8,   // ends a name that is searched for, so that the head of a path is a name too
};

inline constexpr auto kMarkupByteClasses = [] {
    std::array<std::uint8_t, 256> classes{};
    const auto mark = [&classes](std::string_view bytes, std::uint8_t byteClass) {
        for (const char byte : bytes) classes[static_cast<unsigned char>(byte)] |= byteClass;
    };
    mark(" \t\n\r", kBlankByte);
    mark("<>=\\/?!", kDelimiterByte);
    mark("\"'", kQuoteByte);
    mark(std::string_view(" =/[\0", 5), kNameEndByte);
    return classes;
}();

inline std::uint8_t ClassOf(char byte) { return kMarkupByteClasses[static_cast<unsigned char>(byte)]; }
inline bool IsBlank(char byte) { return (ClassOf(byte) & kBlankByte) != 0; }
inline bool EndsToken(char byte) { return (ClassOf(byte) & (kBlankByte | kDelimiterByte)) != 0; }

// Whether none of the bytes is of one of the classes.
inline bool HasNone(std::string_view text, unsigned unwanted) {
    unsigned classes = kOrdinaryByte;
    for (const char byte : text) classes |= ClassOf(byte);
    return (classes & unwanted) == 0;
}

// A text and its length, with positions that are signed and wide enough never to overflow.
struct MarkupSpan {
    const char* bytes;
    std::ptrdiff_t end;

    explicit MarkupSpan(std::string_view text) : bytes(text.data()), end(std::ssize(text)) {}
    char operator[](std::ptrdiff_t at) const { return bytes[at]; }
    std::string_view Between(std::ptrdiff_t from, std::ptrdiff_t to) const {
        return {bytes + from, static_cast<std::size_t>(to - from)};
    }
    std::string_view From(std::ptrdiff_t from) const { return Between(from, end); }
    // The first place that does not hold white space, or the end.
    std::ptrdiff_t SkipBlanks(std::ptrdiff_t from) const {
        while (from < end && IsBlank(bytes[from])) ++from;
        return from;
    }
    // The first place of a byte before `to`, or `to`.
    std::ptrdiff_t Find(char wanted, std::ptrdiff_t from, std::ptrdiff_t to) const {
        return FindByte(bytes, from, to, end, wanted);
    }
    std::ptrdiff_t Find(char wanted, std::ptrdiff_t from) const { return Find(wanted, from, end); }
};

struct MarkupToken {
    std::ptrdiff_t begin = 0;
    std::ptrdiff_t end = 0; // both without the quotes
    bool quoted = false;

    // The first byte after the token and its quote.
    std::ptrdiff_t After() const { return end + static_cast<std::ptrdiff_t>(quoted); }
};

// Reads one token after the other. A quoted token runs to the matching quote; one that is not closed runs to
// the end of the text.
class MarkupTokenReader {
public:
    MarkupTokenReader(const MarkupSpan& text, std::ptrdiff_t from) : text(text), at(from) {}

    // False at the end of the text.
    bool Next(MarkupToken& token) {
        at = text.SkipBlanks(at);
        if (at >= text.end) return false;
        const char lead = text[at];
        token.quoted = (ClassOf(lead) & kQuoteByte) != 0;
        token.begin = at + static_cast<std::ptrdiff_t>(token.quoted);
        token.end = token.quoted ? text.Find(lead, token.begin) : EndOfPlain();
        at = token.end < text.end ? token.After() : text.end;
        return true;
    }
    // The place from which the next token is read.
    std::ptrdiff_t At() const { return at; }
    std::string_view TextOf(const MarkupToken& token) const { return text.Between(token.begin, token.end); }
    // Whether it is this one delimiter.
    bool Is(const MarkupToken& token, char delimiter) const {
        return !token.quoted && text[token.begin] == delimiter;
    }

private:
    std::ptrdiff_t EndOfPlain() const {
        std::ptrdiff_t end = at + 1;
        if ((ClassOf(text[at]) & kDelimiterByte) != 0) return end;
        while (end < text.end && !EndsToken(text[end])) ++end;
        return end;
    }

    MarkupSpan text;
    std::ptrdiff_t at;
};

// Whether a token is this name, or the first step of this path. In `name` a blank, `=`, `/`, `[` or NUL ends
// the name.
bool NameMatches(std::string_view token, std::string_view name);

// The name of the element whose `<` is at `left`; empty only where nothing follows.
std::string_view TagNameAt(const MarkupSpan& text, std::ptrdiff_t left);

// Whether a text can be the name of an element or of an attribute: one plain token.
bool IsPlainName(std::string_view name);

} // namespace brixen::lyr::gen
