#include "values/markup/parser.h"

#include "values/markup/blocks.h"
#include "values/markup/nodes.h"
#include "values/markup/tokens.h"

#include <bit>
#include <cstddef>
#include <utility>

namespace brixen::lyr::gen {
namespace {

constexpr std::int32_t kEndTagFirst = 0;
constexpr std::int32_t kFailed = -1;

enum class Step { kGoOn, kEndTagFirst, kFailed };

// The place of the next element in the tree.
struct Nest {
    std::int32_t* link;     // takes the index of the next element
    ElemPos* next;          // the entry of the next element
    ElemPos* end;           // of the entries that can be filled without asking the table
    std::int32_t openIndex; // the innermost open element; its ancestors are found by their parents
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

// The bytes that must follow a `<` for its tag to be read without asking where the text ends.
constexpr std::ptrdiff_t kTagRoom = kNameBlock + 2;

// The place of the `>` of an end tag that reads `</name>` with the name of the open element, or 0. The name
// must not hold a quote, which could hide the first `>`.
std::ptrdiff_t FindPlainEnd(const MarkupSpan& text, std::ptrdiff_t left, const ElemPos& open) {
    const char* const name = text.bytes + open.startTagLeft + 1;
    const char* const endName = text.bytes + left + 2;
    // Blanks and almost all delimiters come before it.
    if (text[left + 1] != '/' || static_cast<unsigned char>(*endName) <= '>') return 0;
    const std::uint32_t ends = markup_blocks::BytesEqual(endName, '>');
    const std::uint32_t before = (ends ^ (ends - 1)) >> 1; // more than all, when there is none
    if ((~markup_blocks::CommonNameBytes(endName, name) & before) != 0) return 0;
    const int length = std::countr_zero(ends);
    return EndsToken(name[length]) ? left + 2 + length : 0;
}

class Parser {
public:
    Parser(std::string_view text, ElementTable& table, std::int32_t parent, std::string& error)
        : text(text), table(table), error(error),
          top(parent), nest{&found, nullptr, nullptr, parent, table.Free()} {}

    std::int32_t Run() {
        const std::int32_t first = table.Free();
        Step step = Step::kGoOn;
        while (step == Step::kGoOn && !IsWhole()) {
            if (nest.next == nest.end) MakeRoom();
            const bool hasReadOn = found != 0 && ReadPlainTags();
            if (!hasReadOn) step = ReadTag();
        }
        table.SetFree(step == Step::kGoOn ? nest.nextIndex : first);
        if (step == Step::kGoOn) return found;
        return step == Step::kEndTagFirst ? kEndTagFirst : kFailed;
    }

private:
    bool IsWhole() const { return found != 0 && nest.openIndex == top; }

    // Makes room for one more element, after the one that was entered last. Entries may move.
    void MakeRoom() {
        table.SetFree(nest.nextIndex);
        if (table.IsFull()) table.Grow();
        nest.next = &table[nest.nextIndex];
        nest.end = nest.next + table.FreeRun();
        if (nest.openIndex == top) return;
        const std::int32_t last = nest.nextIndex - 1;
        nest.link = last == nest.openIndex ? &table[last].firstChild : &table[last].nextSibling;
    }

    // Reads the tags of which most markup is made: names right after `<` or `</`, and no other kinds of node.
    // Reads until the top element ends or room is short; false at the first tag that needs a closer look. All
    // state is in locals and nothing is called, so that the loop runs in registers.
    bool ReadPlainTags() {
        const MarkupSpan span = text;
        const std::ptrdiff_t lastTag = span.end - kTagRoom;
        const std::int32_t stop = top;
        TagStarts starts(span.bytes, at, span.end);
        Nest local = nest;
        std::ptrdiff_t next = at;
        while (local.openIndex != stop && local.next != local.end) {
            const std::ptrdiff_t left = starts.Next();
            if (left < next) continue; // within the tag before
            if (left > lastTag) break;
            std::ptrdiff_t right = 0;
            if (ClassOf(span[left + 1]) == kOrdinaryByte) {
                // Intentional: nothing between the name and the first `>` is looked at, not even quotes.
                right = FindByte(span.bytes, left + 2, lastTag, '>');
                if (right > lastTag) break;
                local.Enter(left, right, span[right - 1] == '/');
            } else {
                ElemPos& open = table[local.openIndex];
                right = FindPlainEnd(span, left, open);
                if (right == 0) break;
                local.Leave(open, left, right);
            }
            next = right + 1;
        }
        nest = local;
        at = next;
        return local.openIndex == stop || local.next == local.end;
    }

    // Reads any tag: blanks after the `<`, quotes, names of one delimiter, and nodes that are no elements.
    Step ReadTag() {
        const std::ptrdiff_t left = text.Find('<', at);
        if (left >= text.end) return FailAtEnd();
        MarkupTokenReader reader(text, left + 1);
        MarkupToken token;
        if (!reader.Next(token)) return Fail("Abrupt end within tag");
        if (token.quoted) return Fail("Tag starts with quote");
        const char lead = text[token.begin];
        if (lead == '?' || lead == '!') return SkipNode(left);
        if (lead == '/') return ReadEndTag(left, reader);
        return ReadStartTag(left, reader.At());
    }

    Step SkipNode(std::ptrdiff_t left) {
        const ScannedNode node = ScanNode(text.Between(0, text.end), left);
        if (!node.IsWhole()) return Fail("Invalid node");
        at = node.end;
        return Step::kGoOn;
    }

    Step ReadStartTag(std::ptrdiff_t left, std::ptrdiff_t nameEnd) {
        const std::ptrdiff_t right = text.Find('>', nameEnd);
        if (right >= text.end) return Fail("End of tag not found");
        nest.Enter(left, right, text[right - 1] == '/');
        at = right + 1;
        return Step::kGoOn;
    }

    // The reader is after the slash.
    Step ReadEndTag(std::ptrdiff_t left, MarkupTokenReader& reader) {
        if (nest.openIndex == top) return Step::kEndTagFirst;
        MarkupToken token;
        if (!reader.Next(token)) return FailNamed("End tag not completed for element ", "");
        if (!NameMatches(reader.TextOf(token), OpenName())) {
            return FailNamed("End tag does not correspond to ", "");
        }
        do {
            if (!reader.Next(token)) return FailNamed("End tag not completed for element ", "");
        } while (!reader.Is(token, '>'));
        nest.Leave(table[nest.openIndex], left, token.begin);
        at = reader.At();
        return Step::kGoOn;
    }

    std::string_view OpenName() const { return TagNameAt(text, table[nest.openIndex].startTagLeft); }

    Step FailAtEnd() {
        if (nest.openIndex == top) return Fail("Element tag not found");
        return FailNamed("End tag of ", " element not found");
    }

    // `head`, the name of the open element, and `tail`.
    Step FailNamed(const char* head, const char* tail) {
        return Fail(std::string(head).append(OpenName()).append(tail));
    }

    Step Fail(std::string message) {
        error = std::move(message);
        return Step::kFailed;
    }

    MarkupSpan text;
    ElementTable& table;
    std::string& error;
    std::int32_t top;       // the parent of the top element
    std::int32_t found = 0; // the top element
    Nest nest;
    std::ptrdiff_t at = 0; // the place from which the next tag is searched
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
