#include "frame/exports/context_record.h"

#include "frame/exception_boundary.h"
#include "frame/exports/launcher_table.h"
#include "frame/frame_state.h"
#include "frame/log.h"
#include "frame/pavane_context.h"

#include <new>

namespace brixen::pvn {

Status MakeContext(std::int32_t hostApp, std::uint32_t hostOptions) noexcept {
    auto* const context = new (std::nothrow) PavaneContext;
    if (!context) {
        LogRequirement(kNoMemoryForContext);
        return kStatusNoMemory;
    }
    context->hostOptions = hostOptions;
    context->hostApp = hostApp;
    GetFrameState().gPavaneContext = context;
    return kStatusSuccess;
}

namespace {

// Intentional: the status is ignored, because the context is freed in any case.
void ShutDownQuietly() noexcept {
    static_cast<void>(StatusAtBoundary([] {
        GetLaunchers().shutDownResources();
        return kStatusSuccess;
    }));
}

} // namespace

void FreeContextAndCloseLog() noexcept {
    FrameState& frame = GetFrameState();
    if (frame.gPavaneContext) {
        ReleaseHoldings(*frame.gPavaneContext);
        ShutDownQuietly();
        delete frame.gPavaneContext;
        frame.gPavaneContext = nullptr;
    }
    CloseLog();
}

} // namespace brixen::pvn
