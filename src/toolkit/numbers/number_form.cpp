#include "toolkit/numbers/number_form.h"

#include <utility>

namespace brixen::zeve {

NumberForm NumberFormOf(std::string_view name) {
    constexpr std::pair<std::string_view, NumberForm> kNames[] = {
        {"whole", NumberForm::kWhole},
        {"decimal", NumberForm::kDecimal},
        {"fraction", NumberForm::kFraction},
        {"ratio", NumberForm::kRatio},
        {"apex_aperture", NumberForm::kApexAperture},
        {"apex_shutterspeed", NumberForm::kApexShutterSpeed},
        {"apex_brightness", NumberForm::kApexBrightness},
    };
    for (const auto& [known, form] : kNames) {
        if (known == name) return form;
    }
    return NumberForm::kUnknown;
}

bool IsApex(NumberForm form) {
    return form == NumberForm::kApexAperture || form == NumberForm::kApexShutterSpeed ||
           form == NumberForm::kApexBrightness;
}

ClassifiedNumber ClassifyNumberText(std::string_view text) {
    const std::size_t colon = text.find(':');
    const auto at = [colon](std::size_t sign) { return colon == std::string_view::npos ? sign : colon; };
    const std::size_t slash = text.find('/');
    if (slash != std::string_view::npos) return {NumberForm::kFraction, at(slash)};
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos) return {NumberForm::kDecimal, at(point)};
    if (colon != std::string_view::npos) return {NumberForm::kRatio, colon};
    return {NumberForm::kWhole, 0};
}

} // namespace brixen::zeve
