#include "values/markup_attributes.h"

namespace brixen::lyr::gen {
namespace {

enum class Part { Name, Quoted, Other, End };

// Tells the tokens of a tag apart.
class TagReader {
public:
    TagReader(const MarkupSpan& text, std::ptrdiff_t tagName) : fReader(text, tagName) {}

    Part Next(MarkupToken& token) {
        if (!fReader.Next(token)) return Part::End;
        const bool past = fCount++ > 0;
        if (token.quoted) {
            fWaiting = false;
            return Part::Quoted;
        }
        if (fReader.Is(token, '>') || fReader.Is(token, '/') || fReader.Is(token, '?')) return Part::End;
        const bool sign = past && fReader.Is(token, '=');
        const bool name = past && !sign && !fWaiting;
        fWaiting = sign;
        return name ? Part::Name : Part::Other;
    }
    // How many tokens were read.
    int Count() const { return fCount; }
    std::string_view TextOf(const MarkupToken& token) const { return fReader.TextOf(token); }

private:
    MarkupTokenReader fReader;
    int fCount = 0;
    bool fWaiting = false; // for the value, behind `=`
};

// Whether a name is one token, and matches nothing but itself.
bool IsWholeName(std::string_view name) { return HasNone(name, kNameEndByte | kBlankByte | kDelimiterByte); }

// Whether `name` ends at `end`, begins a token behind `from`, and nothing in front of it stops the search or
// waits for a value.
bool StandsBefore(const MarkupSpan& text, std::ptrdiff_t from, std::ptrdiff_t end, std::string_view name) {
    const std::ptrdiff_t begin = end - std::ssize(name);
    return begin > from && text.Between(begin, end) == name && IsBlank(text[begin - 1]) &&
           HasNone(text.Between(from, begin), kDelimiterByte);
}

// The quick road for tags in which `name="value"` is the only use of a quote. True when `value` is the
// answer; other tags take the road of tokens.
bool FindInPlainTag(const MarkupSpan& text, std::ptrdiff_t from, std::ptrdiff_t tagEnd, std::string_view name,
                    std::optional<MarkupToken>& value) {
    // With a blank in front, the first token would look like an attribute.
    if (!IsWholeName(name) || ClassOf(text[from]) != kOrdinaryByte) return false;
    for (;;) {
        const std::ptrdiff_t quote = FindQuoteOrEnd(text.bytes, from, tagEnd, text.end);
        if (quote == tagEnd || (ClassOf(text[quote]) & kQuoteByte) == 0) return true;
        if (quote - from < 2 || text[quote - 1] != '=' || ClassOf(text[quote - 2]) != kOrdinaryByte)
            return false;
        const std::ptrdiff_t valueEnd = text.Find(text[quote], quote + 1, tagEnd);
        if (valueEnd == tagEnd) return false;
        if (!name.empty() && text[quote - 2] == name.back()) {
            if (StandsBefore(text, from, quote - 1, name)) {
                value = MarkupToken{quote + 1, valueEnd, true};
                return true;
            }
            return false;
        }
        from = valueEnd + 1;
    }
}

} // namespace

FoundAttribute FindAttribute(const MarkupSpan& text, std::ptrdiff_t tagName, std::string_view name) {
    constexpr int kNever = -2;
    TagReader reader(text, tagName);
    FoundAttribute found;
    found.stop = text.end;
    int valueCount = kNever;
    MarkupToken token;
    for (Part part = reader.Next(token); part != Part::End; part = reader.Next(token)) {
        if (part == Part::Name && NameMatches(reader.TextOf(token), name)) {
            found.nameBegin = token.begin;
            valueCount = reader.Count() + 2;
        } else if (part == Part::Quoted && reader.Count() == valueCount) {
            found.value = token;
            found.exists = true;
            return found;
        }
        found.lastEnd = token.Behind();
    }
    if (token.begin < text.end && found.lastEnd <= token.begin) found.stop = token.begin;
    return found;
}

std::optional<MarkupToken> FindAttributeValue(const MarkupSpan& text, std::ptrdiff_t tagName,
                                              std::ptrdiff_t tagEnd, std::string_view name) {
    std::optional<MarkupToken> value;
    if (FindInPlainTag(text, tagName, tagEnd, name, value)) return value;
    const FoundAttribute found = FindAttribute(text, tagName, name);
    if (found.exists) value = found.value;
    return value;
}

std::string_view AttributeNameAt(const MarkupSpan& text, std::ptrdiff_t tagName, int index) {
    TagReader reader(text, tagName);
    MarkupToken token;
    for (Part part = reader.Next(token); part != Part::End; part = reader.Next(token)) {
        if (part == Part::Name && index-- == 0) return reader.TextOf(token);
    }
    return {};
}

} // namespace brixen::lyr::gen
