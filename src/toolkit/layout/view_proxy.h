// One view of a description while the description runs: its resolved attributes, its geometry, its children.
// The view reader builds a tree of these, the layout measures and places it once, the generator makes boxes
// of it, and then it is gone. Lengths and positions are whole pixels. Single thread: the one that makes the
// dialog.
#pragma once

#include "view/scope/expression_scope.h"
#include "view/generator.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::zeve {

class ViewProxy;

// Views in the order of the text; the owner of them.
using ViewProxyList = std::vector<std::unique_ptr<ViewProxy>>;

// Values of `horizontal`, `vertical`, `child_horizontal` and `child_vertical`. 0 says that none was given;
// any other number leaves a view where the running position has it.
inline constexpr std::int32_t kAlignNone = 0;
inline constexpr std::int32_t kAlignFill = 1;
inline constexpr std::int32_t kAlignCenter = 2;
inline constexpr std::int32_t kAlignProportional = 3;
inline constexpr std::int32_t kAlignLeft = 4; // align_top too
inline constexpr std::int32_t kAlignTop = 4;
inline constexpr std::int32_t kAlignRight = 5; // align_bottom too
inline constexpr std::int32_t kAlignBottom = 5;

// Values of `placement`.
inline constexpr std::int32_t kPlaceColumn = 0;
inline constexpr std::int32_t kPlaceRow = 1;
inline constexpr std::int32_t kPlaceOffscreen = 2;

// What a view takes over from its surroundings: the enclosing view's `child_horizontal` and `child_vertical`
// (0 without one), and whether it or the view itself (`placement` of 2 in its parameters' chain) is
// offscreen.
struct ViewInheritance {
    std::int32_t horizontal = kAlignNone;
    std::int32_t vertical = kAlignNone;
    bool offscreen = false;
};

class ViewProxy final {
public:
    // Copies the layout attributes found along the chain of `viewAttributes`, lets `generator` prepare the
    // view, and reads what stands in `attributes` then into the fields. `parent` may be null and is not told
    // of the new child. `generator` must outlive the tree: its pool holds the texts. Throws what the
    // generator throws.
    ViewProxy(CGenerator& generator, std::string_view viewKeyword, CExpressionScope& viewAttributes,
              ViewProxy* enclosing, const ViewInheritance& inherited);
    ViewProxy(const ViewProxy&) = delete;
    ViewProxy& operator=(const ViewProxy&) = delete;
    ~ViewProxy();

    // Views lie side by side in memory of their own, which is given back when the last of them is gone.
    static void* operator new(std::size_t size);
    static void operator delete(void* room) noexcept;

    // Appends the views of a finished block; `views` is empty afterward.
    void SpliceChildren(ViewProxyList&& views);

    // To be called once, on the root: gives every view its size and position, writes them into its
    // `attributes` and has the generator create its box, parents first. Returns the generator's `fixedRoot`
    // if it has one, else the root view's handle. Recurses as deep as the tree is, which the reader bounds.
    // Throws what the generator throws.
    ViewHandle LayOutAndMakeBoxes(CGenerator& generator);

    // `rtl` is that of the whole tree; a view that is `alwaysL2R` still places its own children left to
    // right.
    bool IsMirrored() const { return rtl && !alwaysL2R; }

    // In the order of how often the layout touches them: what a parent reads and writes of each child comes
    // first and fits into two lines of the processor's cache, what only a view with children uses comes next.

    ViewProxyList children;
    std::int32_t width = 0, height = 0; // outer size; measuring makes it larger, never smaller
    std::int32_t top = 0, left = 0;     // relative to the parent
    // Added to the left position of a left-aligned child, and to its width when a column measures it.
    std::int32_t inset = 0;
    std::int32_t topInset = 0;   // from the top to the line on which a row aligns its children
    std::int32_t labelWidth = 0; // of the label column
    // Space wanted outside the own frame; the parent absorbs it into its own outsets.
    std::int32_t leftOutset = 0, topOutset = 0, rightOutset = 0, bottomOutset = 0;
    std::int32_t horizontal = kAlignNone, vertical = kAlignNone; // inside the parent
    bool hasLabel = false;  // `attributes` hold a `label_width`, or a child's label column was adopted
    bool rtl = false;       // the tree is laid out right to left
    bool alwaysL2R = false; // the direct children are never mirrored; at the root, no view is
    bool reverse = false;   // lay the children out in reverse order
    bool offscreen = false; // this view's placement is offscreen, or an enclosing view's
    std::int32_t leftOffset = 0, topOffset = 0; // a shift of this view, applied by its parent after placing

    std::int32_t placement = kPlaceColumn; // of the children
    std::int32_t spacing = 0;              // between two children
    std::int32_t marginLeft = 0, marginTop = 0, marginRight = 0, marginBottom = 0;
    std::int32_t childWidthSum = 0, childHeightSum = 0;

    std::int32_t outset = 0; // only the default of the four outsets
    std::int32_t childHorizontal = kAlignNone, childVertical = kAlignNone;
    std::int32_t inheritedHorizontal = kAlignNone, inheritedVertical = kAlignNone;
    ViewProxy* parent = nullptr; // not owned
    std::string viewName;        // the keyword
    CExpressionScope attributes; // no parent; texts in the generator's pool

private:
    void CopyAttributes(const CExpressionScope& viewAttributes);
    void ReadAttributes(const CExpressionScope& viewAttributes);
    void ReadOutsets();
    void ReadMargins();
};

} // namespace brixen::zeve
