// The fonts of boxes. The `font` attribute selects size and weight, the language face and character set.
#pragma once

#include "toolkit/platform/native_types.h"

#include <cstdint>
#include <string_view>

namespace brixen::zeve {

class CExpressionScope;

// Sets the process-wide faces and character set. Kept: the language of the view prepared last holds for all.
void SetFontLanguage(std::string_view languageInfo);
// Looks up the face that the dictionaries may name. If they do, it is the face of every font made afterward,
// except the narrow one.
void LookUpBigFace();

// Whether a static text in the font of that number is aligned right.
[[nodiscard]] bool IsRightFont(std::int64_t fontNumber);

// Makes the font of the attributes `font`, `font_style` and `font_size`, at `dpi` pixels an inch. The caller
// owns it. Returns null if the system refuses.
[[nodiscard]] NativeFont MakeBoxFont(const CExpressionScope& attributes, std::int32_t dpi);
// Makes the font that measures popups. The caller owns it. Returns null if the system refuses.
[[nodiscard]] NativeFont MakeNarrowFont(std::int32_t dpi);

} // namespace brixen::zeve
