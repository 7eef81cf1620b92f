#include "toolkit/boxes/eve_empty.h"

#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"
#include "view/scope/expression_scope.h"

namespace brixen::zeve {

void CEveEmpty::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    CopyBoolean(attributes, viewAttributes, "create_user_pane"_name);
    windowsOfControl = attributes.GetBooleanOr("create_user_pane"_name, false) ? 1 : 0;
}

CEveBox* CEveEmpty::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    if (windowsOfControl > 0) {
        MakeControl(*this, attributes,
                    {u"static", style::kChild | style::kStaticFrame, extended::kControlParent});
    }
    return this;
}

} // namespace brixen::zeve
