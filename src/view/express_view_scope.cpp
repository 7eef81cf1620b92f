#include "view/express_view_scope.h"

#include "view/scope/assertion.h"

namespace brixen::zeve {
namespace {

// A scope with neither parent nor generator fails on the generator, one whose parent is of another kind
// fails on the parent.
CGenerator& GeneratorOf(CExpressionScope* parent) {
    Assert(parent != nullptr, "fGenerator");
    const auto* viewParentScope = dynamic_cast<CExpressViewScope*>(parent);
    Assert(viewParentScope != nullptr, "viewParentScope");
    return viewParentScope->Generator();
}

} // namespace

CExpressViewScope::CExpressViewScope(CExpressionScope* parentScope, CGenerator* generator,
                                     ScopeFunctionHost* host, ScopeParseObserver* parseObserver)
    : CExpressViewScope(parentScope, generator ? *generator : GeneratorOf(parentScope), host, parseObserver) {
}

CExpressViewScope::CExpressViewScope(CExpressionScope* parentScope, CGenerator& generator,
                                     ScopeFunctionHost* host, ScopeParseObserver* parseObserver)
    : CExpressionScope(parentScope, host, &generator.pool, parseObserver), fGenerator(&generator) {}

std::unique_ptr<CExpressViewScope> CreateViewScope(CExpressionScope* parent, CGenerator* generator,
                                                   ScopeFunctionHost* functionHost,
                                                   ScopeParseObserver* observer, bool defineConstants) {
    auto scope = std::make_unique<CExpressViewScope>(parent, generator, functionHost, observer);
    scope->DefineConstants(defineConstants);
    return scope;
}

} // namespace brixen::zeve
