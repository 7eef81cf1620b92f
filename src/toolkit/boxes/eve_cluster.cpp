#include "toolkit/boxes/eve_cluster.h"

#include "toolkit/boxes/control_maker.h"
#include "toolkit/view_constants.h"
#include "view/scope/expression_scope.h"

namespace brixen::zeve {

void CEveCluster::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    const std::int64_t least = Metric(viewAttributes, "gMediumSpace"_name);
    if (viewAttributes.GetLongOr("margin"_name, 0) < least) attributes.DefineNumber("margin"_name, least);
}

CEveBox* CEveCluster::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeGroupBox(*this, attributes);
    return this;
}

} // namespace brixen::zeve
