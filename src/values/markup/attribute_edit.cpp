// Edits inside of one tag.
#include "values/markup/attributes.h"
#include "values/markup/document.h"
#include "values/markup/escape.h"
#include "values/markup/tokens.h"

namespace brixen::lyr::gen {

// Replaces bytes in the tag of `element`, or in the processing instruction at the cursor when it is 0.
bool CMarkupSTL::ReplaceInTag(std::int32_t element, std::ptrdiff_t from, std::ptrdiff_t to,
                              std::string_view text) {
    const auto delta = static_cast<std::int32_t>(std::ssize(text) - (to - from));
    if (element == 0) {
        if (!Replace({cursor.posParent, cursor.pos, from}, to - from, text)) return false;
        cursor.nodeLength += delta;
        return true;
    }
    if (!Replace({element, 0, from}, to - from, text)) return false;
    table[element].startTagRight += delta;
    return true;
}

bool CMarkupSTL::SetAttributeIn(const TagRange& tag, std::int32_t element, std::string_view name,
                                std::string_view value) {
    if (tag.begin == 0 || !IsPlainName(name)) return false;
    const std::string escaped = EscapeMarkup(value, true);
    const FoundAttribute found = FindAttribute(MarkupSpan(document), tag.begin, name);
    if (found.exists) {
        return found.value.end < tag.end &&
               ReplaceInTag(element, found.value.begin, found.value.end, escaped);
    }
    if (found.stop > tag.end || found.lastEnd == 0) return false;
    std::string added;
    added.reserve(name.size() + escaped.size() + 4);
    added.append(" ").append(name).append("=\"").append(escaped).append("\"");
    return ReplaceInTag(element, found.lastEnd, found.lastEnd, added);
}

bool CMarkupSTL::SetAttrib(MarkupText name, MarkupText value) {
    return SetAttributeIn(CurrentTag(), cursor.IsOnNode() ? 0 : cursor.pos, name, value);
}

bool CMarkupSTL::SetChildAttrib(MarkupText name, MarkupText value) {
    return SetAttributeIn(TagOf(cursor.posChild), cursor.posChild, name, value);
}

bool CMarkupSTL::RemoveAttrib(MarkupText name) {
    const TagRange tag = CurrentTag();
    if (tag.begin == 0) return false;
    const MarkupSpan text(document);
    const FoundAttribute found = FindAttribute(text, tag.begin, name);
    if (!found.exists || found.value.end >= tag.end) return false;
    std::ptrdiff_t from = found.nameBegin;
    const std::ptrdiff_t to = found.value.Behind();
    // What follows without a blank of its own would grow onto the token in front.
    if (EndsToken(text[to])) {
        while (IsBlank(text[from - 1])) --from;
    }
    return ReplaceInTag(cursor.IsOnNode() ? 0 : cursor.pos, from, to, {});
}

} // namespace brixen::lyr::gen
