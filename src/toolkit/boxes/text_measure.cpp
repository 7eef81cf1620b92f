#include "toolkit/boxes/text_measure.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/box_font.h"
#include "toolkit/boxes/eve_box.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/text_conversion.h"
#include "view/scope/expression_scope.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string>

namespace brixen::zeve {

namespace {

struct FontDeleter {
    using pointer = NativeFont;
    void operator()(NativeFont font) const noexcept { platform::DeleteFont(font); }
};
using OwnedFont = std::unique_ptr<NativeFontTag, FontDeleter>;

// Enough for any line; a longer text is handed over in parts, so that measuring stays linear in its length.
constexpr std::size_t kLineUnits = 512;

// In units.
std::size_t LengthOfFirstCharacter(std::u16string_view text) { return lyr::gen::SplitsPair(text, 1) ? 2 : 1; }

platform::FittedText FitLine(NativeFont font, std::u16string_view text, std::int32_t width) {
    std::size_t units = std::min(text.size(), kLineUnits);
    for (;;) {
        const platform::FittedText fitted = platform::MeasureFitting(font, text.substr(0, units), width);
        if (fitted.units < units || units == text.size()) return fitted;
        units = std::min(text.size(), units * 2);
    }
}

// Where the first piece of the text ends. A width narrower than a character still takes one a line.
std::size_t PieceLength(std::u16string_view text, std::size_t fittedUnits) {
    const std::size_t units = lyr::gen::SplitsPair(text, fittedUnits) ? fittedUnits - 1 : fittedUnits;
    return std::max(units, LengthOfFirstCharacter(text));
}

platform::Extent MeasurePieces(NativeFont font, std::u16string_view text, std::int32_t width) {
    platform::Extent whole;
    while (!text.empty()) {
        platform::FittedText fitted = FitLine(font, text, width);
        const std::size_t length = PieceLength(text, fitted.units);
        if (length != fitted.units) fitted.extent = platform::MeasureText(font, text.substr(0, length));
        whole.width = std::max(whole.width, fitted.extent.width);
        whole.height += fitted.extent.height;
        text.remove_prefix(length);
    }
    return whole;
}

std::int32_t CutTo32(std::int64_t width) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(width, Limits::min(), Limits::max()));
}

// The longest entry between semicolons, the first of equals. The very last entry counts one byte short: kept.
std::string_view LongestEntry(std::string_view items) {
    std::string_view longest;
    std::ptrdiff_t longestLength = -1;
    for (std::size_t begin = 0;;) {
        const std::size_t end = items.find(';', begin);
        const bool isLast = end == std::string_view::npos;
        const std::string_view entry = items.substr(begin, isLast ? items.size() : end - begin);
        const auto length = static_cast<std::ptrdiff_t>(entry.size()) - (isLast ? 1 : 0);
        if (length > longestLength) {
            longest = entry;
            longestLength = length;
        }
        if (isLast) return longest;
        begin = end + 1;
    }
}

} // namespace

platform::Extent MeasureName(CEveBox& box, const CExpressionScope& viewAttributes, std::int64_t width) {
    box.nameText = ShownText(viewAttributes.GetStringOr("name"_name, ""));
    const std::string alternative = ShownText(viewAttributes.GetStringOr("alt_name"_name, ""));
    const std::string& measured = alternative.size() > box.nameText.size() ? alternative : box.nameText;
    LookUpBigFace();
    const OwnedFont font(MakeBoxFont(viewAttributes, platform::ScreenResolution()));
    const std::u16string text = lyr::gen::ToUtf16(measured, true);
    return width == 0 ? platform::MeasureText(font.get(), text)
                      : MeasurePieces(font.get(), text, CutTo32(width));
}

platform::Extent MeasureLongestItem(std::string_view items) {
    const OwnedFont font(MakeNarrowFont(platform::ScreenResolution()));
    return platform::MeasureText(font.get(), lyr::gen::ToUtf16(LongestEntry(items), true));
}

} // namespace brixen::zeve
