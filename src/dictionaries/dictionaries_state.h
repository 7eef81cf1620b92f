// What the dictionaries of a process share.
#pragma once

#include <memory>
#include <optional>

namespace kestrel {
class ZStringDictionary;
}

namespace kestrel_private {

struct DictionariesState {
    // Every lookup asks this dictionary after its own; borrowed. Nothing in the library sets it.
    kestrel::ZStringDictionary* fallback = nullptr;
    // Selects the `^` table with one more row. Nothing in the library sets it.
    bool accentedEscapes = false;
    // The table in force, fixed by the first decoding.
    std::optional<bool> escapesInForce;
    // The dictionary that the dialogs read (see process_dictionary.h). This is its only owner; a shared
    // pointer destroys a class that is not defined here.
    std::shared_ptr<kestrel::ZStringDictionary> processDictionary;
};

DictionariesState& State();

// For tests: the state of library start, but without a process-wide dictionary.
void ResetState();

} // namespace kestrel_private
