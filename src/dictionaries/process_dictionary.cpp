#include "dictionaries/process_dictionary.h"

#include "dictionaries/dictionaries_state.h"

#include <new>

namespace kestrel_private {
namespace {

[[maybe_unused]] const bool gIsMadeAtStart = [] {
    try {
        ProcessDictionary();
        return true;
    } catch (const std::bad_alloc&) {
        return false; // the first call makes it
    }
}();

} // namespace

kestrel::ZStringDictionary& ProcessDictionary() {
    auto& dictionary = State().processDictionary;
    if (!dictionary) dictionary = kestrel::ZStringDictionary::Create(true);
    return *dictionary;
}

} // namespace kestrel_private
