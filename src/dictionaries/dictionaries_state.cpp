#include "dictionaries/dictionaries_state.h"

namespace kestrel_private {

DictionariesState& State() {
    static constinit DictionariesState state;
    return state;
}

} // namespace kestrel_private
