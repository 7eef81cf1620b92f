// The part of a dialog that boxes, the generator and the window procedures use. The attribute
// `__zeveInternalObj` holds its address; the generator refuses the address of any other dialog. The dialog
// handle derives from it.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/zeve_callback.h"

#include <string>
#include <vector>

namespace brixen::zeve {

class CEveBox;

struct DialogLink {
    // The CEveDialog, owned by the dialog handle. CEveDialog::Create sets it, so that messages sent while the
    // children are made find the dialog.
    CEveBox* rootBox = nullptr;
    ZeveCallback callback = nullptr;
    void* callbackParams = nullptr;
    // The control that had the focus when the user went to another window; null before.
    NativeWindow focusWhenInactive = nullptr;
    // Attributes that the generator copies onto every view after its own list, in this order.
    std::vector<std::string> extraAttributeNames;
};

} // namespace brixen::zeve
