// One view of a description while the description runs: its geometry, its children, its attributes. The view
// reader builds a tree of views, the layout measures and places it once, the generator makes boxes of it, and
// then it is gone.
//
// Lengths and positions are whole pixels. Everything here belongs to the thread that makes the dialog.
#pragma once

#include "toolkit/layout/pixel_sum.h"
#include "view/generator.h"
#include "view/scope/expression_scope.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brixen::zeve {

class ViewProxy;

// Values of `horizontal`, `vertical`, `child_horizontal` and `child_vertical`. 0 means that none was given.
// Any other number leaves a view where the running position has it.
inline constexpr std::int32_t kAlignNone = 0;
inline constexpr std::int32_t kAlignFill = 1;
inline constexpr std::int32_t kAlignCenter = 2;
inline constexpr std::int32_t kAlignProportional = 3;
inline constexpr std::int32_t kAlignLeft = 4;
inline constexpr std::int32_t kAlignTop = 4;
inline constexpr std::int32_t kAlignRight = 5;
inline constexpr std::int32_t kAlignBottom = 5;

// Values of `placement`.
inline constexpr std::int32_t kPlaceColumn = 0;
inline constexpr std::int32_t kPlaceRow = 1;
inline constexpr std::int32_t kPlaceOffscreen = 2;

// Views in the order of the text, linked through the views themselves: a view is in one list at most. The
// list owns nothing.
class ViewList {
public:
    class Iterator {
    public:
        explicit Iterator(ViewProxy* start) : view(start) {}
        ViewProxy& operator*() const { return *view; }
        inline Iterator& operator++();
        bool operator==(const Iterator&) const = default;

    private:
        ViewProxy* view;
    };

    bool IsEmpty() const { return first == nullptr; }
    std::size_t Count() const { return count; }
    // The list must not be empty.
    ViewProxy& Front() const { return *first; }
    ViewProxy& Back() const { return *last; }
    Iterator begin() const { return Iterator(first); }
    Iterator end() const { return Iterator(nullptr); }

    void Append(ViewProxy& view);
    // Moves all views of `other` to the end of this list.
    void Splice(ViewList& other);
    void Reverse();

private:
    ViewProxy* first = nullptr;
    ViewProxy* last = nullptr;
    std::uint32_t count = 0;
};

// The settings that a view takes over from its surroundings: `child_horizontal` and `child_vertical` of the
// enclosing view (0 without one), and whether that view or this one is offscreen.
struct ViewInheritance {
    std::int32_t horizontal = kAlignNone;
    std::int32_t vertical = kAlignNone;
    bool offscreen = false;
};

// The part of a view that the layout does not touch, apart from it so that the layout walks through less
// memory.
struct ViewDetails {
    ViewDetails(CGenerator& generator, std::string_view keyword, ViewProxy* enclosing,
                const ViewInheritance& inherited);

    std::string_view viewName;          // the keyword; in the pool of the generator
    CExpressionScope attributes;        // without a parent; texts are in the pool of the generator
    ViewProxy* const parent;            // null at the root
    const char* textPosition = nullptr; // of the view in the description; set by the reader, for messages
    const std::int32_t inheritedHorizontal;
    const std::int32_t inheritedVertical;
    std::int32_t outset = 0; // the default of the four outsets
    std::int32_t childHorizontal = kAlignNone, childVertical = kAlignNone;
    std::int32_t leftOffset = 0, topOffset = 0; // a shift of the view, applied by its parent after placing
};

class alignas(64) ViewProxy {
public:
    // Copies the layout attributes found along the chain of `viewAttributes`, lets `generator` prepare the
    // view, and then reads `attributes` into the fields. The parent is not told of the new child. Throws what
    // the generator throws.
    ViewProxy(ViewDetails& itsDetails, CGenerator& generator, CExpressionScope& viewAttributes,
              bool isOffscreen);
    ViewProxy(const ViewProxy&) = delete;
    ViewProxy& operator=(const ViewProxy&) = delete;
    ~ViewProxy() = default;

    // A view that is `alwaysL2R` places its own children from left to right in any tree.
    bool IsMirrored() const { return rtl && !alwaysL2R; }

    // Whether a row lets the label of this view, its first child, join a label column.
    bool JoinsLabelColumn() const { return hasLabel && horizontal != kAlignCenter; }

    // Returns the sum of all gaps between the children; 0 with fewer than two.
    PixelSum Gaps() const {
        return children.IsEmpty() ? 0 : (static_cast<PixelSum>(children.Count()) - 1) * spacing;
    }

    CExpressionScope& Attributes() const { return details.attributes; }

    // All numbers fill two cache lines: the first, with the next view, is what a parent reads and writes of
    // its children.

    ViewProxy* next = nullptr; // in the list of the parent's children
    ViewDetails& details;
    ViewList children;
    std::int32_t width = 0, height = 0; // outer size; measuring makes it larger, never smaller
    std::int32_t top = 0, left = 0;     // relative to the parent
    std::int32_t inset = 0;      // added to the left of a left-aligned child, and to its width in a column
    std::int32_t topInset = 0;   // from the top to the line on which a row aligns its children
    std::int32_t labelWidth = 0; // of the label column
    // Space wanted outside the own frame; the parent absorbs it into its own outsets.
    std::int32_t leftOutset = 0, topOutset = 0, rightOutset = 0, bottomOutset = 0;
    std::int32_t horizontal = kAlignNone, vertical = kAlignNone; // inside the parent
    bool hasOffset : 1 = false;                                  // an offset of the view is not 0
    bool hasLabel : 1 = false;  // the attributes hold a `label_width`, or a child's label column was adopted
    bool rtl : 1 = false;       // the tree is laid out from right to left
    bool alwaysL2R : 1 = false; // the direct children are never mirrored; at the root, no view is
    bool reverse : 1 = false;   // the children are laid out in reverse order
    bool offscreen : 1 = false; // the placement of this view, or of an enclosing one, is offscreen

    std::int32_t placement = kPlaceColumn; // of the children
    std::int32_t spacing = 0;              // between two children
    std::int32_t marginLeft = 0, marginTop = 0, marginRight = 0, marginBottom = 0;
    std::int32_t childWidthSum = 0, childHeightSum = 0;

private:
    void CopyAttributes(const CExpressionScope& viewAttributes);
    void ReadAttributes(const CExpressionScope& viewAttributes);
    void ReadOutsets();
    void ReadMargins();
};

static_assert(sizeof(ViewProxy) == 128, "the layout of large dialogs waits for memory");

inline ViewList::Iterator& ViewList::Iterator::operator++() {
    view = view->next;
    return *this;
}

} // namespace brixen::zeve
