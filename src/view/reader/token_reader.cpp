#include "view/reader/token_reader.h"

namespace brixen::zeve {

bool TokenReader::ReadIdentifier(Identifier& identifier) {
    if (!IsAtIdentifier()) {
        return Fail();
    }
    const char* begin = place.next;
    const char* end = begin;
    std::uint32_t hash = 0;
    for (std::uint8_t code; (code = ByteClass(*end)) < kIdentifierClassCount; ++end) {
        hash = hash * 63 + code;
    }
    Advance(end);
    identifier = {std::string_view(begin, static_cast<std::size_t>(end - begin)), hash};
    Done(ScopeProduction::kIdentifierToken, begin);
    return true;
}

bool TokenReader::ReadInteger(std::int64_t& value) {
    if (!IsAtDigit()) {
        return Fail();
    }
    const char* begin = place.next;
    const char* end = begin;
    std::uint32_t number = 0;
    for (; IsDigit(*end); ++end) {
        number = number * 10 + ByteClass(*end);
    }
    Advance(end);
    value = static_cast<std::int32_t>(number);
    Done(ScopeProduction::kIntegerToken, begin);
    return true;
}

bool TokenReader::ReadQuoted(std::string_view& text) {
    if (!NextIs('\'')) {
        return Fail();
    }
    const char* begin = place.next;
    const char* end = begin + 1;
    while (*end != '\'') {
        if (*end == 0) {
            return Fail();
        }
        ++end;
    }
    text = std::string_view(begin + 1, static_cast<std::size_t>(end - begin - 1));
    Advance(end + 1);
    Done(ScopeProduction::kQuotedToken, begin);
    return true;
}

} // namespace brixen::zeve
