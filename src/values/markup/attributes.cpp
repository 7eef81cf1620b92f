#include "values/markup/attributes.h"

namespace brixen::lyr::gen {
namespace {

enum class Part { kName, kQuoted, kOther, kEnd };

// Reads the tokens of a tag with the part that each plays there.
class TagReader {
public:
    TagReader(const MarkupSpan& text, std::ptrdiff_t tagName) : reader(text, tagName) {}

    Part Next(MarkupToken& token) {
        if (!reader.Next(token)) return Part::kEnd;
        const bool past = count++ > 0;
        if (token.quoted) {
            waiting = false;
            return Part::kQuoted;
        }
        if (reader.Is(token, '>') || reader.Is(token, '/') || reader.Is(token, '?')) return Part::kEnd;
        const bool sign = past && reader.Is(token, '=');
        const bool name = past && !sign && !waiting;
        waiting = sign;
        return name ? Part::kName : Part::kOther;
    }
    // The number of tokens that were read.
    int Count() const { return count; }
    std::string_view TextOf(const MarkupToken& token) const { return reader.TextOf(token); }

private:
    MarkupTokenReader reader;
    int count = 0;
    bool waiting = false; // for the value, after `=`
};

// Whether a name is one token, and matches nothing but itself.
bool IsWholeName(std::string_view name) { return HasNone(name, kNameEndByte | kBlankByte | kDelimiterByte); }

// Whether a name at `begin` is a token after `from`, and nothing before it stops the search or waits for a
// value.
bool IsPlainAttribute(const MarkupSpan& text, std::ptrdiff_t from, std::ptrdiff_t begin) {
    return begin > from && IsBlank(text[begin - 1]) && HasNone(text.Between(from, begin), kDelimiterByte);
}

// The fast path for tags in which `name="value"` is the only use of a quote. True when `value` is the answer;
// other tags are read by tokens.
bool FindInPlainTag(const MarkupSpan& text, std::ptrdiff_t from, std::ptrdiff_t tagEnd, std::string_view name,
                    AttributeValue& value) {
    // With a blank before it, the first token would look like an attribute.
    if (text.end - tagEnd < kNameBlock || ClassOf(text[from]) != kOrdinaryByte) return false;
    if (name.empty() || !IsWholeName(name)) return false;
    TagMarks marks(text.bytes, from);
    for (;;) {
        const std::ptrdiff_t quote = marks.Next();
        if ((ClassOf(text[quote]) & kQuoteByte) == 0) return true;
        const std::ptrdiff_t nameEnd = quote - 1;
        if (nameEnd <= from || text[nameEnd] != '=') return false;
        if (ClassOf(text[nameEnd - 1]) != kOrdinaryByte) return false;
        std::ptrdiff_t valueEnd = marks.Next();
        while (valueEnd < tagEnd && text[valueEnd] != text[quote]) valueEnd = marks.Next();
        if (valueEnd >= tagEnd) return false;
        const std::ptrdiff_t nameBegin = nameEnd - std::ssize(name);
        // The last byte first: comparing the others takes a call.
        if (text[nameEnd - 1] == name.back() && nameBegin >= from &&
            text.Between(nameBegin, nameEnd) == name) {
            value = {quote + 1, valueEnd};
            return IsPlainAttribute(text, from, nameBegin);
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
    for (Part part = reader.Next(token); part != Part::kEnd; part = reader.Next(token)) {
        if (part == Part::kName && NameMatches(reader.TextOf(token), name)) {
            found.nameBegin = token.begin;
            valueCount = reader.Count() + 2;
        } else if (part == Part::kQuoted && reader.Count() == valueCount) {
            found.value = token;
            found.exists = true;
            return found;
        }
        found.lastEnd = token.After();
    }
    if (token.begin < text.end && found.lastEnd <= token.begin) found.stop = token.begin;
    return found;
}

AttributeValue FindAttributeValue(MarkupSpan text, std::ptrdiff_t tagName, std::ptrdiff_t tagEnd,
                                  std::string_view name) {
    AttributeValue value;
    if (FindInPlainTag(text, tagName, tagEnd, name, value)) return value;
    const FoundAttribute found = FindAttribute(text, tagName, name);
    return found.exists ? AttributeValue{found.value.begin, found.value.end} : AttributeValue{};
}

std::string_view AttributeNameAt(const MarkupSpan& text, std::ptrdiff_t tagName, int index) {
    TagReader reader(text, tagName);
    MarkupToken token;
    for (Part part = reader.Next(token); part != Part::kEnd; part = reader.Next(token)) {
        if (part == Part::kName && index-- == 0) return reader.TextOf(token);
    }
    return {};
}

} // namespace brixen::lyr::gen
