#include "values/markup/parser.h"

#include "values/markup/blocks.h"
#include "values/markup/tokens.h"

#include <bit>
#include <cstddef>
#include <utility>

namespace brixen::lyr::gen {
namespace {

constexpr std::int32_t kEndTagFirst = 0;
constexpr std::int32_t kFailed = -1;

enum class Step { GoOn, EndTagFirst, Failed };

// Where in the tree the next element goes.
struct Nest {
    std::int32_t* link;     // takes the index of the next element
    ElemPos* next;          // the next element's entry
    ElemPos* end;           // of the entries that can be filled without asking the table
    std::int32_t openIndex; // the innermost element that is open; its ancestors are found by their parents
    std::int32_t nextIndex;

    void Enter(std::ptrdiff_t left, std::ptrdiff_t right, bool isShort) {
        *link = nextIndex;
        next->startTagLeft = static_cast<std::int32_t>(left);
        next->startTagRight = static_cast<std::int32_t>(right);
        next->parent = openIndex;
        next->firstChild = 0;
        next->nextSibling = 0;
        if (isShort) {
            next->endTagLeft = static_cast<std::int32_t>(right) - 1;
            next->endTagRight = static_cast<std::int32_t>(right);
            link = &next->nextSibling;
        } else {
            link = &next->firstChild;
            openIndex = nextIndex;
        }
        ++next;
        ++nextIndex;
    }
    void Leave(ElemPos& open, std::ptrdiff_t left, std::ptrdiff_t right) {
        open.endTagLeft = static_cast<std::int32_t>(left);
        open.endTagRight = static_cast<std::int32_t>(right);
        link = &open.nextSibling;
        openIndex = open.parent;
    }
};

// What must follow on a `<` for its tag to be read without asking where the text ends.
constexpr std::ptrdiff_t kTagRoom = kNameBlock + 2;

// The place of the `>` of an end tag that reads `</name>` with the name of the open element, or 0. A quote
// could hide the first `>`, so that none may stand in the name.
std::ptrdiff_t FindPlainEnd(const MarkupSpan& text, std::ptrdiff_t left, const ElemPos& open) {
    const char* const name = text.bytes + open.startTagLeft + 1;
    const char* const endName = text.bytes + left + 2;
    // Blanks and almost all delimiters come before it.
    if (text[left + 1] != '/' || static_cast<unsigned char>(*endName) <= '>') return 0;
    const std::uint32_t ends = markup_blocks::BytesEqual(endName, '>');
    const std::uint32_t inFront = (ends ^ (ends - 1)) >> 1; // more than all, when there is none
    if ((~markup_blocks::CommonNameBytes(endName, name) & inFront) != 0) return 0;
    const int length = std::countr_zero(ends);
    return EndsToken(name[length]) ? left + 2 + length : 0;
}

class Parser {
public:
    Parser(std::string_view text, ElementTable& table, std::int32_t parent, std::string& error)
        : fText(text), fTable(table), fError(error),
          fTop(parent), fNest{&fFound, nullptr, nullptr, parent, table.Free()} {}

    std::int32_t Run() {
        const std::int32_t first = fTable.Free();
        Step step = Step::GoOn;
        while (step == Step::GoOn && !IsWhole()) {
            if (fNest.next == fNest.end) MakeRoom();
            const bool hasReadOn = fFound != 0 && ReadPlainTags();
            if (!hasReadOn) step = ReadTag();
        }
        fTable.SetFree(step == Step::GoOn ? fNest.nextIndex : first);
        if (step == Step::GoOn) return fFound;
        return step == Step::EndTagFirst ? kEndTagFirst : kFailed;
    }

private:
    bool IsWhole() const { return fFound != 0 && fNest.openIndex == fTop; }

    // Room for one more element, behind the one that was entered last. Entries may move.
    void MakeRoom() {
        fTable.SetFree(fNest.nextIndex);
        if (fTable.IsFull()) fTable.Grow();
        fNest.next = &fTable[fNest.nextIndex];
        fNest.end = fNest.next + fTable.FreeRun();
        if (fNest.openIndex == fTop) return;
        const std::int32_t last = fNest.nextIndex - 1;
        fNest.link = last == fNest.openIndex ? &fTable[last].firstChild : &fTable[last].nextSibling;
    }

    // The tags of which most markup is made: names right behind `<` or `</`, and no other kinds of node.
    // Reads until the top element ends or room is short; false at the first tag that needs a closer look. All
    // state is in locals and nothing is called, so that the loop runs in registers.
    bool ReadPlainTags() {
        const MarkupSpan text = fText;
        const std::ptrdiff_t lastTag = text.end - kTagRoom;
        const std::int32_t top = fTop;
        TagStarts starts(text.bytes, fAt, text.end);
        Nest nest = fNest;
        std::ptrdiff_t at = fAt;
        while (nest.openIndex != top && nest.next != nest.end) {
            const std::ptrdiff_t left = starts.Next();
            if (left < at) continue; // inside of the tag in front
            if (left > lastTag) break;
            std::ptrdiff_t right = 0;
            if (ClassOf(text[left + 1]) == kOrdinaryByte) {
                // What is between the name and the first `>` is not looked at, quotes included.
                right = FindByte(text.bytes, left + 2, lastTag, '>');
                if (right > lastTag) break;
                nest.Enter(left, right, text[right - 1] == '/');
            } else {
                ElemPos& open = fTable[nest.openIndex];
                right = FindPlainEnd(text, left, open);
                if (right == 0) break;
                nest.Leave(open, left, right);
            }
            at = right + 1;
        }
        fNest = nest;
        fAt = at;
        return nest.openIndex == top || nest.next == nest.end;
    }

    // Any tag: blanks behind the `<`, quotes, names of one delimiter, and everything that is no element.
    Step ReadTag() {
        const std::ptrdiff_t left = fText.Find('<', fAt);
        if (left >= fText.end) return FailAtEnd();
        MarkupTokenReader reader(fText, left + 1);
        MarkupToken token;
        if (!reader.Next(token)) return Fail("Abrupt end within tag");
        if (token.quoted) return Fail("Tag starts with quote");
        const char lead = fText[token.begin];
        if (lead == '?' || lead == '!') return SkipNode(left);
        if (lead == '/') return ReadEndTag(left, reader);
        return ReadStartTag(left, reader.At());
    }

    Step SkipNode(std::ptrdiff_t left) {
        const ScannedNode node = ScanNode(fText, left);
        if (node.kind == kMarkupNone || node.kind == kMarkupElement) return Fail("Invalid node");
        fAt = node.end;
        return Step::GoOn;
    }

    Step ReadStartTag(std::ptrdiff_t left, std::ptrdiff_t nameEnd) {
        const std::ptrdiff_t right = fText.Find('>', nameEnd);
        if (right >= fText.end) return Fail("End of tag not found");
        fNest.Enter(left, right, fText[right - 1] == '/');
        fAt = right + 1;
        return Step::GoOn;
    }

    // The reader stands behind the slash.
    Step ReadEndTag(std::ptrdiff_t left, MarkupTokenReader& reader) {
        if (fNest.openIndex == fTop) return Step::EndTagFirst;
        MarkupToken token;
        if (!reader.Next(token)) return FailNamed("End tag not completed for element ", "");
        if (!NameMatches(reader.TextOf(token), OpenName())) {
            return FailNamed("End tag does not correspond to ", "");
        }
        do {
            if (!reader.Next(token)) return FailNamed("End tag not completed for element ", "");
        } while (!reader.Is(token, '>'));
        fNest.Leave(fTable[fNest.openIndex], left, token.begin);
        fAt = reader.At();
        return Step::GoOn;
    }

    std::string_view OpenName() const { return TagNameAt(fText, fTable[fNest.openIndex].startTagLeft); }

    Step FailAtEnd() {
        if (fNest.openIndex == fTop) return Fail("Element tag not found");
        return FailNamed("End tag of ", " element not found");
    }

    // `head`, the name of the open element, and `tail`.
    Step FailNamed(const char* head, const char* tail) {
        return Fail(std::string(head).append(OpenName()).append(tail));
    }

    Step Fail(std::string message) {
        fError = std::move(message);
        return Step::Failed;
    }

    MarkupSpan fText;
    ElementTable& fTable;
    std::string& fError;
    std::int32_t fTop;       // what the top element lies under
    std::int32_t fFound = 0; // the top element
    Nest fNest;
    std::ptrdiff_t fAt = 0; // where the next tag is looked for
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
