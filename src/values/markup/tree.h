// The text of a markup document and the table of its elements, which agree after every edit. Private to the
// document, which adds the cursor.
#pragma once

#include "values/markup/element_table.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brixen::lyr::gen {

// Elements are named by their index in the table; 0 is the root that holds the document's own elements, or no
// element at all. Offsets are bytes of the text.
class MarkupTree {
public:
    // A place for something new: in `parent`, after its child `previous` (0: before the first).
    struct Gap {
        std::int32_t parent;
        std::int32_t previous;
        std::ptrdiff_t offset;
    };
    static constexpr std::ptrdiff_t kNowhere = -1;

    // Replaces text and table. Returns whether the text has an element. `error` takes the parser's message;
    // it is empty where an end tag took the element's place. A text that is too long for its positions has
    // none.
    bool Parse(std::string newText, std::string& error);

    const std::string& Text() const { return text; }
    std::string_view Between(std::ptrdiff_t begin, std::ptrdiff_t end) const {
        return {text.data() + begin, static_cast<std::size_t>(end - begin)};
    }
    const ElementTable& Table() const { return table; }
    const ElemPos& operator[](std::int32_t element) const { return table[element]; }

    // Relations. They take constant time unless their comment says otherwise.
    std::int32_t FirstChild(std::int32_t parent) const {
        return table.Capacity() == 0 ? 0 : table[parent].firstChild;
    }
    // The child of `parent` after `element`, or its first child when that is 0.
    std::int32_t NextChild(std::int32_t parent, std::int32_t element) const {
        return element != 0 ? table[element].nextSibling : FirstChild(parent);
    }
    // Whether an element that was once in the tree still is. Takes time by its depth.
    bool IsLive(std::int32_t element) const;
    std::ptrdiff_t ContentBegin(std::int32_t parent) const {
        return parent == 0 ? 0 : std::ptrdiff_t{table[parent].startTagRight} + 1;
    }
    std::ptrdiff_t ContentEnd(std::int32_t parent) const {
        return parent == 0 ? std::ssize(text) : table[parent].endTagLeft;
    }
    std::string_view NameOf(std::int32_t element) const;
    // The first child of `parent` after `start` that a path leads to; see CMarkupSTL::FindElem for paths.
    std::int32_t Find(std::int32_t parent, std::int32_t start, std::string_view path) const;

    // The gap after or before the child `current` of `parent`; without one, at the end or the start of the
    // parent. Takes time by the number of siblings.
    Gap GapUnder(std::int32_t parent, std::int32_t current, bool after) const;
    // `offset`, or the end of the white space there when that leads up to a tag or to the end of the text:
    // new markup goes after it.
    std::ptrdiff_t SkipLineEnd(std::ptrdiff_t offset) const;

    // Edits. They move the positions after the edit and take time by the number of elements there. An edit
    // that cannot be made changes nothing: one that would take the text to 2 GiB, and those that a comment
    // names.
    //
    // Adds an element; returns it, or 0. The name must be a plain name, and a parse must find the element
    // there.
    std::int32_t AddElement(const Gap& gap, std::string_view name, std::string_view content);
    // Adds one element that is markup already, and returns it, or 0. Anything else is refused.
    std::int32_t AddPiece(const Gap& gap, std::string_view piece);
    // Adds markup that holds no element. Returns its offset, or kNowhere. A parent in the short form is
    // opened, its tags on lines of their own with `onOwnLine`. A parent that ends with two slashes cannot be
    // opened.
    std::ptrdiff_t AddText(const Gap& gap, std::string_view added, bool onOwnLine);
    // Replaces the content of an element without children, opening the short form as AddText does.
    bool SetContent(std::int32_t element, std::string_view content);
    // Replaces `count` bytes at a gap, which hold no element.
    bool Replace(const Gap& gap, std::ptrdiff_t count, std::string_view added);
    // Replaces bytes within a start tag.
    bool ReplaceInTag(std::int32_t element, std::ptrdiff_t begin, std::ptrdiff_t end, std::string_view added);
    // Removes an element, and the white space after it that SkipLineEnd passes. Returns the sibling before
    // it.
    std::int32_t Remove(std::int32_t element);

    friend void swap(MarkupTree& left, MarkupTree& right) noexcept;

private:
    bool IsShort(std::int32_t element) const {
        return table[element].startTagRight == table[element].endTagLeft + 1;
    }
    std::int32_t LastChild(std::int32_t parent) const;
    std::int32_t SiblingBefore(std::int32_t element) const;
    bool IsReachable(const Gap& gap) const;
    // Whether a text that came from outside is a part of the document, which will move.
    bool Owns(std::string_view bytes) const {
        const auto place = [](const char* at) { return reinterpret_cast<std::uintptr_t>(at); };
        return place(bytes.data()) - place(text.data()) < text.size();
    }
    char* MakeRoom(const Gap& gap, std::ptrdiff_t count, std::size_t length);
    std::ptrdiff_t AddRoom(const Gap& gap, std::size_t length, bool onOwnLine);
    std::ptrdiff_t OpenAround(std::int32_t element, std::size_t length, bool onOwnLine);
    void Splice(std::size_t offset, std::size_t removed, std::size_t added);
    void ShiftAfter(std::int32_t parent, std::int32_t previous, std::int32_t delta);
    void ShiftSubtree(std::int32_t top, std::int32_t delta);
    void Link(const Gap& gap, std::int32_t element);

    std::string text;
    ElementTable table;
};

} // namespace brixen::lyr::gen
