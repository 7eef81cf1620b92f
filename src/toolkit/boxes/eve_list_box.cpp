#include "toolkit/boxes/eve_list_box.h"

#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/control_styles.h"

namespace brixen::zeve {

namespace {

constexpr std::int16_t kListGrowth = 14;

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

} // namespace brixen::zeve
