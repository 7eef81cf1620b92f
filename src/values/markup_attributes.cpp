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

std::string_view AttributeNameAt(const MarkupSpan& text, std::ptrdiff_t tagName, int index) {
    TagReader reader(text, tagName);
    MarkupToken token;
    for (Part part = reader.Next(token); part != Part::End; part = reader.Next(token)) {
        if (part == Part::Name && index-- == 0) return reader.TextOf(token);
    }
    return {};
}

} // namespace brixen::lyr::gen
