#include "toolkit/boxes/text_measure.h"

#include "dictionaries/translation.h"
#include "toolkit/boxes/box_font.h"
#include "toolkit/boxes/eve_box.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/text_conversion.h"
#include "view/scope/expression_scope.h"
#include "view/scope/system_budget.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace brixen::zeve {

namespace {

struct FontDeleter {
    using pointer = NativeFont;
    void operator()(NativeFont font) const noexcept { platform::DeleteFont(font); }
};
using OwnedFont = std::unique_ptr<NativeFontTag, FontDeleter>;

constexpr std::int32_t kTypicalWidth = 8; // of a unit, in pixels, for the first guess
constexpr std::size_t kSpareUnits = 2;
constexpr std::size_t kUnitsOfACall = 16; // as long as it takes to measure these

// Measures for a box, at the cost of the run that prepares it.
class BoxMeter {
public:
    BoxMeter(const CEveBox& box, NativeFont font) : budget(box.budget), meter(font) {}

    platform::Extent MeasureText(std::u16string_view text) const {
        SpendFor(text);
        return meter.MeasureText(text);
    }
    std::int32_t MeasureBeginnings(std::u16string_view text, std::vector<std::int32_t>& widths) const {
        SpendFor(text);
        widths.assign(text.size(), 0);
        return meter.MeasureBeginnings(text, widths.data());
    }

private:
    void SpendFor(std::u16string_view text) const {
        if (budget != nullptr) Spend(budget->measuredUnits, text.size() + kUnitsOfACall);
    }

    SystemBudget* budget;
    platform::TextMeter meter;
};

struct FittedText {
    std::size_t units = 0; // UTF-16 units that fit
    std::int32_t height = 0;
};

// Finds how much of a text fits on a line. It measures little more than a line holds, so that measuring a
// text stays linear in its length, whatever its font and the width.
class LineFitter {
public:
    LineFitter(const BoxMeter& lineMeter, std::int32_t lineWidth)
        : meter(lineMeter), width(std::max(lineWidth, 0)),
          guess(static_cast<std::size_t>(width / kTypicalWidth) + kSpareUnits) {}

    FittedText Fit(std::u16string_view text) {
        std::size_t units = std::min(text.size(), guess);
        FittedText fitted = FitFirst(text.substr(0, units));
        while (fitted.units == units && units < text.size()) {
            units = std::min(text.size(), units * 2);
            fitted = FitFirst(text.substr(0, units));
        }
        // The next line usually holds about as much.
        if (fitted.units < units) guess = fitted.units + fitted.units / 4 + kSpareUnits;
        return fitted;
    }

    // The width of that many first units, one at least, of the text that was fitted last: of those that fit,
    // or of its first character.
    std::int32_t WidthOf(std::size_t units) const { return widths[units - 1]; }

private:
    FittedText FitFirst(std::u16string_view text) {
        const std::int32_t height = meter.MeasureBeginnings(text, widths);
        const auto tooWide = [this](std::int32_t itsWidth) { return itsWidth > width; };
        const auto end = std::find_if(widths.begin(), widths.end(), tooWide);
        return {static_cast<std::size_t>(end - widths.begin()), height};
    }

    const BoxMeter& meter;
    std::int32_t width;
    std::size_t guess;
    std::vector<std::int32_t> widths;
};

std::int32_t CutTo32(std::int64_t number) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

// In units.
std::size_t LengthOfFirstCharacter(std::u16string_view text) { return lyr::gen::SplitsPair(text, 1) ? 2 : 1; }

// The length of the first piece of the text: what fits, but whole characters and at least one.
std::size_t PieceLength(std::u16string_view text, std::size_t fittedUnits) {
    const std::size_t units = lyr::gen::SplitsPair(text, fittedUnits) ? fittedUnits - 1 : fittedUnits;
    return std::max(units, LengthOfFirstCharacter(text));
}

platform::Extent MeasurePieces(const BoxMeter& meter, std::u16string_view text, std::int32_t width) {
    LineFitter fitter(meter, width);
    std::int32_t widest = 0;
    std::int64_t height = 0;
    while (!text.empty()) {
        const FittedText fitted = fitter.Fit(text);
        const std::size_t length = PieceLength(text, fitted.units);
        widest = std::max(widest, fitter.WidthOf(length));
        height += fitted.height;
        text.remove_prefix(length);
    }
    return {widest, CutTo32(height)};
}

// Kana, ideographs and their punctuation: a line may end before and after each of them.
bool IsEastAsian(char16_t unit) {
    return (unit >= 0x2E80 && unit <= 0x9FFF) || (unit >= 0xFF00 && unit <= 0xFFEF);
}

// Systems differ on whether the space after a word has to fit. Here it has to, which never makes a label too
// low.
bool MayBreakBefore(std::u16string_view text, std::size_t position) {
    const char16_t before = text[position - 1], after = text[position];
    return before == u' ' || IsEastAsian(before) || IsEastAsian(after);
}

// The length of the first line of a text that does not fit as a whole. A word longer than the line is not
// cut.
std::size_t LineLength(std::u16string_view text, std::size_t fittedUnits) {
    for (std::size_t length = fittedUnits; length > 0; --length) {
        if (MayBreakBefore(text, length)) return length;
    }
    std::size_t length = fittedUnits + 1;
    while (length < text.size() && !MayBreakBefore(text, length)) ++length;
    return length;
}

std::int64_t CountLines(LineFitter& fitter, std::u16string_view paragraph) {
    std::int64_t lines = 1;
    for (;; ++lines) {
        const std::size_t fittedUnits = fitter.Fit(paragraph).units;
        if (fittedUnits == paragraph.size()) return lines;
        paragraph.remove_prefix(LineLength(paragraph, fittedUnits));
        if (paragraph.empty()) return lines;
    }
}

platform::Extent MeasureLines(const BoxMeter& meter, std::u16string_view text, std::int32_t width) {
    if (text.empty()) return {};
    LineFitter fitter(meter, width);
    std::int64_t lines = 0;
    for (;;) {
        const std::size_t end = text.find(u'\n');
        lines += CountLines(fitter, text.substr(0, end));
        if (end == std::u16string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return {width, CutTo32(lines * meter.MeasureText(u" ").height)};
}

// The longest entry between semicolons, the first of equals. Kept: the very last entry counts one byte short.
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
    const BoxMeter meter(box, font.get());
    if (width == 0) return meter.MeasureText(text);
    return viewAttributes.GetBooleanOr("whole_words"_name, false)
               ? MeasureLines(meter, text, CutTo32(width))
               : MeasurePieces(meter, text, CutTo32(width));
}

platform::Extent MeasureLongestItem(const CEveBox& box, std::string_view items) {
    const OwnedFont font(MakeNarrowFont(platform::ScreenResolution()));
    return BoxMeter(box, font.get()).MeasureText(lyr::gen::ToUtf16(LongestEntry(items), true));
}

} // namespace brixen::zeve
