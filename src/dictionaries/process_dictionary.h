// The dictionary that the dialogs of a process read.
#pragma once

#include "dictionaries/zstring_dictionary.h"

namespace kestrel_private {

// The process-wide dictionary, a fast one. It is made at library start if memory allows, else by the first
// call, and destroyed at exit. Throws bad_alloc. For the user-interface thread alone.
kestrel::ZStringDictionary& ProcessDictionary();

} // namespace kestrel_private
