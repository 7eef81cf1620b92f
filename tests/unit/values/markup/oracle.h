// The parser's rules word for word: recursive, slow, for small texts. What the document makes of a text is
// compared with it.
#pragma once

#include "unit/values/markup/support.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::lyr::gen::markup_test {

struct OracleToken {
    std::size_t left = 0;  // of its bytes, without quotes
    std::size_t right = 0; // after its last byte
    bool isQuoted = false;
};

// Reads tokens and nodes of a text from any place on.
class OracleReader {
public:
    OracleReader(std::string_view text, std::size_t place) : text(text), place(place) {}

    // False at the end of the text.
    bool ReadToken(OracleToken& token);
    // The kind of the node at the place, which moves after it; 0 for none.
    int ReadNode();
    std::size_t Place() const { return place; }
    std::string_view Bytes(const OracleToken& token) const {
        return text.substr(token.left, token.right - token.left);
    }

private:
    int ReadFenced(std::string_view fence, int kind);
    int ReadDocumentType();
    int ReadText();

    std::string_view text;
    std::size_t place;
};

// Whether a token is this name, or the first step of this path.
bool OracleIsName(std::string_view token, std::string_view name);

// The value of an attribute of the tag whose name is read at `place`, as it is written.
std::optional<std::string> OracleAttribute(std::string_view text, std::size_t place, std::string_view name);

class OracleParser {
public:
    // `capacity` is what the table had room for before.
    OracleParser(std::string_view text, std::int32_t capacity) : text(text), capacity(capacity) {}

    bool Parse();

    std::string errorText;
    std::vector<Entry> table; // the entries in use; 0 is the root's
    std::int32_t Capacity() const { return capacity; }

private:
    std::int32_t ParseElement(std::int32_t parent);
    bool FindStartTag(std::int32_t index, std::int32_t parent, OracleToken& name, bool& isEndTag);
    bool ParseChildren(std::int32_t index, const std::string& name);
    bool ParseEndTag(std::int32_t index, const std::string& name);
    std::int32_t Fail(std::string message);
    bool Refuse(std::string message);
    void Grow(std::int32_t request);
    Entry& At(std::int32_t index) { return table[static_cast<std::size_t>(index)]; }

    std::string_view text;
    std::int32_t capacity;
};

} // namespace brixen::lyr::gen::markup_test
