// The generator of a dialog, which makes its boxes.
#pragma once

#include "view/generator.h"

#include <memory>
#include <unordered_map>

namespace brixen::zeve {

struct DialogLink;

class CZeveGenerator : public CGenerator {
public:
    // The generator belongs to `ownDialog`. It follows a view's `__callback` and `__zeveInternalObj` only if
    // they are that dialog's own: a description may write any number there.
    explicit CZeveGenerator(DialogLink* ownDialog = nullptr);
    ~CZeveGenerator() override;

    // Defines the view's ids, copies its attributes, makes its box and has the box prepare itself. Throws
    // ScopeMemoryExhausted and SystemBudgetExhausted; the box then stays until DeleteBoxes.
    void PrepareView(std::string_view viewKeyword, CExpressionScope& viewAttributes,
                     CExpressionScope& attributes) override;
    // Has the box bind itself and make its control, then calls the host. If Create returns null, the children
    // of the box belong to its parent, and the host is not called.
    ViewHandle CreateView(std::string_view viewKeyword, CExpressionScope& attributes,
                          ViewHandle parentHandle) override;

    // Deletes every box that no other box owns: the roots, with all boxes below them, and the prepared boxes
    // that were never created. The destructor does the same.
    void DeleteBoxes() noexcept;

private:
    void CopyExtraAttributes(CExpressionScope& attributes, const CExpressionScope& viewAttributes) const;
    bool NamesOwnDialog(const CExpressionScope& scope) const;
    CEveBox* CreateBox(CEveBox& box, CExpressionScope& attributes, CEveBox* parent);
    bool HasOwnCallback(const CExpressionScope& attributes) const;
    void CallHost(CExpressionScope& attributes, const CEveBox& box) const;

    DialogLink* dialog;                                                 // not owned, may be null
    std::unordered_map<const CEveBox*, std::unique_ptr<CEveBox>> boxes; // those that no other box owns
};

} // namespace brixen::zeve
