// The constants that every view of a dialog can name: metrics in pixels, fonts, number formats. A view may
// define them anew for itself; the boxes take the metrics through the view's scopes.
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

// Defines all of them in a dialog's root scope. The alignments and the like are there already, from the
// making of the scope.
void InstallViewConstants(CExpressionScope& rootScope);

// A metric as a view sees it, 0 if no scope has it.
std::int64_t Metric(const CExpressionScope& viewAttributes, const ScopeName& name);

} // namespace brixen::zeve
