#include "toolkit/boxes/eve_popup.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/boxes/text_measure.h"
#include "toolkit/control_styles.h"
#include "toolkit/event_record.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/text_conversion.h"

namespace brixen::zeve {

namespace {

constexpr std::int64_t kItemHeight = 13;
constexpr std::int64_t kDefaultVisibleItems = 30;

constexpr std::uint32_t kPopupStyle =
    style::kChild | style::kVerticalScroll | style::kTabStop | style::kDropDownList;

// The height of the open list, in pixels; the system decides that of the closed field.
std::int16_t OpenHeight(const CExpressionScope& attributes) {
    const std::int64_t rows = attributes.GetLongOr("max_visible_items"_name, kDefaultVisibleItems);
    return static_cast<std::int16_t>((static_cast<std::uint64_t>(rows) + 2) * kItemHeight);
}

} // namespace

void CEvePopup::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    windowsOfControl = 2; // the field and its open list
    CopyString(attributes, viewAttributes, "items"_name);
    CopyNumber(attributes, viewAttributes, "max_visible_items"_name);
    CopyBoolean(attributes, viewAttributes, "rtl_aware"_name);
    DefineSizeOr(viewAttributes, attributes, "height"_name, "gPopupHeight"_name);
    std::int64_t fieldWidth = viewAttributes.GetLongOr("width"_name, 0);
    const std::string list = ShownText(viewAttributes.GetStringOr("items"_name, ""));
    SpendItems(*this, list);
    if (fieldWidth == 0) {
        const std::int64_t textWidth = MeasureLongestItem(*this, list).width;
        width = CutTo16(textWidth);
        fieldWidth = textWidth + kTextMargins;
    }
    attributes.DefineNumber("width"_name, fieldWidth);
}

CEveBox* CEvePopup::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    height = OpenHeight(attributes);
    MakeControlWithSubCheck(*this, attributes,
                            {u"combobox", kPopupStyle, FieldStyle(attributes, extended::kField)},
                            WantsSubCheck(*this) && !ignoresSubCheck);
    itemsKey = attributes.GetStringOr("items"_name, "");
    Fill();
    platform::Send(control, kComboSetSelection, 0, 0);
    return this;
}

void CEvePopup::Fill() {
    items = ParseItemList(ShownText(itemsKey), Separators::kDrop);
    for (const ListItem& item : items) {
        const std::u16string label = lyr::gen::ToUtf16(item.label, true);
        platform::Send(control, kComboAddString, 0, reinterpret_cast<std::intptr_t>(label.c_str()));
    }
}

void CEvePopup::SetValue(const EventRecord& record) { Select(ReadTextOrFourCharCode(record, kKeySetValue)); }

void CEvePopup::Select(std::string_view value) {
    if (value == kKeepSelection) return;
    const ListItem* item = FindItemByValue(items, value);
    const auto index = item ? static_cast<std::uintptr_t>(item - items.data()) : 0;
    platform::Send(control, kComboSetSelection, index, 0);
}

const ListItem* CEvePopup::SelectedItem() const {
    const std::intptr_t index = platform::Send(control, kComboGetSelection, 0, 0);
    if (index < 0 || static_cast<std::size_t>(index) >= items.size()) return nullptr;
    return &items[static_cast<std::size_t>(index)];
}

void CEvePopup::GetValue(EventRecord& record, bool honorSubCheck) {
    if (honorSubCheck && !ignoresSubCheck && !GetSubCheck()) return;
    if (!control) return;
    if (const ListItem* item = SelectedItem()) StoreNewText(record, item->value);
}

void CEvePopup::RefreshText() {
    CEveBox::RefreshText();
    const ListItem* item = control ? SelectedItem() : nullptr;
    const std::string value = item ? item->value : std::string();
    platform::Send(control, kComboResetContent, 0, 0);
    Fill();
    if (!value.empty()) Select(value);
}

} // namespace brixen::zeve
