#include "toolkit/boxes/eve_static_text_enum.h"

#include "dictionaries/translation.h"
#include "toolkit/event_record.h"
#include "view/scope/expression_scope.h"

namespace brixen::zeve {

void CEveStaticTextEnum::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveStaticText::Prepare(viewAttributes, attributes);
    CopyString(attributes, viewAttributes, "items"_name);
    SpendItems(*this, ShownText(attributes.GetStringOr("items"_name, "")));
    nameText.clear();
}

CEveBox* CEveStaticTextEnum::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    Bind(attributes, parentBox);
    nameKey.clear(); // the name is only measured, never shown
    nameText.clear();
    itemsKey = attributes.GetStringOr("items"_name, "");
    items = ParseItemList(ShownText(itemsKey), Separators::kKeep);
    MakeLabel(attributes);
    return this;
}

void CEveStaticTextEnum::SetValue(const EventRecord& record) {
    const std::string_view value = ReadTextOrFourCharCode(record, kKeySetValue);
    if (value == kKeepSelection) return;
    const ListItem* item = FindItemByValue(items, value);
    if (!item && !items.empty() && !items.front().label.empty()) item = &items.front();
    if (item) selectedValue = item->value;
    nameText = item ? item->label : std::string();
    SetTextById(nameText);
}

void CEveStaticTextEnum::GetValue(EventRecord& record, bool) {
    if (selectedValue) StoreNewText(record, *selectedValue);
}

void CEveStaticTextEnum::RefreshText() {
    items = ParseItemList(ShownText(itemsKey), Separators::kKeep);
    const ListItem* item = selectedValue ? FindItemByValue(items, *selectedValue) : nullptr;
    nameText = item ? item->label : std::string();
    CEveBox::RefreshText();
}

} // namespace brixen::zeve
