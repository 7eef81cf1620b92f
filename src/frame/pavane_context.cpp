#include "frame/pavane_context.h"

namespace brixen::pvn {

void ReleaseHoldings(PavaneContext& context) noexcept {
    delete context.auxObject;
    context.auxObject = nullptr;
    if (context.threadHandle) CloseThread(context.threadHandle);
    context.threadHandle = nullptr;
}

} // namespace brixen::pvn
