// Turns the views of a description into boxes. The reader calls a generator twice for each view: once while
// it reads, to prepare the view, and once after the layout, to create it.
#pragma once

#include "view/scope/scope_string_pool.h"
#include "view/scope/system_budget.h"

#include <string_view>

namespace brixen::zeve {

class CEveBox;
class CExpressionScope;

// The box that a generator makes of a view; the children of the view get it as their parent. Null for none.
using ViewHandle = CEveBox*;

class CGenerator {
public:
    virtual ~CGenerator() = default;

    // Called after the head of a view is read. `viewAttributes` holds the parameters of the view, and its
    // chain leads into the enclosing blocks; `attributes` is the scope of the view itself, to define names
    // in. May throw; then the run of the description ends.
    virtual void PrepareView(std::string_view viewKeyword, CExpressionScope& viewAttributes,
                             CExpressionScope& attributes) = 0;

    // Called after the layout, parents first. Returns the handle for the children of the view. May throw.
    virtual ViewHandle CreateView(std::string_view viewKeyword, CExpressionScope& attributes,
                                  ViewHandle parentHandle) = 0;

    // If set, the result of a run in place of the handle of the root view. Nothing sets it today.
    ViewHandle fixedRoot = nullptr;
    // The names and texts of the description, and of the `attributes` of every view: they outlive the scopes.
    ScopeStringPool pool;
    // Of the run that reads a description now.
    SystemBudget budget;
    bool rightToLeft = false;
};

} // namespace brixen::zeve
