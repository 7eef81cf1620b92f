#include "view/express_view_scope.h"

#include "view/scope/assertion.h"

namespace brixen::zeve {
namespace {

// A scope with neither parent nor generator fails on the generator, one whose parent is of another kind on
// that.
CGenerator* GeneratorOf(CExpressionScope* parent) {
    if (!parent) {
        return nullptr;
    }
    const auto* viewParentScope = dynamic_cast<CExpressViewScope*>(parent);
    Assert(viewParentScope != nullptr, "viewParentScope");
    return &viewParentScope->Generator();
}

} // namespace

CExpressViewScope::CExpressViewScope(CExpressionScope* parentScope, CGenerator* generator,
                                     ScopeFunctionHost* host, ScopeParseObserver* parseObserver)
    : CExpressionScope(parentScope, host, nullptr, parseObserver),
      fGenerator(generator ? generator : GeneratorOf(parentScope)) {
    Assert(fGenerator != nullptr, "fGenerator");
}

std::unique_ptr<CExpressViewScope> CreateViewScope(CExpressionScope* parent, CGenerator* generator,
                                                   ScopeFunctionHost* functionHost,
                                                   ScopeParseObserver* observer, bool defineConstants) {
    auto scope = std::make_unique<CExpressViewScope>(parent, generator, functionHost, observer);
    scope->DefineConstants(defineConstants);
    return scope;
}

} // namespace brixen::zeve
