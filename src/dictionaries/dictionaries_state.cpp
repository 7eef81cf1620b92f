#include "dictionaries/dictionaries_state.h"

namespace kestrel_private {
namespace {

constinit DictionariesState gState;

}

DictionariesState& State() { return gState; }

void ResetState() { gState = {}; }

} // namespace kestrel_private
