#include "workflow/panes/number_fields.h"

#include "toolkit/dialog/zeve_dialog.h"
#include "toolkit/kept_exception.h"
#include "toolkit/platform/toolkit_platform.h"
#include "values/unicode/text_conversion.h"
#include "workflow/panes/pane_helpers.h"

#include <charconv>
#include <cstdint>
#include <numeric>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

namespace toolkit_platform = zeve::platform;

namespace {

constexpr std::size_t kDecimals = 6; // of the closest number that a field shows
constexpr std::int64_t kMillion = 1'000'000;
constexpr std::size_t kDigitsOfInteger = 18; // all of them fit into 64 bits

std::string WithoutEndZeros(std::string number) {
    number.erase(number.find_last_not_of('0') + 1);
    if (number.ends_with('.')) number.pop_back();
    return number;
}

// Returns a number with six decimals as a fraction in lowest terms, or as it is if it is too long for that.
std::string ReducedFraction(const std::string& number) {
    std::string digits = number;
    std::erase(digits, '.');
    if (digits.size() > kDigitsOfInteger) return number;
    std::int64_t millionths = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), millionths);
    const std::int64_t divisor = std::gcd(millionths, kMillion);
    return std::to_string(millionths / divisor) + "/" + std::to_string(kMillion / divisor);
}

// Returns the number that the field shows after a correction, without needless digits and in the form of
// `value`, which the field has returned for it. The value itself may be rounded out of range.
std::string ClosestNumber(std::u16string_view shown, const std::string& value) {
    const std::string number = lyr::gen::ToUtf8(shown);
    const std::size_t point = number.find('.');
    // The host is told of the correction, and may have set another value.
    if (point == number.npos || number.size() != point + 1 + kDecimals) return value;
    if (value.find('/') != value.npos) return ReducedFraction(number);
    std::string shortest = WithoutEndZeros(number);
    if (value.find(':') != value.npos) return shortest + ":1";
    const bool lostPoint = shortest.find('.') == shortest.npos && value.find('.') != value.npos;
    return lostPoint ? shortest + ".0" : shortest;
}

} // namespace

std::optional<std::string> NumberFieldReader::Read(std::uint16_t viewId) {
    const zeve::NativeWindow field = toolkit_platform::ChildWithId(zeve::ZeveTopWindow(dialog), viewId);
    if (hasCorrected || !field) return std::nullopt;
    const std::u16string before = toolkit_platform::TextOf(field);
    std::optional<std::string> value = zeve::ZeveGetValue(dialog, viewId, true).text;
    hasCorrected = toolkit_platform::TextOf(field) != before;
    if (!hasCorrected) return value && !value->empty() ? value : std::nullopt;
    // The host ran during the message. If it destroyed the field, the dialog may be gone too.
    if (!toolkit_platform::IsWindowAlive(field)) return std::nullopt;
    // The field shows six decimals now. Set as a value, the number has the format of the field.
    if (value) SetControlText(dialog, viewId, ClosestNumber(toolkit_platform::TextOf(field), *value));
    toolkit_platform::Focus(field);
    zeve::ThrowKeptException();
    return std::nullopt;
}

} // namespace brixen::pvn::pvn_workflow
