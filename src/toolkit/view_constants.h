// The constants that every view of a dialog can use: metrics in pixels, fonts, number formats. A view may
// define its own value; boxes read the metrics through the view's scopes.
#pragma once

#include "view/scope/scope_name.h"

#include <cstdint>

namespace brixen::zeve {

class CExpressionScope;

enum FontNumber : std::int64_t {
    kFontSmall = 32000,
    kFontSmallBold,
    kFontSmallRight,
    kFontSmallBoldRight,
    kFontBig,
    kFontBigBold,
    kFontBigRight,
    kFontBigBoldRight,
};

enum FontStyleFlag : std::int64_t { kFontStyleBold = 1, kFontStyleItalic = 2, kFontStyleUnderline = 4 };

enum BuiltinIcon : std::int64_t {
    kBuiltinIconTesseralogo = 103,
    kBuiltinIconWarning = 32515,
    kBuiltinIconAlert = 32516,
};

// Defines the constants in the root scope of a dialog. The scope itself defines alignments and the like.
void InstallViewConstants(CExpressionScope& rootScope);

// Returns the metric as the view sees it; 0 if no scope has it.
[[nodiscard]] std::int64_t Metric(const CExpressionScope& viewAttributes, const ScopeName& name);

} // namespace brixen::zeve
