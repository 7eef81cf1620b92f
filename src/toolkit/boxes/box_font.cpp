#include "toolkit/boxes/box_font.h"

#include "dictionaries/translation.h"
#include "toolkit/language_tag.h"
#include "toolkit/platform/toolkit_platform.h"
#include "toolkit/toolkit_state.h"
#include "toolkit/view_constants.h"
#include "values/unicode/character_borders.h"
#include "values/unicode/text_conversion.h"
#include "view/scope/expression_scope.h"

#include <algorithm>
#include <string>

namespace brixen::zeve {

namespace {

constexpr std::string_view kBigFaceKey = "$$$/brixen/zeve/win/big_font=";
constexpr std::int64_t kSmallSize = 8; // points
constexpr std::int64_t kBigSize = 11;
constexpr std::int32_t kNarrowSize = 9;
constexpr std::int32_t kNarrowSizeOfPlainLanguages = 11;
constexpr std::int32_t kPointsAnInch = 72;
constexpr std::int32_t kNormalWeight = 400;
constexpr std::int32_t kBoldWeight = 700;
constexpr std::uint8_t kCharacterPrecision = 2;    // OUT_CHARACTER_PRECIS
constexpr std::uint8_t kProofQuality = 2;          // PROOF_QUALITY
constexpr std::uint8_t kVariablePitchSwiss = 0x22; // VARIABLE_PITCH | FF_SWISS

struct LanguageFace {
    std::string_view language;
    const char16_t* face;
    std::uint8_t characterSet;
};

// For hosts of the toolkit; the workflow engine names a language only for right-to-left words.
constexpr LanguageFace kLanguageFaces[] = {
    {"ja-jp", u"MS UI Gothic", 128}, // SHIFTJIS_CHARSET
    {"ko-kr", u"Gulim", 129},        // HANGUL_CHARSET
    {"zh-tw", u"MingLiU", 136},      // CHINESEBIG5_CHARSET
    {"zh-cn", u"SimSun", 134},       // GB2312_CHARSET
};
constexpr const char16_t* kWideFace = u"Tahoma";
constexpr const char16_t* kNarrowFace = u"MS Sans Serif";

bool IsSmallFont(std::int64_t fontNumber) {
    return fontNumber >= kFontSmall && fontNumber <= kFontSmallBoldRight;
}

bool IsBoldFont(std::int64_t fontNumber) {
    return fontNumber == kFontSmallBold || fontNumber == kFontSmallBoldRight || fontNumber == kFontBigBold ||
           fontNumber == kFontBigBoldRight;
}

bool IsLongerThanOneCharacter(std::string_view text) {
    return std::count_if(text.begin(), text.end(), lyr::gen::BeginsCharacter) > 1;
}

void SetFace(platform::FontRecord& record, std::u16string_view face) {
    face = lyr::gen::CutToUnits(face, platform::kFaceUnits - 1);
    *std::copy(face.begin(), face.end(), record.face) = u'\0';
}

void SetCommonQualities(platform::FontRecord& record) {
    record.characterSet = gToolkit.faces.characterSet;
    record.outputPrecision = kCharacterPrecision;
    record.clippingPrecision = 0;
    record.quality = kProofQuality;
    record.pitchAndFamily = kVariablePitchSwiss;
}

std::int32_t HeightInPixels(std::int64_t points, std::int32_t dpi) {
    const auto scaled = static_cast<std::int64_t>(static_cast<std::uint64_t>(points) *
                                                  static_cast<std::uint64_t>(static_cast<std::int64_t>(dpi)));
    return static_cast<std::int32_t>(-(scaled / kPointsAnInch));
}

std::int64_t StyleFlags(const CExpressionScope& attributes, std::int64_t fontNumber) {
    const std::int64_t flags = attributes.GetLongOr("font_style"_name, 0);
    return IsBoldFont(fontNumber) ? flags | kFontStyleBold : flags;
}

} // namespace

void SetFontLanguage(std::string_view languageInfo) {
    gToolkit.languageInfo = languageInfo;
    const std::string language = NormalizeLanguage(languageInfo);
    FontFaces& faces = gToolkit.faces;
    for (const LanguageFace& known : kLanguageFaces) {
        if (known.language != language) continue;
        faces.wide = faces.narrow = known.face;
        faces.characterSet = known.characterSet;
        return;
    }
    faces.wide = kWideFace;
    faces.narrow = kNarrowFace;
    faces.characterSet = 0;
}

void LookUpBigFace() {
    const std::string face = ZeveTranslate(kBigFaceKey);
    if (IsLongerThanOneCharacter(face)) gToolkit.bigFace = lyr::gen::ToUtf16(face, true);
}

bool IsRightFont(std::int64_t fontNumber) {
    return fontNumber == kFontSmallRight || fontNumber == kFontSmallBoldRight ||
           fontNumber == kFontBigRight || fontNumber == kFontBigBoldRight;
}

NativeFont MakeBoxFont(const CExpressionScope& attributes, std::int32_t dpi) {
    const std::int64_t number = attributes.GetLongOr("font"_name, kFontBig);
    const std::int64_t flags = StyleFlags(attributes, number);
    const std::int64_t size =
        attributes.GetLongOr("font_size"_name, IsSmallFont(number) ? kSmallSize : kBigSize);

    platform::FontRecord record = platform::StockSystemFont();
    record.height = HeightInPixels(size, dpi);
    record.width = 0;
    record.weight = flags & kFontStyleBold ? kBoldWeight : kNormalWeight;
    record.italic = flags & kFontStyleItalic ? 1 : 0;
    record.underline = flags & kFontStyleUnderline ? 1 : 0;
    SetCommonQualities(record);
    SetFace(record, gToolkit.bigFace.empty() ? gToolkit.faces.wide : gToolkit.bigFace);
    return platform::MakeFont(record);
}

NativeFont MakeNarrowFont(std::int32_t dpi) {
    const std::int32_t points = gToolkit.faces.characterSet ? kNarrowSize : kNarrowSizeOfPlainLanguages;
    platform::FontRecord record;
    record.height = (points * dpi + kPointsAnInch / 2) / kPointsAnInch;
    record.weight = kNormalWeight;
    SetCommonQualities(record);
    SetFace(record, gToolkit.faces.narrow);
    return platform::MakeFont(record);
}

} // namespace brixen::zeve
