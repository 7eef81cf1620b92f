// CMarkupSTL, a markup document as one flat text with a table of positions into it.
//
// Nothing is copied out: names, attributes, text and other nodes are found by scanning when they are asked
// for. An edit is a splice of the text, followed by a shift of the positions after it. The class checks that
// tags nest and that end tags match, and nothing else.
#pragma once

#include "values/markup/nodes.h"
#include "values/markup/tree.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// A text as an argument of the class: a null pointer is the same as an empty text.
class MarkupText : public std::string_view {
public:
    MarkupText(const char* text) : std::string_view(text == nullptr ? "" : text) {}
    MarkupText(std::string_view text) : std::string_view(text) {}
    MarkupText(const std::string& text) : std::string_view(text) {}
};

// The document. Bytes are UTF-8 by convention and never checked; they may hold anything, NULs too. Positions
// are 32-bit: a text of 2 GiB and more is not well-formed, and an edit that would make one fails.
//
// The cursor is an element (pos) with its parent (posParent, 0 for the root) and one of its children
// (posChild); 0 is "before the first" or "none". FindNode can move it to nodes of other kinds, which lie
// after `pos`, among the children of posParent. An operation that returns false or finds nothing leaves
// document and cursor exactly as they were.
//
// An object is used by one thread at a time. Throws std::bad_alloc where memory runs out; text and table
// agree then too.
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

    // Replaces the document and parses it; a null text empties it. See IsWellFormed for the result. Only the
    // first element is parsed: anything after it stays in the text, unread.
    void SetDoc(const char* text);
    void SetDoc(std::string text);
    // The longest text that Load and Save convert between the encodings, in bytes of UTF-8.
    static constexpr std::size_t kLongestConverted = std::numeric_limits<std::int32_t>::max();
    // Reads and parses a file: UTF-16 after a little-endian byte-order mark, or bytes as they are. Returns
    // true when it could be read and is well-formed; GetError has a message in any case. A UTF-16 file whose
    // text may become longer than `longest` is refused.
    bool Load(const std::u16string& path, std::size_t longest = kLongestConverted);
    // Writes the document, as UTF-16 when it came from a UTF-16 file. Nothing is written for an empty one. A
    // document longer than `longest` is not converted to UTF-16, and the file stays as it was.
    bool Save(const std::u16string& path, std::size_t longest = kLongestConverted);
    // Whether there is a root element.
    bool IsWellFormed() const { return tree.FirstChild(0) != 0; }
    // The last message of the parser or of a file; on success a report such as "12 bytes", or nothing.
    const std::string& GetError() const { return errorText; }
    const std::string& GetDoc() const { return tree.Text(); }

    // Navigation. A path is one tag name or several, joined by slashes; `*` is any name; a path with a
    // leading slash begins at the root element. There is no backtracking. Without a path the next element is
    // found.
    void ResetPos();
    // The next match after `pos`.
    bool FindElem(MarkupText path = nullptr) { return path.empty() ? StepOver() : FindElemByPath(path); }
    // The next match after `posChild`, below `pos`. When `pos` is 0, it first steps onto the first element of
    // posParent, whose first child is then the next.
    bool FindChildElem(MarkupText path = nullptr);
    bool IntoElem() {
        if (cursor.pos == 0 || cursor.nodeType != kMarkupElement) return false;
        cursor = Cursor::On(cursor.pos, cursor.posChild);
        return true;
    }
    bool OutOfElem() {
        if (cursor.posParent == 0) return false;
        cursor = Cursor::On(tree[cursor.posParent].parent, cursor.posParent, cursor.pos);
        return true;
    }
    // The next node of one of the kinds of the mask (0: of any) after the current one. Returns its kind, or 0
    // at the end of the parent and at a node that is not whole before the next element.
    int FindNode(int typeMask = 0);
    // Named cursors. They survive edits, but not a new parse. A null name is refused. A cursor on an element
    // that was removed since then cannot be restored.
    bool SavePos(const char* name = "");
    bool RestorePos(const char* name = "");

    // Reading. Empty when there is nothing of that kind.
    std::string GetTagName() const;
    std::string GetData() const;
    std::string GetChildData() const;
    std::string GetAttrib(MarkupText name) const;
    std::string GetChildAttrib(MarkupText name) const;
    // The same without a copy, for walks over large documents: a view of the document, or of `room` where
    // references had to be replaced. The view holds until the document or `room` changes.
    std::string_view ViewData(std::string& room) const {
        return cursor.IsOnNode() ? NodeData(room) : ElementData(cursor.pos, room);
    }
    std::string_view ViewAttrib(MarkupText name, std::string& room) const;
    // By its place among the attributes, from 0.
    std::string GetAttribName(int index) const;
    std::string FindGetData(MarkupText path);

    // Editing. New elements go after (Add) or before (Insert) the current one, and to the end or the start of
    // the parent when there is none; the cursor moves to them. A name is one plain token, not empty. Empty
    // content makes the short form.
    bool AddElem(MarkupText name, MarkupText content = nullptr);
    bool InsertElem(MarkupText name, MarkupText content = nullptr);
    bool AddChildElem(MarkupText name, MarkupText content = nullptr);
    bool InsertChildElem(MarkupText name, MarkupText content = nullptr);
    // One node of the given kind with `text` as its content, escaped in text and between the fences
    // elsewhere. Refused when the result would not be one whole node of that kind.
    bool AddNode(int kind, MarkupText text);
    bool InsertNode(int kind, MarkupText text);
    // One element as markup, used as it is. Anything that is not one whole element is refused.
    bool AddSubDoc(MarkupText text);
    bool InsertSubDoc(MarkupText text);
    // Replaces the content of the current node; a text node without content is removed. Refused for an
    // element with children.
    bool SetData(MarkupText text, bool asCData = false);
    bool FindSetData(MarkupText path, MarkupText text, bool asCData = false);
    // Replaces the value, or adds an attribute at the end of the tag. Refused in a tag whose quotes hide its
    // end.
    bool SetAttrib(MarkupText name, MarkupText value);
    bool SetChildAttrib(MarkupText name, MarkupText value);
    bool RemoveAttrib(MarkupText name);
    // The cursor moves to the sibling before it, or to 0.
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
    std::int32_t PosFree() const { return tree.Table().Free(); }
    int NodeType() const { return cursor.nodeType; }
    std::int32_t NodeOffset() const { return cursor.nodeOffset; }
    std::int32_t NodeLength() const { return cursor.nodeLength; }
    std::uint32_t Flags() const { return flags; }
    std::int32_t TableCapacity() const { return tree.Table().Capacity(); }
    std::int32_t SegmentCapacity() const { return tree.Table().SegmentCapacity(); }
    // `index` is less than TableCapacity; entries from PosFree on mean nothing.
    const ElemPos& At(std::int32_t index) const { return tree[index]; }

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
    // Where the attributes of a tag are: from the tag's name to the end that no edit may cross.
    struct TagRange {
        std::ptrdiff_t begin = 0; // 0 for no tag
        std::ptrdiff_t end = 0;
    };

    void Swap(CMarkupSTL& other) noexcept;
    bool Parse(std::string text);

    bool StepOver() {
        const std::int32_t next = tree.NextChild(cursor.posParent, cursor.pos);
        if (next != 0) cursor = Cursor::On(cursor.posParent, next);
        return next != 0;
    }
    bool FindElemByPath(std::string_view path);
    std::ptrdiff_t NextNodeOffset() const;
    ScannedNode NodeBefore(std::int32_t nextElement, std::ptrdiff_t offset) const;

    std::string_view Node() const;
    std::string NodeName() const;
    std::string_view NodeData(std::string& room) const;
    std::string_view ElementData(std::int32_t element, std::string& room) const;
    TagRange TagOf(std::int32_t element) const;
    TagRange CurrentTag() const;
    std::string_view AttributeIn(TagRange tag, std::string_view name, std::string& room) const;

    MarkupTree::Gap GapBesideCursor(bool after) const;
    bool PutSibling(bool after, std::string_view name, std::string_view content);
    bool PutChild(bool after, std::string_view name, std::string_view content);
    bool PutNode(bool after, int kind, std::string_view text);
    bool PutSubDoc(bool after, std::string_view text);
    bool SetNodeText(std::string_view text);
    bool SetAttributeIn(TagRange tag, std::int32_t element, std::string_view name, std::string_view value);
    bool ReplaceInTag(std::int32_t element, std::ptrdiff_t begin, std::ptrdiff_t end, std::string_view text);
    // Runs an edit below `pos`. A current node is after that, and moves with the text.
    template <class Edit>
    auto EditBelow(const Edit& edit) {
        const std::ptrdiff_t before = std::ssize(GetDoc());
        const auto result = edit();
        if (cursor.IsOnNode()) cursor.nodeOffset += static_cast<std::int32_t>(std::ssize(GetDoc()) - before);
        return result;
    }

    MarkupTree tree;
    std::string errorText;
    std::uint32_t flags = 0; // bit 0: the file is UTF-16 with a byte-order mark
    Cursor cursor;
    std::map<std::string, SavedPosition, std::less<>> savedPositions;
};

} // namespace brixen::lyr::gen
