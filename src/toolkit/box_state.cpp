#include "toolkit/box_state.h"

namespace brixen::zeve {

BoxState gBoxState;

void ResetBoxState() { gBoxState = BoxState(); }

} // namespace brixen::zeve
