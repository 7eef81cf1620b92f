// The kinds of node in markup: how each is recognized, and the fences around its content.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// Kinds of node, as bits, so that a search can ask for several at once.
enum MarkupNodeKind : int {
    kMarkupNone = 0,
    kMarkupElement = 1,
    kMarkupText = 2,                   // with something other than white space
    kMarkupWhiteSpace = 4,             // blanks, tabs, CR and LF only
    kMarkupCData = 8,                  // "<![CDATA[" to "]]>"; any "<![" counts
    kMarkupProcessingInstruction = 16, // "<?" to "?>"
    kMarkupComment = 32,               // "<!--" to "-->"; any "<!-" counts
    kMarkupDocumentType = 64,          // "<!" and anything else, to the ">" outside of brackets
};

inline constexpr std::string_view kCDataBegin = "<![CDATA[";
inline constexpr std::string_view kCDataEnd = "]]>";

// One node and the place after its last byte.
struct ScannedNode {
    int kind; // MarkupNodeKind
    std::ptrdiff_t end;

    // Whether it is a whole node that is no element.
    bool IsWhole() const { return kind != kMarkupNone && kind != kMarkupElement; }
};

// The node that begins at `at`: kMarkupNone when there is none, or none that ends within `text`. An element
// is only recognized; its end is `at`.
[[nodiscard]] ScannedNode ScanNode(std::string_view text, std::ptrdiff_t at);
// Whether a text is a run of whole nodes that are no elements. An empty text is.
[[nodiscard]] bool HoldsNodesOnly(std::string_view text);

// The markup of a node with this content, which goes between the fences as it is; text is escaped. Nothing
// for a kind that has no such markup.
[[nodiscard]] std::string NodeMarkup(int kind, std::string_view content);
// The content of a node, without its fences. Nothing when the fences overlap. Text is still escaped.
[[nodiscard]] std::string_view NodeContent(int kind, std::string_view node);

} // namespace brixen::lyr::gen
