#include "toolkit/boxes/eve_tab_group.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/boxes/item_list.h"
#include "toolkit/control_styles.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/text_conversion.h"
#include "view/scope/expression_scope.h"

#include <cstddef>
#include <string_view>

namespace brixen::zeve {

namespace {

constexpr std::size_t kItemsOfATab = 16; // the system lays out all tabs again for each

void InsertTabs(NativeWindow control, std::string_view names) {
    for (std::int32_t index = 0;; ++index) {
        const std::size_t end = names.find(';');
        platform::InsertTab(control, index, lyr::gen::ToUtf16(names.substr(0, end), true).c_str());
        if (end == std::string_view::npos) return;
        names.remove_prefix(end + 1);
    }
}

} // namespace

void CEveTabGroup::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    SpendItems(*this, ShownText(viewAttributes.GetStringOr("name"_name, "")), kItemsOfATab);
    DefineSizeOr(viewAttributes, attributes, "height"_name, "gTabsHeight"_name);
    attributes.DefineNumber("width"_name, viewAttributes.GetLongOr("width"_name, 0));
}

CEveBox* CEveTabGroup::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    MakeControl(*this, attributes,
                {u"SysTabControl32",
                 style::kChild | style::kVisible | style::kTabStop | (height > width ? style::kUpright : 0),
                 extended::kControlParent});
    InsertTabs(control, nameText);
    return this;
}

} // namespace brixen::zeve
