#include "toolkit/numbers/number_text.h"

#include "toolkit/numbers/apex.h"
#include "toolkit/numbers/number_value.h"
#include "values/unicode/character_borders.h"

#include <algorithm>

namespace brixen::zeve {
namespace {

std::string RoundedText(double value, std::int32_t digits) {
    return DecimalText(RoundToDigits(digits, value), digits);
}

// 12.34 is 1234/100.
std::string FractionOfDecimal(std::string_view text) {
    const std::size_t point = ClassifyNumberText(text).position;
    const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
    std::string fraction(text.substr(0, point));
    fraction.append(decimals).append("/1").append(decimals.size(), '0');
    return fraction;
}

std::string WithSlash(std::string_view ratio) {
    std::string fraction(ratio);
    const std::size_t colon = fraction.find(':');
    if (colon != std::string::npos) fraction[colon] = '/';
    return fraction;
}

std::string_view BeforeColon(std::string_view ratio) { return ratio.substr(0, ratio.find(':')); }

class Converter {
public:
    Converter(std::string_view text, const NumberConversion& conversion, bool& isBeyondScale)
        : text(text), conversion(conversion), isBeyondScale(isBeyondScale) {}

    std::optional<std::string> Run() {
        if (conversion.from == conversion.to) return InOneForm();
        switch (conversion.from) {
        case NumberForm::kWhole: return FromWhole();
        case NumberForm::kDecimal: return FromDecimal();
        case NumberForm::kFraction: return FromFraction();
        case NumberForm::kRatio: return FromRatio();
        default: return std::string(text);
        }
    }

private:
    std::optional<std::string> InOneForm() const {
        if (IsApex(conversion.to) || conversion.to == NumberForm::kUnknown) return std::nullopt;
        if (conversion.to != NumberForm::kDecimal || conversion.fromPrecision == conversion.toPrecision)
            return std::string(text);
        return RoundedText(ParseNumber(text), conversion.toPrecision);
    }

    std::string FromWhole() {
        if (conversion.to == NumberForm::kDecimal)
            return RoundedText(ParseNumber(text), conversion.toPrecision);
        if (WantsFraction()) return Fraction(std::string(text) + "/1");
        return AsRatioOrUnchanged();
    }

    std::string FromDecimal() {
        if (conversion.to == NumberForm::kWhole) return RoundedText(ParseNumber(text), 0);
        if (WantsFraction()) return Fraction(FractionOfDecimal(text));
        return AsRatioOrUnchanged();
    }

    std::string FromFraction() {
        if (conversion.isApex) return Fraction(std::string(text));
        if (conversion.to == NumberForm::kWhole) return RoundedText(FractionValue(text), 0);
        if (conversion.to == NumberForm::kDecimal)
            return RoundedText(FractionValue(text), conversion.toPrecision);
        return AsRatioOrUnchanged();
    }

    std::string FromRatio() {
        if (conversion.to == NumberForm::kWhole) return std::string(BeforeColon(text));
        if (conversion.to == NumberForm::kDecimal)
            return RoundedText(ParseNumber(BeforeColon(text)), conversion.toPrecision);
        if (WantsFraction()) return Fraction(WithSlash(text));
        return std::string(text);
    }

    bool WantsFraction() const { return conversion.to == NumberForm::kFraction || conversion.isApex; }
    std::string Fraction(std::string fraction) {
        if (conversion.isApex) return ApexFormat(fraction, conversion.to, isBeyondScale);
        return fraction;
    }
    std::string AsRatioOrUnchanged() const {
        return conversion.to == NumberForm::kRatio ? std::string(text) + ":1" : std::string(text);
    }

    std::string_view text;
    const NumberConversion& conversion;
    bool& isBeyondScale;
};

} // namespace

std::optional<std::string> ConvertNumberText(std::string_view text, const NumberConversion& conversion,
                                             bool& isBeyondScale) {
    auto result = Converter(text, conversion, isBeyondScale).Run();
    if (result) result->resize(lyr::gen::CutToBytes(*result, kLongestNumberText).size());
    return result;
}

} // namespace brixen::zeve
