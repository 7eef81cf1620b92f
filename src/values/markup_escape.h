#pragma once

#include "values/markup_tokens.h"

#include <string>
#include <string_view>

// The references of markup. Private to the markup document, which hands them on.
namespace brixen::lyr::gen {

std::string EscapeMarkup(std::string_view text, bool attribute);
// The text of an element's content, in `escaped` if it had to be changed at all.
std::string_view EscapedOrSame(std::string_view content, std::string& escaped);
// The text without its references, in `room` if it has any at all. Never fails: what is no reference stays as
// it stands.
std::string_view UnescapedOrSame(const MarkupSpan& text, std::ptrdiff_t from, std::ptrdiff_t to,
                                 std::string& room);

} // namespace brixen::lyr::gen
