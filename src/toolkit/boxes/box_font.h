// Fonts of boxes: the `font` attribute picks size and weight, the language picks face and character set.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

class CExpressionScope;

// Sets the process-wide faces and character set: the language of the last prepared view wins for all.
void SetFontLanguage(std::string_view languageInfo);
// Looks up the face that the dictionaries may name; from then on it is the wide face of everything.
void LookUpBigFace();

// Whether a static text in the font numbered so stands at the right.
bool IsRightFont(std::int64_t fontNumber);

// The font that `font`, `font_style` and `font_size` of the attributes ask for, at `dpi` pixels an inch. The
// caller owns it; null when the system refuses.
NativeFont MakeBoxFont(const CExpressionScope& attributes, std::int32_t dpi);
// The font by which the width of popups is measured. The caller owns it.
NativeFont MakeNarrowFont(std::int32_t dpi);

} // namespace brixen::zeve
