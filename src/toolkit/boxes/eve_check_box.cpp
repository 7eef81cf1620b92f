#include "toolkit/boxes/eve_check_box.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/control_styles.h"

namespace brixen::zeve {

namespace {

constexpr std::int16_t kCheckBoxGrowth = 2;

} // namespace

CEveBox* CEveCheckBox::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    Bind(attributes, parentBox);
    height = CutTo16(height + kCheckBoxGrowth);
    width = CutTo16(width + kCheckBoxGrowth);
    MakeMarkControl(attributes,
                    {u"button", style::kChild | style::kTabStop | style::kAutoCheckBox, extended::kTopMost});
    return this;
}

} // namespace brixen::zeve
