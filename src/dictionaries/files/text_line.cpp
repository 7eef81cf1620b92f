#include "dictionaries/files/text_line.h"

namespace kestrel_private {
namespace {

std::u16string_view QuotedPart(std::u16string_view line) {
    const auto findQuote = [&](std::size_t from) {
        std::size_t quote = line.find(u'"', from);
        while (quote != line.npos && quote > 0 && line[quote - 1] == u'\\')
            quote = line.find(u'"', quote + 1);
        return quote;
    };
    const std::size_t opening = findQuote(0);
    if (opening == line.npos) return line;
    const std::size_t closing = findQuote(opening + 1);
    return closing == line.npos ? line.substr(opening + 1) : line.substr(opening + 1, closing - opening - 1);
}

} // namespace

std::optional<KeyText<char16_t>> SplitLine(std::u16string_view line) {
    return SplitKeyText(QuotedPart(line));
}

} // namespace kestrel_private
