#include "toolkit/boxes/eve_static_text_enum.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/control_value.h"
#include "toolkit/event_record.h"
#include "view/scope/expression_scope.h"

namespace brixen::zeve {

void CEveStaticTextEnum::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveStaticText::Prepare(viewAttributes, attributes);
    CopyString(attributes, viewAttributes, "items"_name);
    nameText.clear();
}

CEveBox* CEveStaticTextEnum::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    nameKey.clear(); // the name gives the label its width, and is never shown
    nameText.clear();
    fItemsKey = attributes.GetStringOr("items"_name, "");
    fItems = ParseItemList(ShownText(fItemsKey), Separators::Keep);
    MakeLabel(attributes);
    return this;
}

void CEveStaticTextEnum::SetValue(const EventRecord& record) {
    const std::string_view value = RecordText(ReadTextOrFourCharCode(record, kKeySetValue));
    if (value == kKeepSelection) return;
    const ListItem* item = FindItemByValue(fItems, value);
    if (!item && !fItems.empty() && !fItems.front().label.empty()) item = &fItems.front();
    if (item) fValue = item->value;
    nameText = item ? item->label : std::string();
    SetTextById(*this, nameText);
}

void CEveStaticTextEnum::GetValue(EventRecord& record, bool) {
    if (fValue) StoreNewText(record, *fValue);
}

void CEveStaticTextEnum::RefreshText() {
    fItems = ParseItemList(ShownText(fItemsKey), Separators::Keep);
    const ListItem* item = fValue ? FindItemByValue(fItems, *fValue) : nullptr;
    nameText = item ? item->label : std::string();
    CEveBox::RefreshText();
}

} // namespace brixen::zeve
