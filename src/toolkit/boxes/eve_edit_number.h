// An edit field for numbers. Its value is text.
#pragma once

#include "toolkit/boxes/eve_edit_text.h"

namespace brixen::zeve {

class CEveEditNumber : public CEveEditText {};

} // namespace brixen::zeve
