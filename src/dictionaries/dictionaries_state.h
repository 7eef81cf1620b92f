#pragma once

#include <optional>

namespace kestrel {
class ZStringDictionary;
}

namespace kestrel_private {

// What every dictionary of the process looks at; see process_dictionary.h for the one that the dialogs read.
struct DictionariesState {
    // Consulted by every lookup behind the dictionary asked; borrowed. Nothing in the library sets it.
    kestrel::ZStringDictionary* fallback = nullptr;
    // Selects the `^` table with one row more. Nothing in the library sets it.
    bool accentedEscapes = false;
    // Which table is in force, fixed by the first decoding.
    std::optional<bool> escapesInForce;
};

DictionariesState& State();

} // namespace kestrel_private
