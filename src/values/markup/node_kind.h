#pragma once

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

} // namespace brixen::lyr::gen
