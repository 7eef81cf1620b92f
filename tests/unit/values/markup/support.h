// What the tests of the markup document share: a document's state as a value, and the trees of two compared.
#pragma once

#include "support/markup_tree.h"
#include "values/markup/document.h"

#include <array>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::lyr::gen::markup_test {

// All of a document that an operation may change, but messages and memory.
struct State {
    std::string document;
    std::array<std::int32_t, 6> cursor; // parent, element, child, kind, offset, length
    std::vector<Entry> table;           // the entries in use, the root's first child in place of its entry

    bool operator==(const State&) const = default;
};
State StateOf(const CMarkupSTL& document);
void PrintTo(const State& state, std::ostream* out);

CMarkupSTL Parsed(std::string_view text);
// `text` parsed, with the cursor on what `path` finds from before the root.
CMarkupSTL At(std::string_view text, const char* path);

// The document written as one tag name after the other, children in parentheses: "a(b c(d))".
std::string Outline(const CMarkupSTL& document);

// For documents whose names are all different. The root's children stand under the empty name, and its index
// is 0.
using Tree = std::map<std::string, std::vector<std::string>>;
Tree TreeOf(const CMarkupSTL& document);
std::map<std::string, std::int32_t> IndexesOf(const CMarkupSTL& document);
std::string NameOfElement(const CMarkupSTL& document, std::int32_t index);

} // namespace brixen::lyr::gen::markup_test
