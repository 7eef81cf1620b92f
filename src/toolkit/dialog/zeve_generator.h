// The generator that makes real boxes: a dialog's own.
#pragma once

#include "view/generator.h"

#include <memory>
#include <unordered_map>

namespace brixen::zeve {

struct DialogLink;

class CZeveGenerator : public CGenerator {
public:
    // The dialog that this generator belongs to. A view's `__callback` and `__zeveInternalObj` are followed
    // only where they are that dialog's own: a description may write any number there.
    explicit CZeveGenerator(DialogLink* ownDialog = nullptr);
    ~CZeveGenerator() override;

    // Gives the view its ids, copies its attributes, makes its box and lets it prepare itself.
    void PrepareView(std::string_view viewKeyword, CExpressionScope& viewAttributes,
                     CExpressionScope& attributes) override;
    // Lets the box bind itself and make its control, then tells the host of it. A box whose Create gives null
    // hands its children to its own parent, and the host does not hear of it.
    ViewHandle CreateView(std::string_view viewKeyword, CExpressionScope& attributes,
                          ViewHandle parentHandle) override;

    // Deletes every box that no other box owns: the roots, with all below them, and the prepared ones that
    // were never created. The destructor does the same.
    void DeleteBoxes() noexcept;

private:
    void CopyExtraAttributes(CExpressionScope& attributes, const CExpressionScope& viewAttributes) const;
    bool NamesOwnDialog(const CExpressionScope& scope) const;
    CEveBox* CreateBox(CEveBox& box, CExpressionScope& attributes, CEveBox* parent);
    bool HasOwnCallback(const CExpressionScope& attributes) const;
    void TellHost(CExpressionScope& attributes, const CEveBox& box) const;

    DialogLink* dialog;                                                 // not owned, may be null
    std::unordered_map<const CEveBox*, std::unique_ptr<CEveBox>> boxes; // those that no other box owns
};

} // namespace brixen::zeve
