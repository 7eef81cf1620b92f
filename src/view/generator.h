// What turns the views of a description into boxes. The reader calls it twice for each view: once while
// reading, to prepare the view, and once after the layout, to create it.
#pragma once

#include "view/scope/scope_string_pool.h"

#include <string_view>

namespace brixen::zeve {

class CEveBox;
class CExpressionScope;

// What a generator makes of a view and hands to the view's children as their parent; null for nothing.
using ViewHandle = CEveBox*;

class CGenerator {
public:
    virtual ~CGenerator() = default;

    // Called while the head of a view is read. `viewAttributes` holds the view's parameters, with its chain
    // into the enclosing blocks; `attributes` is the view's own scope, in which names may be defined.
    virtual void PrepareView(std::string_view viewKeyword, CExpressionScope& viewAttributes,
                             CExpressionScope& attributes) = 0;

    // Called after the layout, parents first. Returns the handle for this view's children.
    virtual ViewHandle CreateView(std::string_view viewKeyword, CExpressionScope& attributes,
                                  ViewHandle parentHandle) = 0;

    // If set, a run of a description answers with it instead of the root view's handle. Nothing sets it
    // today.
    ViewHandle fixedRoot = nullptr;
    // Holds the names and texts of every view's `attributes`, so that they outlive the description's scopes.
    ScopeStringPool pool;
    bool rightToLeft = false;
};

} // namespace brixen::zeve
