#include "values/markup_parser.h"

#include "values/markup_blocks.h"
#include "values/markup_tokens.h"

#include <cstddef>

namespace brixen::lyr::gen {
namespace {

constexpr std::int32_t kEndTagFirst = 0;
constexpr std::int32_t kFailed = -1;

std::int32_t Narrow(std::ptrdiff_t position) { return static_cast<std::int32_t>(position); }

class Parser {
public:
    Parser(std::string_view text, ElementTable& table, std::int32_t parent, std::string& error)
        : fText(text), fScanner(text.data(), fText.end, 0), fTable(table), fError(error), fTop(parent),
          fFirst(table.Free()), fOpen(parent) {}

    std::int32_t Run() {
        MakeRoom();
        Step step = Step::GoOn;
        while (step == Step::GoOn) step = ParseTag(fScanner.Next('<'));
        if (step == Step::Done) return fFirst;
        fTable.GiveBack(fFirst);
        return step == Step::EndTagFirst ? kEndTagFirst : kFailed;
    }

private:
    enum class Step { GoOn, Done, EndTagFirst, Failed };

    Step ParseTag(std::ptrdiff_t left) {
        if (fText.end - left <= 1) return FailAtEnd(left);
        const char lead = fText[left + 1];
        if (ClassOf(lead) == kOrdinaryByte) return OpenElement(left);
        return lead == '/' ? CloseElement(left) : ParseUnusualTag(left);
    }

    // Blanks behind the `<`, quotes, names of one delimiter, and everything that is no element.
    Step ParseUnusualTag(std::ptrdiff_t left) {
        MarkupTokenReader reader(fText, left + 1);
        MarkupToken token;
        if (!reader.Next(token)) return Fail("Abrupt end within tag");
        if (token.quoted) return Fail("Tag starts with quote");
        const char lead = fText[token.begin];
        if (lead == '?' || lead == '!') return SkipNode(left);
        fScanner.Seek(reader.At());
        return lead == '/' ? CloseElementByTokens(left) : OpenElement(left);
    }

    Step SkipNode(std::ptrdiff_t left) {
        const ScannedNode node = ScanNode(fText, left);
        if (node.kind == kMarkupNone || node.kind == kMarkupElement) return Fail("Invalid node");
        fScanner.Seek(node.end);
        return Step::GoOn;
    }

    // The scanner stands behind the `<`, and at the name's end if the name is unusual. What is between the
    // name and the first `>` is not looked at, quotes included.
    Step OpenElement(std::ptrdiff_t left) {
        const std::ptrdiff_t right = fScanner.Next('>');
        if (right >= fText.end) return Fail("End of tag not found");
        const std::int32_t index = fTable.Take();
        LinkBehindSibling(index);
        if (fText[right - 1] == '/') {
            fTable[index] = {Narrow(left), Narrow(right), Narrow(right - 1), Narrow(right), fOpen, 0, 0};
            fSibling = index;
            if (fOpen == fTop) return Step::Done;
        } else {
            fTable[index] = {Narrow(left), Narrow(right), Narrow(right + 1), 0, fOpen, 0, 0};
            fSibling = 0;
            fOpen = index;
        }
        MakeRoom();
        return Step::GoOn;
    }

    // The top element is linked by the caller.
    void LinkBehindSibling(std::int32_t index) {
        if (fSibling != 0) {
            fTable[fSibling].nextSibling = index;
        } else if (fOpen != fTop) {
            fTable[fOpen].firstChild = index;
        }
    }

    Step CloseElement(std::ptrdiff_t left) {
        if (fOpen == fTop) return Step::EndTagFirst;
        const std::ptrdiff_t right = fScanner.Next('>');
        if (!IsPlainEndTag(left, right)) return CloseElementByTokens(left);
        return EndElement(left, right);
    }

    // Whether an end tag that reads `</name>` names the open element, without any look at its tokens. A quote
    // could hide the first `>`, so that none may stand in the name.
    bool IsPlainEndTag(std::ptrdiff_t left, std::ptrdiff_t right) const {
        const std::ptrdiff_t length = right - left - 2;
        if (length <= 0 || length >= kNameBlock || fText.end - left < kNameBlock + 2) return false;
        if (ClassOf(fText[left + 2]) != kOrdinaryByte) return false;
        const char* const name = fText.bytes + fTable[fOpen].startTagLeft + 1;
        const std::uint32_t wanted = (1U << length) - 1;
        if ((~markup_blocks::CommonNameBytes(fText.bytes + left + 2, name) & wanted) != 0) return false;
        return name[length] == '>' || name[length] == ' ' || name[length] == '/';
    }

    Step CloseElementByTokens(std::ptrdiff_t left) {
        if (fOpen == fTop) return Step::EndTagFirst;
        MarkupTokenReader reader(fText, left + 1);
        MarkupToken token;
        reader.Next(token); // the slash
        const std::string_view name = TagNameAt(fText, fTable[fOpen].startTagLeft);
        if (!reader.Next(token)) return FailNamed("End tag not completed for element ", "");
        if (!NameMatches(reader.TextOf(token), name)) return FailNamed("End tag does not correspond to ", "");
        while (reader.Next(token)) {
            if (!reader.Is(token, '>')) continue;
            fScanner.Seek(reader.At());
            return EndElement(left, token.begin);
        }
        return FailNamed("End tag not completed for element ", "");
    }

    Step EndElement(std::ptrdiff_t left, std::ptrdiff_t right) {
        ElemPos& element = fTable[fOpen];
        element.endTagLeft = Narrow(left);
        element.endTagRight = Narrow(right);
        fSibling = fOpen;
        fOpen = element.parent;
        return fOpen == fTop ? Step::Done : Step::GoOn;
    }

    void MakeRoom() {
        if (fTable.IsFull()) fTable.Grow();
    }

    Step FailAtEnd(std::ptrdiff_t left) {
        if (left < fText.end) return Fail("Abrupt end within tag");
        return fOpen == fTop ? Fail("Element tag not found") : FailNamed("End tag of ", " element not found");
    }

    // `head`, the name of the open element, and `tail`.
    Step FailNamed(const char* head, const char* tail) {
        fError = head;
        fError.append(TagNameAt(fText, fTable[fOpen].startTagLeft)).append(tail);
        return Step::Failed;
    }

    Step Fail(const char* message) {
        fError = message;
        return Step::Failed;
    }

    MarkupSpan fText;
    BracketScanner fScanner;
    ElementTable& fTable;
    std::string& fError;
    std::int32_t fTop;         // what the top element lies under
    std::int32_t fFirst;       // the top element
    std::int32_t fOpen;        // the innermost element that is open; its ancestors are found by their parents
    std::int32_t fSibling = 0; // the last element that ended in it
};

} // namespace

std::int32_t ParseElement(std::string_view text, ElementTable& table, std::int32_t parent,
                          std::string& error) {
    const std::int32_t first = table.Free();
    try {
        return Parser(text, table, parent, error).Run();
    } catch (...) {
        table.GiveBack(first);
        throw;
    }
}

} // namespace brixen::lyr::gen
