#include "toolkit/numbers/number_field.h"

#include "toolkit/numbers/number_text.h"
#include "toolkit/numbers/number_value.h"
#include "values/unicode/ascii.h"
#include "values/unicode/character_borders.h"

#include <algorithm>
#include <utility>

namespace brixen::zeve {
namespace {

constexpr char kBothLimits[] =
    "$$$/brixen/zeve/error/out_of_range=A number between ^0 and ^1 is required.  Closest value inserted.";
constexpr char kOnlyMinimum[] =
    "$$$/brixen/zeve/error/min=A number more than ^0 is required.  Closest value inserted.";
constexpr char kOnlyMaximum[] =
    "$$$/brixen/zeve/error/max=A number less than ^0 is required.  Closest value inserted.";

constexpr std::int32_t kDecimalsOfClosest = 6;

std::optional<NumberLimit> LimitOf(std::string_view text) {
    if (text.empty()) return std::nullopt;
    return NumberLimit{FractionValue(text), std::string(text)};
}

// Returns the number of decimals of a decimal number with its point at `position`.
std::int32_t DecimalsAfter(std::string_view text, std::size_t position) {
    return static_cast<std::int32_t>(std::min<std::size_t>(text.size() - position - 1, INT32_MAX));
}

std::string WithoutBlanks(std::string text) {
    std::erase(text, ' ');
    return text;
}

std::string InSmallLetters(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), lyr::gen::ToAsciiLower<char>);
    return small;
}

// Whether the first point has up to three digits before it, which do not begin with 0, and three after it.
bool IsGrouped(std::string_view text) {
    constexpr std::size_t kGroup = 3;
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos) return false;
    std::size_t begin = point, end = point + 1;
    while (begin > 0 && lyr::gen::IsAsciiDigit(text[begin - 1])) --begin;
    while (end < text.size() && lyr::gen::IsAsciiDigit(text[end])) ++end;
    const std::size_t before = point - begin, after = end - point - 1;
    return before > 0 && before <= kGroup && text[begin] != '0' && after == kGroup;
}

bool HasDigitAt(std::string_view text, std::size_t place) {
    return place < text.size() && lyr::gen::IsAsciiDigit(text[place]);
}

// Whether blanks separate two digits otherwise than before a group of three: `1 1/2`, `3 2`, but not `4 000`.
bool IsSplit(std::string_view text) {
    constexpr std::size_t kGroup = 3;
    for (std::size_t blank = text.find(' '); blank != text.npos; blank = text.find(' ', blank)) {
        const std::size_t next = std::min(text.find_first_not_of(' ', blank), text.size());
        const std::size_t end = std::min(text.find_first_not_of("0123456789", next), text.size());
        if (blank > 0 && HasDigitAt(text, blank - 1) && end > next && end - next != kGroup) return true;
        blank = next;
    }
    return false;
}

void ReplaceFirst(std::string& text, std::string_view wanted, std::string_view replacement) {
    const std::size_t place = wanted.empty() ? std::string::npos : text.find(wanted);
    if (place != std::string::npos) text.replace(place, wanted.size(), replacement);
}

} // namespace

std::string RangeMessage(std::string_view message, const OutOfRange& outOfRange) {
    std::string text(message);
    const std::size_t first = text.find("^0"), second = text.find("^1");
    const auto replace = [&text](std::size_t place, const std::string& limit) {
        if (place != std::string::npos) text.replace(place, 2, limit);
    };
    // The later one goes first, so that the place of the other one stays.
    if (second != std::string::npos && (first == std::string::npos || first < second)) {
        replace(second, outOfRange.second);
        replace(first, outOfRange.first);
    } else {
        replace(first, outOfRange.first);
        replace(second, outOfRange.second);
    }
    return text;
}

NumberField::NumberField(const NumberFieldAttributes& attributes)
    : minimum(LimitOf(attributes.minimum)), maximum(LimitOf(attributes.maximum)) {
    if (!attributes.format.empty()) {
        format = NumberFormOf(attributes.format);
        precision = attributes.precision < 0 ? 1 : attributes.precision;
    }
    const std::size_t caret = attributes.addIn.find('^');
    if (caret == std::string_view::npos) return;
    prefix = attributes.addIn.substr(0, caret);
    const std::string_view place = attributes.addIn.substr(caret + 1);
    suffix = place.substr(lyr::gen::FirstCharacter(place).size());
}

std::string NumberField::SetValue(std::string_view value) {
    setValue = value;
    if (value.empty()) {
        valueFormat = format;
        valuePrecision = precision;
        shownText.clear();
        return {};
    }
    const auto [form, position] = ClassifyNumberText(value);
    valueFormat = form;
    if (form == NumberForm::kDecimal) valuePrecision = DecimalsAfter(value, position);
    const NumberConversion conversion{form, format, valuePrecision, precision, IsApex(format)};
    shownNumber = ConvertNumberText(value, conversion, isBeyondScale).value_or("");
    shownText = isBeyondScale ? shownNumber : prefix + shownNumber + suffix;
    return shownText;
}

std::string NumberField::WithoutAddIn(std::string_view text) const {
    const std::size_t begin = prefix.empty() ? std::string_view::npos : text.find(prefix);
    if (begin != std::string_view::npos) text.remove_prefix(begin + prefix.size());
    const std::size_t end = suffix.empty() ? std::string_view::npos : text.find(suffix);
    return std::string(text.substr(0, end));
}

bool NumberField::HasMoreThanAddIn(std::string_view text) const {
    const auto isBlank = [](std::string_view part) { return part.find_first_not_of(' ') == part.npos; };
    const std::size_t begin = prefix.empty() ? std::string_view::npos : text.find(prefix);
    if (begin != std::string_view::npos && !isBlank(text.substr(0, begin))) return true;
    const std::size_t end = suffix.empty() ? std::string_view::npos : text.find(suffix);
    return end != std::string_view::npos && !isBlank(text.substr(end + suffix.size()));
}

// Expects a text without blanks.
std::string NumberField::WithoutLooseAddIn(std::string_view text) const {
    const std::string small = InSmallLetters(text);
    const std::string before = InSmallLetters(WithoutBlanks(prefix));
    const std::string after = InSmallLetters(WithoutBlanks(suffix));
    if (small.ends_with(after)) text.remove_suffix(after.size());
    if (small.starts_with(before)) text.remove_prefix(std::min(before.size(), text.size()));
    return std::string(text);
}

// The whole text is compared too: the end mark of a scale, or a stray add-in, can hold what reads as a
// suffix or as the decimal sign.
bool NumberField::IsEdited(std::string_view controlText, std::string_view number) const {
    return number != WithoutBlanks(shownNumber) && controlText != shownText;
}

NumberField::Shown NumberField::ReadShown(std::string_view controlText, std::string_view decimalSign) const {
    const std::string_view sign = lyr::gen::FirstCharacter(decimalSign);
    std::string number = WithoutBlanks(WithoutAddIn(controlText));
    const bool isGrouped = sign != "." && IsGrouped(number);
    ReplaceFirst(number, sign, ".");
    if (!IsEdited(controlText, number)) return {std::move(number), false, false};
    if (IsSplit(WithoutAddIn(controlText)) || HasMoreThanAddIn(controlText))
        return {std::string(controlText), true, false};
    return {WithoutLooseAddIn(number), true, isGrouped};
}

NumberField::Reading NumberField::Read(std::string_view controlText, std::string_view decimalSign) {
    std::string text = WithoutBlanks(WithoutAddIn(controlText));
    ReplaceFirst(text, lyr::gen::FirstCharacter(decimalSign), ".");
    const bool isEdited = IsEdited(controlText, text);
    auto [form, position] = ClassifyNumberText(text);
    std::int32_t decimals = 0;
    if (form == NumberForm::kDecimal) {
        decimals = DecimalsAfter(text, position);
        valuePrecision = std::max(valuePrecision, decimals);
        if (valueFormat == NumberForm::kWhole) valueFormat = NumberForm::kDecimal;
    }
    if (setValue.empty()) valueFormat = form;
    if (!isEdited) return {setValue, std::nullopt, {}};

    Reading reading;
    if (!IsApex(format)) reading.outOfRange = RangeCheck(text);
    if (reading.outOfRange) {
        reading.closest = text;
        const ClassifiedNumber closest = ClassifyNumberText(text);
        form = closest.form;
        decimals = DecimalsAfter(text, closest.position);
    }
    // A text typed into a photographic field is a time or an f-number, not a logarithm.
    const NumberConversion conversion{form, valueFormat, decimals, valuePrecision, false};
    reading.value = ConvertNumberText(text, conversion, isBeyondScale).value_or("");
    return reading;
}

std::optional<OutOfRange> NumberField::RangeCheck(std::string& text) const {
    const double value = FractionValue(text);
    const bool isTooSmall = minimum && minimum->value > value;
    if (!isTooSmall && !(maximum && value > maximum->value)) return std::nullopt;
    text = DecimalText(isTooSmall ? minimum->value : maximum->value, kDecimalsOfClosest);
    if (!maximum) return OutOfRange{kOnlyMinimum, minimum->text, {}};
    if (!minimum) return OutOfRange{kOnlyMaximum, maximum->text, maximum->text};
    return OutOfRange{kBothLimits, minimum->text, maximum->text};
}

} // namespace brixen::zeve
