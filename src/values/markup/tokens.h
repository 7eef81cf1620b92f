#pragma once

#include "values/markup/blocks.h"
#include "values/markup/node_kind.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// Tokens of markup, the one way in which the markup document reads anything. Private to it.
namespace brixen::lyr::gen {

inline constexpr std::string_view kCDataBegin = "<![CDATA[";
inline constexpr std::string_view kCDataEnd = "]]>";

// What a byte does to a token.
enum MarkupByteClass : std::uint8_t {
    kOrdinaryByte = 0,
    kBlankByte = 1,     // white space: skipped in front of a token, and ends one
    kDelimiterByte = 2, // ends a token, and is one by itself
    kQuoteByte = 4,     // begins a quoted token; means nothing inside another
    kNameEndByte = 8,   // ends a name that is looked for, so that paths and the like are names too
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
    // The first place of a byte in front of `to`, or `to`.
    std::ptrdiff_t Find(char wanted, std::ptrdiff_t from, std::ptrdiff_t to) const {
        return FindByte(bytes, from, to, end, wanted);
    }
    std::ptrdiff_t Find(char wanted, std::ptrdiff_t from) const { return Find(wanted, from, end); }
};

struct MarkupToken {
    std::ptrdiff_t begin = 0;
    std::ptrdiff_t end = 0; // both without the quotes
    bool quoted = false;

    // The first byte behind the token and its quote.
    std::ptrdiff_t Behind() const { return end + static_cast<std::ptrdiff_t>(quoted); }
};

class MarkupTokenReader {
public:
    MarkupTokenReader(const MarkupSpan& text, std::ptrdiff_t from) : fText(text), fAt(from) {}

    // False at the end of the text.
    bool Next(MarkupToken& token) {
        fAt = fText.SkipBlanks(fAt);
        if (fAt >= fText.end) return false;
        const char lead = fText[fAt];
        token.quoted = (ClassOf(lead) & kQuoteByte) != 0;
        token.begin = fAt + static_cast<std::ptrdiff_t>(token.quoted);
        token.end = token.quoted ? fText.Find(lead, token.begin) : EndOfPlain();
        fAt = token.end < fText.end ? token.Behind() : fText.end;
        return true;
    }
    // Where the next token is looked for.
    std::ptrdiff_t At() const { return fAt; }
    std::string_view TextOf(const MarkupToken& token) const { return fText.Between(token.begin, token.end); }
    // Whether it is this one delimiter.
    bool Is(const MarkupToken& token, char delimiter) const {
        return !token.quoted && fText[token.begin] == delimiter;
    }

private:
    std::ptrdiff_t EndOfPlain() const {
        std::ptrdiff_t at = fAt + 1;
        if ((ClassOf(fText[fAt]) & kDelimiterByte) != 0) return at;
        while (at < fText.end && !EndsToken(fText[at])) ++at;
        return at;
    }

    MarkupSpan fText;
    std::ptrdiff_t fAt;
};

// Whether a token bears a name. The name may go on as a path or as an attribute does, so that the same test
// serves the head of a path.
bool NameMatches(std::string_view token, std::string_view name);

// The name of the element whose `<` stands at `left`; empty only where nothing follows.
std::string_view TagNameAt(const MarkupSpan& text, std::ptrdiff_t left);

// Whether a text can stand as the name of an element or of an attribute: one plain token.
bool IsPlainName(std::string_view name);

// One node and where it ends.
struct ScannedNode {
    int kind; // MarkupNodeKind; 0 when there is none, or none that is whole
    std::ptrdiff_t end;
};

// The node that begins at `at`. An element is only recognized, its end is `at`.
ScannedNode ScanNode(const MarkupSpan& text, std::ptrdiff_t at);

} // namespace brixen::lyr::gen
