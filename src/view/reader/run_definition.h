// Runs a view description: text that defines variables and builds a tree of views, and that is executed in
// one pass with no form in between. A definition is a list of statements and views
//
//     w = gButtonWidth * 2;
//     dialog(name: 'Hello') { static_text(name: 'Text', width: w); button(name: 'OK', default: true); }
//
// with exactly one view at its top. reading_limits.h has the limits.
#pragma once

#include "view/express_view_scope.h"
#include "view/generator.h"

namespace brixen::zeve {

// Runs the NUL-terminated `text` in `rootScope`, lays the views out and has the generator of the scope make
// them. Returns the handle of the root view, or the fixed root of the generator. The scope keeps the
// variables that the text defined, and the pool of the generator their memory.
//
// Throws std::logic_error "Warning! (*definition == 0)" when the text cannot be read to its end,
// "Warning! (viewProxyList->size() == 1)" when it has not exactly one view at its top, the assertions of
// expressions, and what the generator throws. The log then has one line with the reason, the line and column,
// and the name of a missing variable; the place of a failure in a text that `eval` runs is that `eval`. The
// generator keeps the boxes that it has prepared.
ViewHandle RunDefinition(CExpressViewScope& rootScope, const char* text);

} // namespace brixen::zeve
