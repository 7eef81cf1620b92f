// The references of markup: writing and replacing them. Private to the markup document.
#pragma once

#include "values/markup/tokens.h"

#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// A text with references in place of the bytes that markup cannot hold: `<`, `&` and `>`, and in an
// attribute's value also both quotes. The text is borrowed.
class EscapedMarkup {
public:
    EscapedMarkup(std::string_view text, bool attribute);

    std::size_t Length() const { return length; }
    // Writes `Length` bytes.
    void CopyTo(char* out) const;

private:
    std::string_view text;
    bool attribute;
    std::size_t length;
};

std::string EscapeMarkup(std::string_view text, bool attribute);
// The text without its references, in `room`; `mark` is the place of the first `&`. Never fails: anything
// that is no reference stays as it is.
std::string_view Unescaped(MarkupSpan text, std::ptrdiff_t from, std::ptrdiff_t mark, std::ptrdiff_t to,
                           std::string& room);
// The same from the first `&` on, or a view of the text itself when it has none.
inline std::string_view UnescapedOrSame(MarkupSpan text, std::ptrdiff_t from, std::ptrdiff_t to,
                                        std::string& room) {
    const std::ptrdiff_t mark = text.Find('&', from, to);
    return mark == to ? text.Between(from, to) : Unescaped(text, from, mark, to, room);
}

} // namespace brixen::lyr::gen
