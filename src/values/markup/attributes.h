// The attributes of one tag of markup. Private to the markup document.
#pragma once

#include "values/markup/tokens.h"

#include <bit>

namespace brixen::lyr::gen {

struct FoundAttribute {
    bool exists = false;
    std::ptrdiff_t nameBegin = 0;
    MarkupToken value;
    // For an attribute that does not exist: the end of the last token of the tag (0 when it has none), and
    // the place of the tag's own end, which is the end of the text in a tag without one.
    std::ptrdiff_t lastEnd = 0;
    std::ptrdiff_t stop = 0;
};

// Searches for an attribute from the tag's name on. Only quoted values count; a quote may hide the tag's `>`.
FoundAttribute FindAttribute(const MarkupSpan& text, std::ptrdiff_t tagName, std::string_view name);

// The place of an attribute's value, without its quotes. It never begins at 0.
struct AttributeValue {
    std::ptrdiff_t begin = 0;
    std::ptrdiff_t end = 0;

    bool Exists() const { return begin != 0; }
};

// Whether a tag ends before any attribute could have a value, as far as sixteen bytes show.
inline bool HasNoValues(const MarkupSpan& text, std::ptrdiff_t tagName) {
    if (text.end - tagName < kNameBlock) return false;
    const std::uint32_t marks = markup_blocks::QuotesAndEnds(text.bytes + tagName);
    return marks != 0 && (ClassOf(text[tagName + std::countr_zero(marks)]) & kQuoteByte) == 0;
}

// The value of an attribute alone. `tagEnd` is the place of the tag's first `>`, or of its `?`.
AttributeValue FindAttributeValue(MarkupSpan text, std::ptrdiff_t tagName, std::ptrdiff_t tagEnd,
                                  std::string_view name);

// The name of the attribute with this index, from 0; empty when there are fewer.
std::string_view AttributeNameAt(const MarkupSpan& text, std::ptrdiff_t tagName, int index);

} // namespace brixen::lyr::gen
