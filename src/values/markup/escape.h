#pragma once

#include "values/markup/tokens.h"

#include <string>
#include <string_view>

// The references of markup. Private to the markup document, which hands them on.
namespace brixen::lyr::gen {

// A text that bears references in place of what markup cannot hold. The text is borrowed.
class EscapedMarkup {
public:
    EscapedMarkup(std::string_view text, bool attribute);

    std::size_t Length() const { return fLength; }
    // Writes `Length` bytes.
    void CopyTo(char* out) const;

private:
    std::string_view fText;
    bool fAttribute;
    std::size_t fLength;
};

std::string EscapeMarkup(std::string_view text, bool attribute);
// The text without its references, of which the first may stand at `mark`, in `room`. Never fails: what is no
// reference stays as it stands.
std::string_view Unescaped(MarkupSpan text, std::ptrdiff_t from, std::ptrdiff_t mark, std::ptrdiff_t to,
                           std::string& room);
// The same, as it lies there if it has no references at all.
inline std::string_view UnescapedOrSame(MarkupSpan text, std::ptrdiff_t from, std::ptrdiff_t to,
                                        std::string& room) {
    const std::ptrdiff_t mark = text.Find('&', from, to);
    return mark == to ? text.Between(from, to) : Unescaped(text, from, mark, to, room);
}

} // namespace brixen::lyr::gen
