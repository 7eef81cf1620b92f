// The scope of a statement block of a description: its variables, and the generator of its views.
#pragma once

#include "view/generator.h"
#include "view/scope/expression_scope.h"

#include <memory>

namespace brixen::zeve {

class CExpressViewScope : public CExpressionScope {
public:
    // The default of the generator is that of the parent, which then must be a CExpressViewScope, else
    // "Warning! (viewParentScope)" is raised; without a parent too, "Warning! (fGenerator)". The generator
    // outlives the scope: its pool holds the variables and texts.
    CExpressViewScope(CExpressionScope* parent, CGenerator* generator,
                      ScopeFunctionHost* functionHost = nullptr, ScopeParseObserver* observer = nullptr);

    CGenerator& Generator() const { return *fGenerator; }

private:
    CExpressViewScope(CExpressionScope* parent, CGenerator& generator, ScopeFunctionHost* functionHost,
                      ScopeParseObserver* observer);

    CGenerator* fGenerator; // not owned, never null
};

// Makes a view scope. `defineConstants` is for the root of a dialog; the scopes below see its constants.
std::unique_ptr<CExpressViewScope> CreateViewScope(CExpressionScope* parent, CGenerator* generator,
                                                   ScopeFunctionHost* functionHost,
                                                   ScopeParseObserver* observer, bool defineConstants);

} // namespace brixen::zeve
