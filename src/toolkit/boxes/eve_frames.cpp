#include "toolkit/boxes/eve_frames.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"
#include "toolkit/view_constants.h"
#include "view/scope/expression_scope.h"

namespace brixen::zeve {

namespace {

constexpr ControlKind kGroupBox = {u"button", style::kChild | style::kGroupBox, extended::kControlParent};

} // namespace

CEveBox* CEveRadioGroup::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes, kGroupBox);
    return this;
}

void CEveCluster::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    const std::int64_t least = Metric(viewAttributes, "gMediumSpace"_name);
    if (viewAttributes.GetLongOr("margin"_name, 0) < least) attributes.DefineNumber("margin"_name, least);
}

CEveBox* CEveCluster::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes, kGroupBox);
    return this;
}

void CEveSeparator::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    DefineBarSize(viewAttributes, attributes, "gSeparatorHeight"_name);
}

CEveBox* CEveSeparator::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes, {u"static", style::kChild | style::kStaticEtchedLine, extended::kTopMost});
    return this;
}

} // namespace brixen::zeve
