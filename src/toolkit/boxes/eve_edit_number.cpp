#include "toolkit/boxes/eve_edit_number.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/box_attributes.h"
#include "toolkit/event_record.h"
#include "toolkit/numbers/number_text.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/text_conversion.h"
#include "view/scope/expression_scope.h"

#include <utility>

namespace brixen::zeve {
namespace {

constexpr std::size_t kRoomForNumber =
    kLongestNumberText + 1; // bytes; the reader of the record may rely on it

// Kept: the further bits of the number do not count.
std::int32_t LowBits(std::int64_t number) { return static_cast<std::int32_t>(number); }

void ShowRangeMessage(NativeWindow owner, const OutOfRange& outOfRange) {
    const std::string message = RangeMessage(ShownText(outOfRange.messageKeyText), outOfRange);
    platform::ShowErrorMessage(owner, lyr::gen::ToUtf16(message, true).c_str());
}

} // namespace

void CEveEditNumber::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveEditText::Prepare(viewAttributes, attributes);
    CopyStrings(attributes, viewAttributes,
                {"min_value"_name, "max_value"_name, "format"_name, "format_addin"_name});
    CopyNumber(attributes, viewAttributes, "precision"_name);
    const std::string minimum(viewAttributes.GetStringOr("min_value"_name, ""));
    const std::string maximum(viewAttributes.GetStringOr("max_value"_name, ""));
    const std::string format(viewAttributes.GetStringOr("format"_name, ""));
    const std::string addIn = ShownText(viewAttributes.GetStringOr("format_addin"_name, ""));
    field = NumberField({.minimum = minimum,
                         .maximum = maximum,
                         .format = format,
                         .precision = LowBits(viewAttributes.GetLongOr("precision"_name, 1)),
                         .addIn = addIn});
}

void CEveEditNumber::SetValue(const EventRecord& record) {
    if (!control) return;
    NumberField changed = field;
    const std::string shown = changed.SetValue(ReadText(record, kKeySetValue));
    const std::u16string text = lyr::gen::ToUtf16(shown, true);
    // The host may read or delete the field while the control takes the text, so nothing is changed after it.
    field = std::move(changed);
    platform::SetControlText(platform::TopLevelOf(control), viewId, text.c_str());
}

void CEveEditNumber::GetValue(EventRecord& record, bool honorSubCheck) {
    // Intentional: a missing sub check withholds nothing here; that of a field for texts does.
    if (checkBoxAware && honorSubCheck && subControl && !GetSubCheck()) return;
    if (!control || readOnly) return;
    const std::string text = TextById();
    if (text.empty()) return;
    const NumberField::Reading reading = field.Read(text, platform::DecimalSign());
    if (reading.outOfRange) {
        const NativeWindow owner = control;
        ShowRangeMessage(owner, *reading.outOfRange);
        // The host ran meanwhile. It may have deleted the dialog, and this box with it.
        if (platform::IsWindowAlive(owner)) SetTextById(reading.closest);
    }
    StoreNewTextWithRoom(record, reading.value, kRoomForNumber);
}

NumberField::Shown CEveEditNumber::ShownNumber() const {
    return field.ReadShown(TextById(), platform::DecimalSign());
}

} // namespace brixen::zeve
