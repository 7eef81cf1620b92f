#include "unit/values/markup/oracle.h"

#include <algorithm>

namespace brixen::lyr::gen::markup_test {
namespace {

constexpr std::string_view kWhiteSpace = " \t\n\r";
constexpr std::string_view kTokenEnds = " \t\n\r<>=\\/?!";

enum Field { kStartTagLeft, kStartTagRight, kEndTagLeft, kEndTagRight, kParent, kFirstChild, kNextSibling };

std::int32_t Number(std::size_t place) { return static_cast<std::int32_t>(place); }
std::size_t Place(std::int32_t number) { return static_cast<std::size_t>(number); }

} // namespace

bool OracleReader::ReadToken(OracleToken& token) {
    place = text.find_first_not_of(kWhiteSpace, place);
    if (place == text.npos) {
        place = text.size();
        return false;
    }
    const char first = text[place];
    token.isQuoted = first == '"' || first == '\'';
    token.left = token.isQuoted ? place + 1 : place;
    const std::size_t end =
        token.isQuoted ? text.find(first, token.left) : text.find_first_of(kTokenEnds, place + 1);
    const bool isAtDelimiter = !token.isQuoted && kTokenEnds.find(first) != kTokenEnds.npos;
    token.right = isAtDelimiter ? place + 1 : std::min(end, text.size());
    place = std::min(token.isQuoted ? token.right + 1 : token.right, text.size());
    return true;
}

int OracleReader::ReadText() {
    if (place >= text.size()) return 0;
    place = std::min(text.find_first_not_of(kWhiteSpace, place), text.size());
    if (place == text.size() || text[place] == '<') return kMarkupWhiteSpace;
    place = std::min(text.find('<', place), text.size());
    return kMarkupText;
}

int OracleReader::ReadFenced(std::string_view fence, int kind) {
    const std::size_t end = text.find(fence, place + 2);
    if (end == text.npos) return 0;
    place = end + fence.size();
    return kind;
}

int OracleReader::ReadDocumentType() {
    place += 2;
    int depth = 0;
    for (OracleToken token; ReadToken(token);) {
        if (token.isQuoted) continue;
        for (const char byte : Bytes(token)) {
            if (byte == '[') ++depth;
            if (byte == ']') --depth;
            if (byte == '>' && depth == 0) return kMarkupDocumentType;
        }
    }
    return 0;
}

int OracleReader::ReadNode() {
    if (place >= text.size() || text[place] != '<') return ReadText();
    if (text.size() - place < 3) return 0;
    const std::string_view start = text.substr(place, 3);
    if (start.starts_with("<?")) return ReadFenced("?>", kMarkupProcessingInstruction);
    if (start == "<![") return ReadFenced("]]>", kMarkupCData);
    if (start == "<!-") return ReadFenced("-->", kMarkupComment);
    if (start.starts_with("<!")) return ReadDocumentType();
    return start.starts_with("</") ? 0 : kMarkupElement;
}

bool OracleIsName(std::string_view token, std::string_view name) {
    if (!name.starts_with(token)) return false;
    return token.size() == name.size() || std::string_view(" =/[\0", 5).find(name[token.size()]) != name.npos;
}

std::optional<std::string> OracleAttribute(std::string_view text, std::size_t place, std::string_view name) {
    OracleReader reader(text, place);
    OracleToken token;
    int nameCount = 0;
    bool isWaiting = false;
    for (int count = 1; reader.ReadToken(token); ++count) {
        const std::string_view bytes = reader.Bytes(token);
        if (token.isQuoted) {
            if (nameCount != 0 && count == nameCount + 2) return std::string(bytes);
            isWaiting = false;
            continue;
        }
        if (bytes == ">" || bytes == "/" || bytes == "?") return std::nullopt;
        const bool isSign = count > 1 && bytes == "=";
        if (count > 1 && !isSign && !isWaiting && OracleIsName(bytes, name)) nameCount = count;
        isWaiting = isSign;
    }
    return std::nullopt;
}

void OracleParser::Grow(std::int32_t request) {
    const auto posFree = static_cast<std::int32_t>(table.size());
    if (request == 0) request = std::max(posFree + posFree / 2, posFree + 1);
    if (capacity >= request) return;
    const std::int32_t segments = (capacity + 65535) / 65536;
    capacity = std::min(request, (segments + 1) * 65536);
}

bool OracleParser::Parse() {
    table.assign(1, Entry{});
    Grow(Number(text.size() / 64 + 8));
    if (text.empty()) return false;
    const std::int32_t root = ParseElement(0);
    if (root <= 0) {
        table.assign(1, Entry{});
        return false;
    }
    At(0)[kFirstChild] = root;
    return true;
}

std::int32_t OracleParser::Fail(std::string message) {
    errorText = std::move(message);
    table.pop_back();
    return -1;
}

bool OracleParser::Refuse(std::string message) {
    errorText = std::move(message);
    return false;
}

std::int32_t OracleParser::ParseElement(std::int32_t parent) {
    if (static_cast<std::int32_t>(table.size()) == capacity) Grow(0);
    const auto index = static_cast<std::int32_t>(table.size());
    table.push_back({At(parent)[kEndTagLeft], 0, 0, 0, parent, 0, 0});
    OracleToken token;
    bool isEndTag = false;
    if (!FindStartTag(index, parent, token, isEndTag)) return Fail(errorText);
    if (isEndTag) {
        table.pop_back();
        return 0;
    }
    const std::string name(text.substr(token.left, token.right - token.left));
    const std::size_t close = text.find('>', token.right);
    if (close == text.npos) return Fail("End of tag not found");
    At(index)[kStartTagRight] = Number(close);
    if (text[close - 1] == '/') {
        At(index)[kEndTagLeft] = Number(close) - 1;
        At(index)[kEndTagRight] = Number(close);
        return index;
    }
    At(index)[kEndTagLeft] = Number(close) + 1;
    return ParseChildren(index, name) && ParseEndTag(index, name) ? index : Fail(errorText);
}

bool OracleParser::FindStartTag(std::int32_t index, std::int32_t parent, OracleToken& name, bool& isEndTag) {
    std::size_t from = Place(At(index)[kStartTagLeft]);
    for (;;) {
        const std::size_t open = text.find('<', from);
        // At the end of the text it is the element around that misses its end.
        if (open == text.npos) return Refuse(parent == 0 ? "Element tag not found" : "");
        At(index)[kStartTagLeft] = At(parent)[kEndTagLeft] = Number(open);
        OracleReader reader(text, open + 1);
        if (!reader.ReadToken(name)) return Refuse("Abrupt end within tag");
        if (name.isQuoted) return Refuse("Tag starts with quote");
        const char first = text[name.left];
        isEndTag = first == '/';
        if (first != '?' && first != '!') return true;
        OracleReader node(text, open);
        if (node.ReadNode() < kMarkupCData) return Refuse("Invalid node");
        from = node.Place();
    }
}

bool OracleParser::ParseChildren(std::int32_t index, const std::string& name) {
    std::int32_t last = 0;
    for (;;) {
        const std::int32_t child = ParseElement(index);
        if (child == 0) return true;
        if (child < 0) {
            if (errorText.empty()) errorText = "End tag of " + name + " element not found";
            return false;
        }
        (last == 0 ? At(index)[kFirstChild] : At(last)[kNextSibling]) = child;
        At(index)[kEndTagLeft] = At(child)[kEndTagRight] + 1;
        last = child;
    }
}

bool OracleParser::ParseEndTag(std::int32_t index, const std::string& name) {
    const std::size_t open = text.find('<', Place(At(index)[kEndTagLeft]));
    if (open == text.npos) return Refuse("End tag of " + name + " element not found");
    At(index)[kEndTagLeft] = Number(open);
    OracleReader reader(text, open + 1);
    OracleToken token;
    for (int count = 0; reader.ReadToken(token); ++count) {
        const std::string_view bytes = reader.Bytes(token);
        if (count == 0 && !bytes.starts_with("/")) return Refuse("Expecting end tag of element " + name);
        if (count == 1 && !OracleIsName(bytes, name)) return Refuse("End tag does not correspond to " + name);
        if (count > 1 && !token.isQuoted && bytes == ">") {
            At(index)[kEndTagRight] = Number(token.left);
            return true;
        }
    }
    return Refuse("End tag not completed for element " + name);
}

} // namespace brixen::lyr::gen::markup_test
