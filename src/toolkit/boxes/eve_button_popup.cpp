#include "toolkit/boxes/eve_button_popup.h"

#include "toolkit/boxes/box_attributes.h"
#include "view/scope/expression_scope.h"

namespace brixen::zeve {

void CEveButtonPopup::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEvePopup::Prepare(viewAttributes, attributes);
    DefineSizeOr(viewAttributes, attributes, "height"_name, "gButtonPopupHeight"_name);
    DefineSizeOr(viewAttributes, attributes, "width"_name, "gButtonPopupWidth"_name);
}

void CEveButtonPopup::GetValue(EventRecord& record, bool) { CEvePopup::GetValue(record, false); }

} // namespace brixen::zeve
