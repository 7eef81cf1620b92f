#include "toolkit/boxes/eve_icon.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"
#include "toolkit/toolkit_state.h"
#include "toolkit/view_constants.h"
#include "view/scope/expression_scope.h"

namespace brixen::zeve {

namespace {

constexpr std::int16_t kLogoShift = 20;

} // namespace

void CEveIcon::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    CopyNumber(attributes, viewAttributes, "builtin_icon"_name);
    DefineSizeOr(viewAttributes, attributes, "height"_name, "gIconHeight"_name);
    DefineSizeOr(viewAttributes, attributes, "width"_name, "gIconWidth"_name);
    gToolkit.icon.height = attributes.GetLongOr("height"_name, 0);
    gToolkit.icon.width = attributes.GetLongOr("width"_name, 0);
}

CEveBox* CEveIcon::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    const std::int64_t builtinIcon = attributes.GetLongOr("builtin_icon"_name, 0);
    gToolkit.icon.builtinIcon = builtinIcon;
    if (builtinIcon == kBuiltinIconTesseralogo) left = CutTo16(left - kLogoShift);
    MakeControl(*this, attributes, {u"static", style::kChild | style::kStaticIcon, extended::kTopMost});
    return this;
}

} // namespace brixen::zeve
