#include "dictionaries/process_dictionary.h"

#include "dictionaries/dictionaries_state.h"

#include <new>

namespace kestrel_private {
namespace {

std::unique_ptr<kestrel::ZStringDictionary> MakeAtStart() {
    try {
        return kestrel::ZStringDictionary::Create(true);
    } catch (const std::bad_alloc&) {
        return nullptr; // made on demand
    }
}

std::unique_ptr<kestrel::ZStringDictionary> gProcessDictionary = MakeAtStart();

} // namespace

std::unique_ptr<kestrel::ZStringDictionary>& ProcessDictionarySlot() { return gProcessDictionary; }

kestrel::ZStringDictionary& ProcessDictionary() {
    if (!gProcessDictionary) gProcessDictionary = kestrel::ZStringDictionary::Create(true);
    return *gProcessDictionary;
}

void ResetState() {
    gProcessDictionary = nullptr;
    State() = DictionariesState();
}

} // namespace kestrel_private
