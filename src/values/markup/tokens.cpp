#include "values/markup/tokens.h"

namespace brixen::lyr::gen {
bool NameMatches(std::string_view token, std::string_view name) {
    if (!name.starts_with(token)) return false;
    return token.size() == name.size() || (ClassOf(name[token.size()]) & kNameEndByte) != 0;
}

std::string_view TagNameAt(const MarkupSpan& text, std::ptrdiff_t left) {
    MarkupTokenReader reader(text, left + 1);
    MarkupToken token;
    return reader.Next(token) ? reader.TextOf(token) : std::string_view();
}

bool IsPlainName(std::string_view name) {
    if (name.empty() || (ClassOf(name.front()) & kQuoteByte) != 0) return false;
    return HasNone(name, kBlankByte | kDelimiterByte);
}

} // namespace brixen::lyr::gen
