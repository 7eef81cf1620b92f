// The scope of a statement block of a description: variables, and the generator that the block's views go to.
#pragma once

#include "view/scope/expression_scope.h"
#include "view/generator.h"

#include <memory>

namespace brixen::zeve {

class CExpressViewScope : public CExpressionScope {
public:
    // Without a generator the parent's is taken. Then the parent must be a CExpressViewScope, else
    // "Warning! (viewParentScope)"; no generator at all raises "Warning! (fGenerator)".
    CExpressViewScope(CExpressionScope* parent, CGenerator* generator,
                      ScopeFunctionHost* functionHost = nullptr, ScopeParseObserver* observer = nullptr);

    CGenerator& Generator() const { return *fGenerator; }

private:
    CGenerator* fGenerator; // not owned, never null
};

// Makes a view scope; `defineConstants` is for the root of a dialog alone, the rest sees its constants.
std::unique_ptr<CExpressViewScope> CreateViewScope(CExpressionScope* parent, CGenerator* generator,
                                                   ScopeFunctionHost* functionHost,
                                                   ScopeParseObserver* observer, bool defineConstants);

} // namespace brixen::zeve
