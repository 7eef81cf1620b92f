// What boxes, the generator and the window procedures may know of the dialog they belong to. A description
// carries it as the number `__zeveInternalObj`; its generator lets no other dialog's through. The dialog
// handle derives from it.
#pragma once

#include "toolkit/platform/native_types.h"
#include "toolkit/zeve_callback.h"

#include <string>
#include <vector>

namespace brixen::zeve {

class CEveBox;

struct DialogLink {
    // The CEveDialog, owned by the dialog handle. Its Create stores itself here, so that messages sent while
    // the children are being made already find the dialog.
    CEveBox* rootBox = nullptr;
    ZeveCallback callback = nullptr;
    void* callbackParams = nullptr;
    // Attributes that the generator copies onto every view besides its own list, in this order.
    std::vector<std::string> extraAttributeNames;
};

} // namespace brixen::zeve
