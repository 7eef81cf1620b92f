#pragma once

#include "dictionaries/zstring_dictionary.h"

#include <memory>

namespace kestrel_private {

// Holds the dictionary that the dialogs read: made at library start where memory allows, destroyed at exit.
std::unique_ptr<kestrel::ZStringDictionary>& ProcessDictionarySlot();
// That dictionary, made if it is missing.
kestrel::ZStringDictionary& ProcessDictionary();
// For tests: the dictionaries as at library start, with no process-wide dictionary yet.
void ResetState();

} // namespace kestrel_private
