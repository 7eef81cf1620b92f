#pragma once

#include "dictionaries/zstring_dictionary.h"

#include <memory>
#include <optional>

namespace kestrel_private {

// The process-wide state of the dictionaries.
struct DictionariesState {
    DictionariesState();

    // Consulted by every lookup behind the dictionary asked; borrowed. Nothing in the library sets it.
    kestrel::ZStringDictionary* fallback = nullptr;
    // Selects the `^` table with one row more. Nothing in the library sets it.
    bool accentedEscapes = false;
    // Which table is in force, fixed by the first decoding.
    std::optional<bool> escapesInForce;
    // The dictionary that the dialogs read: made at library start, or on demand. Destroyed at exit, before
    // the slot above.
    std::unique_ptr<kestrel::ZStringDictionary> dictionary;
};

DictionariesState& State();
// The process-wide dictionary, made if it is missing.
kestrel::ZStringDictionary& ProcessDictionary();
// For tests: as at library start, with no dictionary yet.
void ResetState();

} // namespace kestrel_private
