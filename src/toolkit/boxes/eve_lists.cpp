#include "toolkit/boxes/eve_lists.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"

namespace brixen::zeve {

namespace {

constexpr std::int16_t kListGrowth = 14;
constexpr std::uint32_t kTreeStyle =
    style::kChild | style::kVisible | style::kBorder | style::kTabStop | style::kTreeDisableDragDrop;

std::uint32_t TreeStyle(const CExpressionScope& attributes, const CEveBox& box) {
    std::uint32_t treeStyle = kTreeStyle;
    // The same bit as kTreeHasButtons: a tall tree has buttons, asked for or not, and never twice.
    if (box.height > box.width) treeStyle |= style::kUpright;
    if (attributes.GetBooleanOr("has_buttons"_name, true)) treeStyle |= style::kTreeHasButtons;
    if (attributes.GetBooleanOr("has_lines"_name, true)) {
        treeStyle |= style::kTreeHasLines | style::kTreeLinesAtRoot;
    }
    return treeStyle;
}

} // namespace

CEveBox* CEveListBox::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    height = CutTo16(height + kListGrowth);
    MakeControl(*this, attributes,
                {u"listbox",
                 style::kChild | style::kVerticalScroll | style::kTabStop | style::kListWantKeyboard |
                     style::kListNotify,
                 extended::kField});
    return this;
}

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
