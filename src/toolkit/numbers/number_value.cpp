#include "toolkit/numbers/number_value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace brixen::zeve {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr std::int32_t kMostDecimals = 1074;

constexpr bool IsDigit(char letter) { return letter >= '0' && letter <= '9'; }

std::string_view SkipBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
}

std::int64_t ReadExponent(std::string_view text) {
    if (text.empty() || (text.front() != 'e' && text.front() != 'E')) return 0;
    text.remove_prefix(1);
    if (text.starts_with("+-")) return 0;
    if (text.starts_with('+')) text.remove_prefix(1);
    std::int64_t exponent = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), exponent);
    if (read.ec != std::errc::result_out_of_range) return exponent;
    return text.front() == '-' ? std::numeric_limits<std::int32_t>::min()
                               : std::numeric_limits<std::int32_t>::max();
}

// Whether a number beyond the range of double is too large, and not too small. One of its digits is not 0.
bool IsTooLarge(std::string_view digits) {
    const std::size_t first = digits.find_first_of("123456789");
    const std::size_t last = std::min(digits.find_first_not_of("0123456789."), digits.size());
    const std::size_t point = std::min(digits.find('.'), last);
    const auto scale = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
    return scale + ReadExponent(digits.substr(last)) > 0;
}

// Reads a text that begins with a digit or a point.
double ReadDigits(std::string_view text) {
    double value = 0;
    const auto read =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::general);
    if (read.ec != std::errc::result_out_of_range) return value;
    return IsTooLarge(text) ? kLargest : 0;
}

} // namespace

double ParseNumber(std::string_view text) {
    text = SkipBlanks(text);
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) text.remove_prefix(1);
    if (text.empty() || (!IsDigit(text.front()) && text.front() != '.')) return 0;
    const double value = ReadDigits(text);
    return isNegative ? -value : value;
}

double FractionValue(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) return ParseNumber(text);
    const double divisor = ParseNumber(text.substr(slash + 1));
    const double value = ParseNumber(text.substr(0, slash)) / (divisor == 0 ? 1 : divisor);
    return std::clamp(value, -kLargest, kLargest);
}

double RoundToDigits(std::int32_t digits, double value) {
    const double factor = digits < 1 ? 1 : std::pow(10.0, digits);
    const double scaled = value * factor;
    // A number that large has no further digits.
    if (!std::isfinite(scaled)) return value;
    const double rounded = scaled < 0 ? -std::floor(0.5 - scaled) : std::floor(scaled + 0.5);
    return rounded / factor;
}

void AppendDecimal(std::string& text, double value, std::int32_t digits) {
    char room[std::numeric_limits<double>::max_exponent10 + kMostDecimals + 8];
    const auto written = std::to_chars(room, room + sizeof room, value, std::chars_format::fixed,
                                       std::clamp(digits, 0, kMostDecimals));
    text.append(room, written.ptr);
}

std::string DecimalText(double value, std::int32_t digits) {
    std::string text;
    AppendDecimal(text, value, digits);
    return text;
}

} // namespace brixen::zeve
