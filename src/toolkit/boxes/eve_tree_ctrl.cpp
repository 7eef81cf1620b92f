#include "toolkit/boxes/eve_tree_ctrl.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"

namespace brixen::zeve {

namespace {

constexpr std::uint32_t kTreeStyle =
    style::kChild | style::kVisible | style::kBorder | style::kTabStop | style::kTreeDisableDragDrop;

std::uint32_t TreeStyle(const CExpressionScope& attributes, const CEveBox& box) {
    std::uint32_t treeStyle = kTreeStyle;
    // Kept: the same bit as kTreeHasButtons, so a tree that is higher than wide always has buttons.
    if (box.height > box.width) treeStyle |= style::kUpright;
    if (attributes.GetBooleanOr("has_buttons"_name, true)) treeStyle |= style::kTreeHasButtons;
    if (attributes.GetBooleanOr("has_lines"_name, true)) {
        treeStyle |= style::kTreeHasLines | style::kTreeLinesAtRoot;
    }
    return treeStyle;
}

} // namespace

void CEveTreeCtrl::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    CopyBooleans(attributes, viewAttributes, {"has_buttons"_name, "has_lines"_name, "rtl_aware"_name});
}

CEveBox* CEveTreeCtrl::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes,
                {u"SysTreeView32", TreeStyle(attributes, *this), FieldStyle(attributes, extended::kField)});
    return this;
}

} // namespace brixen::zeve
