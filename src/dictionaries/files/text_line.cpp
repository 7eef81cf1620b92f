#include "dictionaries/files/text_line.h"

namespace kestrel_private {

// Kept: the only test for escaping is the character before, so `\\"` is an escaped mark too.
std::size_t FindQuote(std::u16string_view line, std::size_t from) {
    std::size_t quote = line.find(u'"', from);
    while (quote != line.npos && quote > 0 && line[quote - 1] == u'\\') quote = line.find(u'"', quote + 1);
    return quote;
}

std::u16string_view TextOfLine(std::u16string_view line) {
    const std::size_t opening = FindQuote(line, 0);
    if (opening == line.npos) return line;
    const std::size_t closing = FindQuote(line, opening + 1);
    return closing == line.npos ? line.substr(opening + 1) : line.substr(opening + 1, closing - opening - 1);
}

std::optional<KeyText<char16_t>> SplitLine(std::u16string_view line) {
    return SplitKeyText(TextOfLine(line));
}

} // namespace kestrel_private
