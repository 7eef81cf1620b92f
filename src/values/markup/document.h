#pragma once

#include "values/markup/element_table.h"
#include "values/markup/node_kind.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

// Markup as one flat text with a table of positions into it. Nothing is copied out: names, attributes, text
// and other nodes are found by scanning when they are asked for, and an edit is a splice of the text followed
// by a shift of the positions behind it. It checks that tags nest and that end tags match, and nothing else.
namespace brixen::lyr::gen {

// A text handed to the class: a null pointer is the same as an empty text.
class MarkupText : public std::string_view {
public:
    MarkupText(const char* text) : std::string_view(text == nullptr ? "" : text) {}
    MarkupText(std::string_view text) : std::string_view(text) {}
    MarkupText(const std::string& text) : std::string_view(text) {}
};

// The document. Bytes are taken as UTF-8 and never checked; they may hold anything, NULs too. Positions are
// 32-bit: a text of 2 GiB and more is not well-formed, and an edit that would make one fails.
//
// The cursor is an element (pos) with its parent (posParent, 0 for the root) and one of its children
// (posChild); 0 stands for "before the first" or "none". FindNode can move it to nodes of other kinds, which
// lie behind `pos`, between the children of posParent. Whatever returns false or "nothing found" leaves
// document and cursor exactly as they were.
//
// An object is used by one thread at a time. Memory exhaustion is left to the allocator's exception.
class CMarkupSTL {
public:
    CMarkupSTL() = default;
    // Copies cursor, saved positions, document and table.
    CMarkupSTL(const CMarkupSTL&) = default;
    CMarkupSTL& operator=(const CMarkupSTL& other);
    // The other one is empty afterward.
    CMarkupSTL(CMarkupSTL&& other) noexcept;
    CMarkupSTL& operator=(CMarkupSTL&& other) noexcept;
    virtual ~CMarkupSTL() = default;

    // Replace the document and parse it; a null text empties it. See IsWellFormed for the result. Only the
    // first element is parsed: what stands behind it stays in the text, unread.
    void SetDoc(const char* text);
    void SetDoc(std::string text);
    // Reads and parses a file: UTF-16 with a little-endian byte-order mark, or bytes as they are. True when
    // it could be read and is well-formed; GetError tells what happened in any case.
    bool Load(const std::u16string& path);
    // Writes the document, as UTF-16 when it came from a UTF-16 file. Nothing is written for an empty one.
    bool Save(const std::u16string& path);
    // Whether there is a root element.
    bool IsWellFormed() const;
    // The last message of the parser or of a file; on success a report such as "12 bytes", or nothing.
    const std::string& GetError() const { return errorText; }
    const std::string& GetDoc() const { return document; }

    // Navigation. A path is one tag name or several, joined by slashes; `*` stands for any; a leading slash
    // begins at the root element. There is no backtracking. With no path the next element is meant.
    void ResetPos();
    // The next match behind `pos`.
    bool FindElem(MarkupText path = nullptr) { return path.empty() ? StepOver() : FindElemByPath(path); }
    // The next match behind `posChild`, below `pos`; steps onto the first element when `pos` is 0.
    bool FindChildElem(MarkupText path = nullptr);
    bool IntoElem() {
        if (cursor.pos == 0 || cursor.nodeType != kMarkupElement) return false;
        cursor = Cursor::On(cursor.pos, cursor.posChild);
        return true;
    }
    bool OutOfElem() {
        if (cursor.posParent == 0) return false;
        cursor = Cursor::On(table[cursor.posParent].parent, cursor.posParent, cursor.pos);
        return true;
    }
    // The next node of one of the kinds of the mask (0: of any) behind the current one; returns its kind, or
    // 0 at the end of the parent.
    int FindNode(int typeMask = 0);
    // Named cursors; they survive edits, but not a new parse. A null name is refused. A cursor on an element
    // that was removed since cannot be restored.
    bool SavePos(const char* name = "");
    bool RestorePos(const char* name = "");

    // Reading. Empty when there is nothing of that kind.
    std::string GetTagName() const;
    std::string GetData() const;
    std::string GetChildData() const;
    std::string GetAttrib(MarkupText name) const;
    std::string GetChildAttrib(MarkupText name) const;
    // The same for walks over large documents: views of the document, or of `room` where references had to be
    // replaced, whose memory is used again. Good until the document or `room` changes.
    std::string_view ViewData(std::string& room) const {
        return cursor.IsOnNode() ? NodeData(room) : DataOf(cursor.pos, room);
    }
    std::string_view ViewAttrib(MarkupText name, std::string& room) const;
    // By its place among the attributes, from 0.
    std::string GetAttribName(int index) const;
    std::string FindGetData(MarkupText path);

    // Editing. New elements go behind (Add) or in front of (Insert) the current one, and to the end or the
    // start of the parent when there is none; the cursor moves to them. A name must not be empty; empty
    // content makes the short form.
    bool AddElem(MarkupText name, MarkupText content = nullptr);
    bool InsertElem(MarkupText name, MarkupText content = nullptr);
    bool AddChildElem(MarkupText name, MarkupText content = nullptr);
    bool InsertChildElem(MarkupText name, MarkupText content = nullptr);
    // One node of the given kind with `text` as its content, escaped for text and else within its fences.
    bool AddNode(int kind, MarkupText text);
    bool InsertNode(int kind, MarkupText text);
    // One element as markup, taken as it is. Anything that is not one whole element is refused.
    bool AddSubDoc(MarkupText text);
    bool InsertSubDoc(MarkupText text);
    // Replace the content of the current node. Refused for an element with children.
    bool SetData(MarkupText text, bool asCData = false);
    bool FindSetData(MarkupText path, MarkupText text, bool asCData = false);
    bool SetAttrib(MarkupText name, MarkupText value);
    bool SetChildAttrib(MarkupText name, MarkupText value);
    bool RemoveAttrib(MarkupText name);
    // The cursor moves to the sibling in front, or to 0.
    bool RemoveElem();
    bool RemoveChildElem();
    bool RemoveNode();

    // Content of an element, or of an attribute: `<`, `&`, `>`, and in an attribute also `'` and `"`.
    static std::string EscapeText(MarkupText text, bool attribute = false);
    static std::string UnescapeText(MarkupText text);
    // See values/base64.h and values/unicode/lenient_text.h.
    static std::string EncodeBase64(const void* bytes, std::size_t length);
    static std::size_t DecodeBase64(MarkupText text, void* out, std::size_t outSize);
    static std::int32_t EncodeUtf8(char* out, const char16_t* wide, std::int32_t size);
    static std::int32_t DecodeUtf8(char16_t* out, const char* utf8, std::int32_t length);
    static std::string Utf8ToCodePage(MarkupText utf8);
    static std::string CodePageToUtf8(MarkupText text);

    // For tests and tools.
    std::int32_t PosParent() const { return cursor.posParent; }
    std::int32_t Pos() const { return cursor.pos; }
    std::int32_t PosChild() const { return cursor.posChild; }
    std::int32_t PosFree() const { return table.Free(); }
    int NodeType() const { return cursor.nodeType; }
    std::int32_t NodeOffset() const { return cursor.nodeOffset; }
    std::int32_t NodeLength() const { return cursor.nodeLength; }
    std::uint32_t Flags() const { return flags; }
    std::int32_t TableCapacity() const { return table.Capacity(); }
    std::int32_t SegmentCapacity() const { return table.SegmentCapacity(); }
    // `index` is below TableCapacity; entries at or above PosFree mean nothing.
    const ElemPos& At(std::int32_t index) const { return table[index]; }

private:
    struct Cursor {
        std::int32_t posParent = 0;
        std::int32_t pos = 0;
        std::int32_t posChild = 0;
        int nodeType = kMarkupNone;
        std::int32_t nodeOffset = 0;
        std::int32_t nodeLength = 0; // 0 on an element

        static Cursor On(std::int32_t posParent, std::int32_t pos, std::int32_t posChild = 0) {
            return {posParent, pos, posChild, pos == 0 ? kMarkupNone : kMarkupElement, 0, 0};
        }
        // Whether it is a node that is no element.
        bool IsOnNode() const { return nodeLength > 0; }
    };
    struct SavedPosition {
        std::int32_t posParent;
        std::int32_t pos;
        std::int32_t posChild;
    };
    // Where something new goes: into `parent`, behind its child `previous` (0: in front of the first).
    struct Place {
        std::int32_t parent;
        std::int32_t previous;
        std::ptrdiff_t offset;
    };
    // Where attributes are looked for: the place of the tag's name, and the end that no edit may cross.
    struct TagRange {
        std::ptrdiff_t begin;
        std::ptrdiff_t end;
    };
    static constexpr TagRange kNoTag{0, 0};
    static constexpr std::ptrdiff_t kNowhere = -1;
    static constexpr std::int32_t kRemoved = -1; // the parent of an element that is gone

    void Swap(CMarkupSTL& other) noexcept;
    bool Parse();

    // The table, and what it says of the document.
    std::int32_t FirstUnder(std::int32_t parent) const {
        return table.Capacity() == 0 ? 0 : table[parent].firstChild;
    }
    // The child of `parent` behind `element`, the first one when that is 0.
    std::int32_t NextUnder(std::int32_t parent, std::int32_t element) const {
        return element != 0 ? table[element].nextSibling : FirstUnder(parent);
    }
    std::int32_t LastUnder(std::int32_t parent) const;
    std::int32_t SiblingBefore(std::int32_t element) const;
    bool IsShort(std::int32_t element) const {
        return table[element].startTagRight == table[element].endTagLeft + 1;
    }
    bool IsLive(std::int32_t element) const;
    std::ptrdiff_t ContentBegin(std::int32_t parent) const {
        return parent == 0 ? 0 : std::ptrdiff_t{table[parent].startTagRight} + 1;
    }
    std::ptrdiff_t ContentEnd(std::int32_t parent) const {
        return parent == 0 ? std::ssize(document) : table[parent].endTagLeft;
    }
    std::string_view NameOf(std::int32_t element) const;
    bool StepOver() {
        const std::int32_t next = NextUnder(cursor.posParent, cursor.pos);
        if (next != 0) cursor = Cursor::On(cursor.posParent, next);
        return next != 0;
    }
    bool FindElemByPath(std::string_view path);
    std::int32_t FindByPath(std::int32_t parent, std::int32_t start, std::string_view path) const;

    // Reading.
    std::string_view Between(std::ptrdiff_t begin, std::ptrdiff_t end) const;
    std::ptrdiff_t NextNodeOffset() const;
    std::string NodeName() const;
    std::string_view NodeData(std::string& room) const;
    std::string_view DataOf(std::int32_t element, std::string& room) const;
    TagRange TagOf(std::int32_t element) const;
    TagRange CurrentTag() const;
    std::string_view AttributeIn(TagRange tag, std::string_view name, std::string& room) const;

    // Editing. Positions behind an edit are shifted; positions inside of it are the caller's to set.
    std::ptrdiff_t SkipLineEnd(std::ptrdiff_t offset) const;
    Place PlaceUnder(std::int32_t parent, std::int32_t current, bool behind) const;
    Place PlaceBesideCursor(bool behind) const;
    bool IsReachable(const Place& place) const;
    // Whether a text that came from outside is a part of the document, which will move.
    bool IsOfDocument(std::string_view text) const {
        const auto place = [](const char* bytes) { return reinterpret_cast<std::uintptr_t>(bytes); };
        return place(text.data()) - place(document.data()) < document.size();
    }
    char* MakeRoom(const Place& place, std::ptrdiff_t count, std::size_t length);
    bool Replace(const Place& place, std::ptrdiff_t count, std::string_view text);
    void Splice(std::size_t offset, std::size_t removed, std::size_t added);
    void ShiftBehind(std::int32_t parent, std::int32_t previous, std::int32_t delta);
    void ShiftSubtree(std::int32_t top, std::int32_t delta);
    std::ptrdiff_t PutRoom(const Place& place, std::size_t length, bool onOwnLine);
    std::ptrdiff_t PutText(const Place& place, std::string_view text, bool onOwnLine);
    std::ptrdiff_t OpenAround(std::int32_t element, std::size_t length, bool onOwnLine);
    void Link(const Place& place, std::int32_t element);
    std::int32_t PutElement(const Place& place, std::string_view name, std::string_view content);
    bool PutSibling(bool behind, std::string_view name, std::string_view content);
    bool PutChild(bool behind, std::string_view name, std::string_view content);
    bool PutNode(bool behind, int kind, std::string_view text);
    bool PutSubDoc(bool behind, std::string_view text);
    bool SetContent(std::int32_t element, std::string_view text, bool asCData);
    bool SetNodeText(std::string_view text);
    bool SetAttributeIn(const TagRange& tag, std::int32_t element, std::string_view name,
                        std::string_view value);
    bool ReplaceInTag(std::int32_t element, std::ptrdiff_t from, std::ptrdiff_t to, std::string_view text);
    std::int32_t Remove(std::int32_t element);

    std::string document;
    std::string errorText;
    std::uint32_t flags = 0; // bit 0: the file is UTF-16 with a byte-order mark
    Cursor cursor;
    std::map<std::string, SavedPosition, std::less<>> savedPositions;
    ElementTable table;
};

} // namespace brixen::lyr::gen
