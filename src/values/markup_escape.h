#pragma once

#include "values/markup_tokens.h"

#include <string>
#include <string_view>

// The references of markup. Private to the markup document, which hands them on.
namespace brixen::lyr::gen {

std::string EscapeMarkup(std::string_view text, bool attribute);
// Never fails: what is no reference stays as it stands.
std::string UnescapeMarkup(const MarkupSpan& text, std::ptrdiff_t from, std::ptrdiff_t to);

} // namespace brixen::lyr::gen
