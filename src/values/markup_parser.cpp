#include "values/markup_parser.h"

#include "values/markup_blocks.h"
#include "values/markup_tokens.h"

#include <cstddef>

namespace brixen::lyr::gen {
namespace {

constexpr std::int32_t kEndTagFirst = 0;
constexpr std::int32_t kFailed = -1;

enum class Step { GoOn, Done, EndTagFirst, Failed };

// The elements that are being parsed. Copied rather than shared, so that the loop keeps it in registers.
struct Nest {
    ElemPos* open;      // the innermost element that is open; its ancestors are found by their parents
    std::int32_t* link; // takes the index of the next element
    ElemPos* next;      // the next element's entry
    ElemPos* end;       // of the entries that can be filled without asking the table
    std::int32_t openIndex;
    std::int32_t nextIndex;

    void Enter(std::ptrdiff_t left, std::ptrdiff_t right, bool isShort) {
        *link = nextIndex;
        next->startTagLeft = static_cast<std::int32_t>(left);
        next->startTagRight = static_cast<std::int32_t>(right);
        next->endTagLeft = static_cast<std::int32_t>(right) + (isShort ? -1 : 1);
        next->endTagRight = static_cast<std::int32_t>(right);
        next->parent = openIndex;
        next->firstChild = 0;
        next->nextSibling = 0;
        link = isShort ? &next->nextSibling : &next->firstChild;
        if (!isShort) {
            open = next;
            openIndex = nextIndex;
        }
        ++next;
        ++nextIndex;
    }
    void Leave(std::ptrdiff_t left, std::ptrdiff_t right, ElementTable& table) {
        open->endTagLeft = static_cast<std::int32_t>(left);
        open->endTagRight = static_cast<std::int32_t>(right);
        link = &open->nextSibling;
        openIndex = open->parent;
        open = &table[openIndex];
    }
};

// Where the loop goes on behind a tag that was read by its tokens.
struct Resumption {
    Step step;
    std::ptrdiff_t at;
    Nest nest;
};

// Whether the tag is a start tag whose name begins right behind the `<`. What is between the name and the
// first `>` is not looked at, quotes included.
bool IsPlainStartTag(const MarkupSpan& text, std::ptrdiff_t left, std::ptrdiff_t right) {
    return right < text.end && ClassOf(text[left + 1]) == kOrdinaryByte;
}

// Whether an end tag reads `</name>` with the name of the open element. A quote could hide the first `>`, so
// that none may stand in the name.
bool IsPlainEndTag(const MarkupSpan& text, std::ptrdiff_t left, std::ptrdiff_t right, const ElemPos& open) {
    const std::ptrdiff_t length = right - left - 2;
    if (length <= 0 || length >= kNameBlock || text.end - left < kNameBlock + 2) return false;
    if (text[left + 1] != '/' || ClassOf(text[left + 2]) != kOrdinaryByte) return false;
    const char* const name = text.bytes + open.startTagLeft + 1;
    const std::uint32_t wanted = (1U << length) - 1;
    if ((~markup_blocks::CommonNameBytes(text.bytes + left + 2, name) & wanted) != 0) return false;
    return name[length] == '>' || name[length] == ' ' || name[length] == '/';
}

class Parser {
public:
    Parser(std::string_view text, ElementTable& table, std::int32_t parent, std::string& error)
        : fText(text), fTable(table), fError(error), fTop(parent), fFirst(table.Free()) {}

    std::int32_t Run() {
        const Step step = ParseTags();
        if (step == Step::Done) return fFirst;
        fTable.SetFree(fFirst);
        return step == Step::EndTagFirst ? kEndTagFirst : kFailed;
    }

private:
    Step ParseTags() {
        const MarkupSpan text = fText;
        BracketScanner scanner(text.bytes, text.end, 0);
        std::int32_t top = 0;
        Nest nest = WithRoom({nullptr, &top, nullptr, nullptr, fTop, fFirst});
        for (;;) {
            const std::ptrdiff_t left = scanner.Next('<');
            const std::ptrdiff_t right = scanner.Next('>');
            if (IsPlainStartTag(text, left, right)) {
                nest.Enter(left, right, text[right - 1] == '/');
                if (nest.openIndex == fTop) break;
                if (nest.next == nest.end) nest = WithRoom(nest);
            } else if (nest.openIndex != fTop && IsPlainEndTag(text, left, right, *nest.open)) {
                nest.Leave(left, right, fTable);
                if (nest.openIndex == fTop) break;
            } else {
                const Resumption resumption = ParseByTokens(nest, left);
                if (resumption.step != Step::GoOn) return resumption.step;
                nest = resumption.nest;
                scanner.Seek(resumption.at);
            }
        }
        fTable.SetFree(nest.nextIndex);
        return Step::Done;
    }

    // Sees to it that there is room for one more element, behind the one that was entered last. Entries may
    // move.
    Nest WithRoom(Nest nest) {
        fTable.SetFree(nest.nextIndex);
        if (fTable.IsFull()) fTable.Grow();
        nest.next = &fTable[nest.nextIndex];
        nest.end = nest.next + fTable.FreeRun();
        if (nest.openIndex == fTop) return nest;
        nest.open = &fTable[nest.openIndex];
        const std::int32_t last = nest.nextIndex - 1;
        nest.link = last == nest.openIndex ? &nest.open->firstChild : &fTable[last].nextSibling;
        return nest;
    }

    // Any tag: blanks behind the `<`, quotes, names of one delimiter, and everything that is no element.
    Resumption ParseByTokens(const Nest& nest, std::ptrdiff_t left) {
        if (left >= fText.end) return FailAtEnd(nest);
        MarkupTokenReader reader(fText, left + 1);
        MarkupToken token;
        if (!reader.Next(token)) return Fail("Abrupt end within tag");
        if (token.quoted) return Fail("Tag starts with quote");
        const char lead = fText[token.begin];
        if (lead == '?' || lead == '!') return SkipNode(nest, left);
        if (lead == '/') return LeaveByTokens(nest, left, reader);
        return EnterBehind(nest, left, reader.At());
    }

    Resumption SkipNode(const Nest& nest, std::ptrdiff_t left) {
        const ScannedNode node = ScanNode(fText, left);
        if (node.kind == kMarkupNone || node.kind == kMarkupElement) return Fail("Invalid node");
        return {Step::GoOn, node.end, nest};
    }

    Resumption EnterBehind(Nest nest, std::ptrdiff_t left, std::ptrdiff_t nameEnd) {
        const std::ptrdiff_t right = fText.Find('>', nameEnd);
        if (right >= fText.end) return Fail("End of tag not found");
        nest.Enter(left, right, fText[right - 1] == '/');
        if (nest.openIndex != fTop) return {Step::GoOn, right + 1, WithRoom(nest)};
        fTable.SetFree(nest.nextIndex);
        return {Step::Done, right + 1, nest};
    }

    // The reader stands behind the slash.
    Resumption LeaveByTokens(Nest nest, std::ptrdiff_t left, MarkupTokenReader& reader) {
        if (nest.openIndex == fTop) return {Step::EndTagFirst, left, nest};
        MarkupToken token;
        if (!reader.Next(token)) return FailNamed(nest, "End tag not completed for element ", "");
        if (!NameMatches(reader.TextOf(token), NameOf(nest))) {
            return FailNamed(nest, "End tag does not correspond to ", "");
        }
        do {
            if (!reader.Next(token)) return FailNamed(nest, "End tag not completed for element ", "");
        } while (!reader.Is(token, '>'));
        nest.Leave(left, token.begin, fTable);
        fTable.SetFree(nest.nextIndex);
        return {nest.openIndex == fTop ? Step::Done : Step::GoOn, reader.At(), nest};
    }

    std::string_view NameOf(const Nest& nest) const { return TagNameAt(fText, nest.open->startTagLeft); }

    Resumption FailAtEnd(const Nest& nest) {
        if (nest.openIndex == fTop) return Fail("Element tag not found");
        return FailNamed(nest, "End tag of ", " element not found");
    }

    // `head`, the name of the open element, and `tail`.
    Resumption FailNamed(const Nest& nest, const char* head, const char* tail) {
        fError = std::string(head).append(NameOf(nest)).append(tail);
        return {Step::Failed, 0, nest};
    }

    Resumption Fail(const char* message) {
        fError = message;
        return {Step::Failed, 0, {}};
    }

    MarkupSpan fText;
    ElementTable& fTable;
    std::string& fError;
    std::int32_t fTop;   // what the top element lies under
    std::int32_t fFirst; // the top element
};

} // namespace

std::int32_t ParseElement(std::string_view text, ElementTable& table, std::int32_t parent,
                          std::string& error) {
    const std::int32_t first = table.Free();
    try {
        return Parser(text, table, parent, error).Run();
    } catch (...) {
        table.SetFree(first);
        throw;
    }
}

} // namespace brixen::lyr::gen
