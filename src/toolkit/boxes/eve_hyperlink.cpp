#include "toolkit/boxes/eve_hyperlink.h"

#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"
#include "view/scope/expression_scope.h"

namespace brixen::zeve {

void CEveHyperlink::Fill(const CExpressionScope& attributes) {
    MakeControl(*this, attributes, {u"static", style::kChild, FieldStyle(attributes, extended::kTopMost)});
}

} // namespace brixen::zeve
