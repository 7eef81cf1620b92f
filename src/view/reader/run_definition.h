// Runs a view description: text that defines variables and builds a tree of views, executed in one pass with
// no form in between. A definition is a list of statements and views
//
//     w = gButtonWidth * 2;
//     dialog(name: 'Hello') { static_text(name: 'Text', width: w); button(name: 'OK', default: true); }
//
// that leaves exactly one view at its top. How deep and how often it may go is in reading_limits.h.
#pragma once

#include "view/express_view_scope.h"
#include "view/generator.h"

namespace brixen::zeve {

// Runs the NUL-terminated `text` in `rootScope`, lays the views out and has the scope's generator make them.
// Returns the root view's handle, or the generator's fixed root. The scope keeps what the text defined.
// Throws std::logic_error "Warning! (*definition == 0)" when the text cannot be read to its end (the log
// tells line and column), "Warning! (viewProxyList->size() == 1)" when it has not exactly one view at its
// top, the assertions of expressions, and what the generator throws. Views are destroyed in each case; boxes
// that the generator prepared are its own matter.
ViewHandle RunDefinition(CExpressViewScope& rootScope, const char* text);

} // namespace brixen::zeve
