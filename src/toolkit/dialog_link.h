// What boxes and the generator may know of the dialog they belong to. A description carries it as the number
// `__zeveInternalObj`; the dialog handle derives from it.
#pragma once

#include <string>
#include <vector>

namespace brixen::zeve {

class CEveBox;

struct DialogLink {
    // The CEveDialog, owned by the dialog handle. Its Create stores itself here, so that messages sent while the
    // children are being made already find the dialog.
    CEveBox* rootBox = nullptr;
    // Attributes that the generator copies onto every view besides its own list, in this order.
    std::vector<std::string> extraAttributeNames;
};

} // namespace brixen::zeve
