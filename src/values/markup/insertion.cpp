// New elements and nodes, and new content for those that are there.
#include "values/markup/document.h"

#include "values/markup/escape.h"
#include "values/markup/parser.h"
#include "values/markup/tokens.h"
#include "values/markup/writer.h"

namespace brixen::lyr::gen {
namespace {

std::string Fenced(std::string_view begin, std::string_view text, std::string_view end) {
    return std::string(begin).append(text).append(end);
}

// A node of a kind around a text; nothing when the text does not fit into one.
std::string NodeMarkup(int kind, std::string_view text) {
    switch (kind) {
    case kMarkupText:
    case kMarkupWhiteSpace: return EscapeMarkup(text, false);
    case kMarkupCData: return Fenced(kCDataBegin, text, kCDataEnd);
    case kMarkupProcessingInstruction: return Fenced("<?", text, "?>");
    case kMarkupComment: return Fenced("<!--", text, "-->");
    // Its data is read with the fences, and may come back with them.
    case kMarkupDocumentType: return text.starts_with("<!") ? std::string(text) : Fenced("<!", text, ">");
    default: return {};
    }
}

bool IsTextKind(int kind) { return kind == kMarkupText || kind == kMarkupWhiteSpace; }

// The kind that a parse sees in such a markup, 0 when it is not one whole node. Text may turn into white
// space and back.
int KindOf(int kind, std::string_view markup) {
    const ScannedNode node = ScanNode(MarkupSpan(markup), 0);
    const bool same = node.kind == kind || (IsTextKind(node.kind) && IsTextKind(kind));
    return same && node.end == std::ssize(markup) ? node.kind : kMarkupNone;
}

bool IsOnOwnLine(int kind) { return !IsTextKind(kind) && kind != kMarkupCData; }

// Whether a text holds one whole element, and nothing else that would reach out of it.
bool IsOneElement(std::string_view text) {
    if (text.size() > kLongestMarkup) return false;
    ElementTable table;
    std::string error;
    const std::int32_t top = ParseElement(text, table, 0, error);
    if (top <= 0) return false;
    const MarkupSpan span(text);
    for (std::ptrdiff_t offset = std::ptrdiff_t{table[top].endTagRight} + 1; offset < span.end;) {
        const ScannedNode node = ScanNode(span, offset);
        if (node.kind == kMarkupNone || node.kind == kMarkupElement) return false;
        offset = node.end;
    }
    return true;
}

// A new element with its line end. Name and content are borrowed; without content it has the short form.
class ElementMarkup {
public:
    ElementMarkup(std::string_view name, std::string_view content)
        : fName(name), fContent(content, false), fIsShort(content.empty()) {}

    std::size_t Length() const {
        const std::size_t tags = fIsShort ? std::size("</>") - 1 : std::size("<></>") - 1 + fName.size();
        return tags + fName.size() + fContent.Length() + kLineEnd.size();
    }
    void CopyTo(char* out) const {
        MarkupWriter writer(out);
        writer.PutLiteral("<");
        writer.Put(fName);
        if (fIsShort) return writer.PutLiteral("/>\r\n");
        writer.PutLiteral(">");
        fContent.CopyTo(writer.At());
        writer.Skip(fContent.Length());
        writer.PutLiteral("</");
        writer.Put(fName);
        writer.PutLiteral(">\r\n");
    }
    // Where its tags are when it stands at `left`; it has no relatives yet.
    ElemPos PlacesAt(std::ptrdiff_t left) const {
        const std::ptrdiff_t right = left + static_cast<std::ptrdiff_t>(Length() - kLineEnd.size()) - 1;
        const std::ptrdiff_t nameEnd = left + 1 + std::ssize(fName);
        return {static_cast<std::int32_t>(left),
                static_cast<std::int32_t>(fIsShort ? right : nameEnd),
                static_cast<std::int32_t>(fIsShort ? nameEnd : right - 2 - std::ssize(fName)),
                static_cast<std::int32_t>(right),
                0,
                0,
                0};
    }

private:
    std::string_view fName;
    EscapedMarkup fContent;
    bool fIsShort;
};

} // namespace

// Returns the new element, 0 when it cannot be.
std::int32_t CMarkupSTL::PutElement(const Place& place, std::string_view name, std::string_view content) {
    if (!IsPlainName(name) || !IsReachable(place)) return 0;
    if (IsOfDocument(name) || IsOfDocument(content)) {
        return PutElement(place, std::string(name), std::string(content));
    }
    const ElementMarkup markup(name, content);
    if (table.IsFull()) table.Grow();
    const std::ptrdiff_t left = PutRoom(place, markup.Length(), true);
    if (left == kNowhere) return 0;
    markup.CopyTo(document.data() + left);
    const std::int32_t element = table.Take();
    table[element] = markup.PlacesAt(left);
    Link(place, element);
    return element;
}

bool CMarkupSTL::PutSibling(bool behind, std::string_view name, std::string_view content) {
    const std::int32_t element = PutElement(PlaceBesideCursor(behind), name, content);
    if (element != 0) cursor = Cursor::On(cursor.posParent, element);
    return element != 0;
}

bool CMarkupSTL::PutChild(bool behind, std::string_view name, std::string_view content) {
    if (cursor.pos == 0) return false;
    const std::int32_t child = PutElement(PlaceUnder(cursor.pos, cursor.posChild, behind), name, content);
    if (child != 0) cursor.posChild = child;
    return child != 0;
}

bool CMarkupSTL::AddElem(MarkupText name, MarkupText content) { return PutSibling(true, name, content); }

bool CMarkupSTL::InsertElem(MarkupText name, MarkupText content) { return PutSibling(false, name, content); }

bool CMarkupSTL::AddChildElem(MarkupText name, MarkupText content) { return PutChild(true, name, content); }

bool CMarkupSTL::InsertChildElem(MarkupText name, MarkupText content) {
    return PutChild(false, name, content);
}

bool CMarkupSTL::PutNode(bool behind, int kind, std::string_view text) {
    if (kind == kMarkupElement) return PutSibling(behind, text, {});
    std::string markup = NodeMarkup(kind, text);
    const int seen = KindOf(kind, markup);
    if (seen == kMarkupNone) return false;
    const std::ptrdiff_t length = std::ssize(markup);
    if (IsOnOwnLine(kind)) markup += kLineEnd;
    const Place place = PlaceBesideCursor(behind);
    const std::ptrdiff_t offset = PutText(place, markup, IsOnOwnLine(kind));
    if (offset == kNowhere) return false;
    cursor = Cursor::On(place.parent, place.previous);
    cursor.nodeType = seen;
    cursor.nodeOffset = static_cast<std::int32_t>(offset);
    cursor.nodeLength = static_cast<std::int32_t>(length);
    return true;
}

bool CMarkupSTL::AddNode(int kind, MarkupText text) { return PutNode(true, kind, text); }

bool CMarkupSTL::InsertNode(int kind, MarkupText text) { return PutNode(false, kind, text); }

bool CMarkupSTL::PutSubDoc(bool behind, std::string_view text) {
    const Place place = PlaceBesideCursor(behind);
    if (IsOfDocument(text)) return PutSubDoc(behind, std::string(text));
    if (!IsReachable(place) || !IsOneElement(text)) return false;
    // The element parser once more, into the table this time: a refused piece leaves no trace there.
    const std::int32_t first = table.Free();
    std::string error;
    const std::int32_t top = ParseElement(text, table, place.parent, error);
    const std::int32_t end = table.Free();
    // Its entries are given out once its text is in.
    table.SetFree(first);
    const std::ptrdiff_t offset = PutText(place, text, true);
    if (offset == kNowhere) return false;
    table.SetFree(end);
    for (std::int32_t element = first; element < end; ++element) {
        table[element].startTagLeft += static_cast<std::int32_t>(offset);
        table[element].startTagRight += static_cast<std::int32_t>(offset);
        table[element].endTagLeft += static_cast<std::int32_t>(offset);
        table[element].endTagRight += static_cast<std::int32_t>(offset);
    }
    Link(place, top);
    cursor = Cursor::On(place.parent, top);
    return true;
}

bool CMarkupSTL::AddSubDoc(MarkupText text) { return PutSubDoc(true, text); }

bool CMarkupSTL::InsertSubDoc(MarkupText text) { return PutSubDoc(false, text); }

bool CMarkupSTL::SetData(MarkupText text, bool asCData) {
    if (cursor.IsOnNode()) return SetNodeText(text);
    return cursor.pos != 0 && SetContent(cursor.pos, text, asCData);
}

bool CMarkupSTL::SetContent(std::int32_t element, std::string_view text, bool asCData) {
    if (table[element].firstChild != 0) return false;
    const bool section = asCData && text.find(kCDataEnd) == std::string_view::npos;
    const std::string content = section ? NodeMarkup(kMarkupCData, text) : EscapeMarkup(text, false);
    if (IsShort(element)) return PutText({element, 0, 0}, content, false) != kNowhere;
    const std::ptrdiff_t begin = ContentBegin(element);
    return Replace({element, 0, begin}, ContentEnd(element) - begin, content);
}

bool CMarkupSTL::SetNodeText(std::string_view text) {
    if (IsTextKind(cursor.nodeType) && text.empty()) return RemoveNode();
    const std::string markup = NodeMarkup(cursor.nodeType, text);
    const int seen = KindOf(cursor.nodeType, markup);
    const Place place{cursor.posParent, cursor.pos, cursor.nodeOffset};
    if (seen == kMarkupNone || !Replace(place, cursor.nodeLength, markup)) return false;
    cursor.nodeType = seen;
    cursor.nodeLength = static_cast<std::int32_t>(markup.size());
    return true;
}

bool CMarkupSTL::FindSetData(MarkupText path, MarkupText text, bool asCData) {
    const Cursor before = cursor;
    if (FindElem(path) && SetData(text, asCData)) return true;
    cursor = before;
    return false;
}

} // namespace brixen::lyr::gen
