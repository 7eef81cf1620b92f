// Numbers read from texts and written into texts. The locale of the process does not matter.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brixen::zeve {

// Reads the number at the beginning of a text: blanks, a sign, digits with a point among them, an exponent.
// The rest is ignored. A text without a number reads as 0, and so do `inf`, `nan` and hexadecimal digits. A
// number beyond the range of double is the largest one, or 0 if it is too small.
double ParseNumber(std::string_view text);

// Returns the part before the first `/` divided by the part after it, which counts as 1 if it reads as 0. A
// text without `/` is one number. The result is always finite.
double FractionValue(std::string_view text);

// Rounds to that many decimals, halves away from zero; to a whole number for fewer than one.
double RoundToDigits(std::int32_t digits, double value);

// Appends a finite number with that many decimals; none for fewer than one. At most 1,074 are written: all
// further decimals of a double are 0.
void AppendDecimal(std::string& text, double value, std::int32_t digits);
std::string DecimalText(double value, std::int32_t digits);

} // namespace brixen::zeve
