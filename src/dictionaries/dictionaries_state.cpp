#include "dictionaries/dictionaries_state.h"

#include <new>

namespace kestrel_private {

namespace {

DictionariesState gState;

} // namespace

DictionariesState::DictionariesState() {
    try {
        dictionary = kestrel::ZStringDictionary::Create(true);
    } catch (const std::bad_alloc&) {
        dictionary = nullptr; // made on demand
    }
}

DictionariesState& State() { return gState; }

kestrel::ZStringDictionary& ProcessDictionary() {
    if (!gState.dictionary) gState.dictionary = kestrel::ZStringDictionary::Create(true);
    return *gState.dictionary;
}

void ResetState() {
    gState.dictionary = nullptr;
    gState.fallback = nullptr;
    gState.accentedEscapes = false;
    gState.escapesInForce.reset();
}

} // namespace kestrel_private
