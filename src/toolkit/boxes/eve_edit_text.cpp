#include "toolkit/boxes/eve_edit_text.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/box_attributes.h"
#include "toolkit/boxes/control_maker.h"
#include "toolkit/boxes/text_measure.h"
#include "toolkit/control_styles.h"
#include "toolkit/event_record.h"
#include "toolkit/message_numbers.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/text_conversion.h"
#include "view/scope/expression_scope.h"
#include "view/scope/system_budget.h"

#include <algorithm>

namespace brixen::zeve {

namespace {

constexpr std::string_view kNotAsciiMessage =
    "$$$/brixen/zeve/error/not_7bit_ascii=Please enter only 7-bit ASCII characters in this field.";

std::uint32_t EditStyle(const CExpressionScope& attributes, bool isReadOnly) {
    std::uint32_t editStyle = style::kChild | style::kTabStop | style::kEditWantReturn;
    editStyle |= attributes.GetBooleanOr("v_scroller"_name, false)
                     ? style::kVerticalScroll | style::kEditAutoVerticalScroll | style::kEditMultiline
                     : style::kEditAutoHorizontalScroll;
    if (attributes.GetBooleanOr("password"_name, false)) editStyle |= style::kEditPassword;
    if (isReadOnly) editStyle |= style::kEditReadOnly;
    return editStyle;
}

bool MayBreakLines(const CExpressionScope& attributes) {
    return attributes.GetBooleanOr("v_scroller"_name, false) || attributes.HasVariable("win_style"_name);
}

// The generator spends each byte once; the lines of a field that breaks them are spent here.
void SpendFurtherLines(SystemBudget& budget, std::string_view text, std::int64_t fieldWidth) {
    constexpr std::size_t kTypicalWidth = 8; // of a byte, in pixels
    constexpr std::size_t kBytesOfALine = 16;
    const auto width = static_cast<std::size_t>(std::max<std::int64_t>(fieldWidth, 1));
    while (!text.empty()) {
        const std::size_t paragraph = std::min(text.find('\n'), text.size());
        const std::size_t furtherLines = paragraph * kTypicalWidth / width;
        Spend(budget.shownBytes, paragraph * furtherLines + (furtherLines + 1) * kBytesOfALine);
        text.remove_prefix(std::min(paragraph + 1, text.size()));
    }
}

bool IsAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char byte) { return byte & 0x80; });
}

} // namespace

void CEveEditText::Prepare(CExpressionScope& viewAttributes, CExpressionScope& attributes) {
    CEveBox::Prepare(viewAttributes, attributes);
    std::int64_t fieldWidth = viewAttributes.GetLongOr("width"_name, 0);
    if (fieldWidth == 0) fieldWidth = MeasureName(*this, viewAttributes, 0).width + kTextMargins;
    CopyBooleans(attributes, viewAttributes,
                 {"v_scroller"_name, "password"_name, "locked"_name, "rtl_aware"_name});
    CopyNumber(attributes, viewAttributes, "max_chars"_name);
    testsAscii = viewAttributes.HasVariable("seven_bit_ascii"_name);
    if (budget != nullptr && MayBreakLines(attributes))
        SpendFurtherLines(*budget, ShownText(viewAttributes.GetStringOr("name"_name, "")), fieldWidth);
    attributes.DefineNumber("width"_name, fieldWidth);
    DefineSizeOr(viewAttributes, attributes, "height"_name, "gEditTextHeight"_name);
}

CEveBox* CEveEditText::Create(CExpressionScope& attributes, CEveBox* parentBox) {
    CEveBox::Create(attributes, parentBox);
    // A read-only field stays enabled, so that it can be scrolled and copied from.
    if (readOnly) honoursReadOnly = false;
    MakeControlWithSubCheck(
        *this, attributes,
        {u"edit", EditStyle(attributes, readOnly), FieldStyle(attributes, extended::kField)},
        WantsSubCheck(*this));
    platform::TakeEditProcedure(control, this);
    const std::int64_t limit = attributes.GetLongOr("max_chars"_name, 0);
    if (limit > 0) platform::Send(control, kEditSetLimitText, static_cast<std::uintptr_t>(limit), 0);
    return this;
}

void CEveEditText::SetValue(const EventRecord& record) { SetTextById(ReadText(record, kKeySetValue)); }

void CEveEditText::GetValue(EventRecord& record, bool honorSubCheck) {
    if ((honorSubCheck && !GetSubCheck()) || !control || readOnly) return;
    const std::string text = TextById();
    if (testsAscii && !IsAscii(text)) {
        platform::ShowErrorMessage(TopLevelWindow(),
                                   lyr::gen::ToUtf16(ShownText(kNotAsciiMessage), true).c_str());
        return;
    }
    StoreNewText(record, text);
}

} // namespace brixen::zeve
