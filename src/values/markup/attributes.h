#pragma once

#include "values/markup/tokens.h"

#include <bit>

// The attributes of one tag of markup. Private to the markup document.
namespace brixen::lyr::gen {

struct FoundAttribute {
    bool exists = false;
    std::ptrdiff_t nameBegin = 0;
    MarkupToken value;
    // When it does not exist: where the last token in front of the tag's end ends (0 when there is none), and
    // where that end is. The end of the text when the tag has none.
    std::ptrdiff_t lastEnd = 0;
    std::ptrdiff_t stop = 0;
};

// Looks for an attribute from the tag's name on. Only quoted values count; a quote may hide the tag's `>`.
FoundAttribute FindAttribute(const MarkupSpan& text, std::ptrdiff_t tagName, std::string_view name);

// The place of an attribute's value, without its quotes. It never begins at 0.
struct AttributeValue {
    std::ptrdiff_t begin = 0;
    std::ptrdiff_t end = 0;

    bool Exists() const { return begin != 0; }
};

// Whether a tag ends before any attribute could have a value, as far as sixteen bytes tell.
inline bool HasNoValues(const MarkupSpan& text, std::ptrdiff_t tagName) {
    if (text.end - tagName < kNameBlock) return false;
    const std::uint32_t marks = markup_blocks::QuotesAndEnds(text.bytes + tagName);
    return marks != 0 && (ClassOf(text[tagName + std::countr_zero(marks)]) & kQuoteByte) == 0;
}

// The value of an attribute alone. The tag's first `>` stands at `tagEnd`, or its `?`.
AttributeValue FindAttributeValue(MarkupSpan text, std::ptrdiff_t tagName, std::ptrdiff_t tagEnd,
                                  std::string_view name);

// The name of the attribute at a place from 0 on, empty when there are fewer.
std::string_view AttributeNameAt(const MarkupSpan& text, std::ptrdiff_t tagName, int index);

} // namespace brixen::lyr::gen
