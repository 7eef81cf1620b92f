// The forms in which a number field holds and shows its number.
#pragma once

#include <cstddef>
#include <string_view>

namespace brixen::zeve {

// The first four are forms of texts. The APEX forms are only shown: the field then holds a logarithm.
enum class NumberForm {
    kWhole,
    kDecimal,
    kFraction,
    kRatio,
    kApexAperture,
    kApexShutterSpeed,
    kApexBrightness,
    kUnknown, // any other name; such a value is shown as it is
};

// Returns the form with that name, as the attribute `format` spells it: "apex_aperture", for example.
NumberForm NumberFormOf(std::string_view name);
bool IsApex(NumberForm form);

struct ClassifiedNumber {
    NumberForm form;
    // Of the sign that decides the form, or of the first `:` if there is one. 0 for a whole number.
    std::size_t position;
};

// Classifies a text by its signs alone; the text need not be a number.
ClassifiedNumber ClassifyNumberText(std::string_view text);

} // namespace brixen::zeve
