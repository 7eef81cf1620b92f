#include "frame/exports/pavane_exports.h"

#include "frame/exports/host_configuration.h"
#include "frame/log.h"
#include "pavane.h"
#include "frame/pavane_context.h"
#include "frame/version.h"
#include "frame/worker_thread.h"

#include <new>

namespace brixen::pvn {
namespace {

constinit ExportsState gExports;

Status Store(Status status) noexcept {
    gLastError = status;
    return status;
}

// Refreshes what the workflow shows of its host, after loading what it wants ahead.
void PrepareRow(const WorkflowRow& workflow, const std::string& language) {
    if (workflow.preloadView) gExports.catalogue->loadViewDescription(workflow.preloadView);
    if (workflow.showsHostName) RefreshHostStrings(*gPavaneContext, language);
}

Status Prepare(std::uint16_t workflow) noexcept try {
    const std::string language = GetHostLanguage(gPavaneContext->hostOptions);
    gExports.catalogue->selectLanguage(language);
    const WorkflowRow* row = gExports.catalogue->Find(workflow);
    if (!row) return kStatusBadArgument;
    PrepareRow(*row, language);
    return kStatusSuccess;
} catch (...) {
    return kStatusException;
}

// A workflow that is prepared already keeps the status that preparing it left, unless another call has left
// one since (meant).
Status PrepareOnce(std::uint16_t workflow) noexcept {
    if (workflow == gPreloadedWorkflow) return gLastError;
    Store(Prepare(workflow));
    gPreloadedWorkflow = workflow;
    return gLastError;
}

Status MakeContext(std::int32_t hostApp, std::uint32_t hostOptions) noexcept {
    gPavaneContext = new (std::nothrow) PavaneContext;
    if (!gPavaneContext) {
        LogRequirement(kNoMemoryForContext);
        return kStatusNoMemory;
    }
    gPavaneContext->hostOptions = hostOptions;
    gPavaneContext->hostApp = hostApp;
    return kStatusSuccess;
}

Status RefuseHostApp() noexcept {
    LogRequirement(kRefusedHostApp);
    return kStatusBadArgument;
}

Status RunPrepared(std::uint16_t workflow, void* parentWindow) noexcept {
    if (!gPavaneContext) {
        LogRequirement(kRunWithoutContext);
        return kStatusNotInitialized;
    }
    if (const Status prepared = PrepareOnce(workflow); prepared != kStatusSuccess) {
        LogRequirement(kRunNotPrepared, prepared);
        return prepared;
    }
    const WorkflowRow* row = gExports.catalogue->Find(workflow);
    return row ? LaunchWorkflow(*row, parentWindow) : kStatusBadArgument;
}

void ShutDownResourcesQuietly() noexcept try { gExports.catalogue->shutDownResources(); } catch (...) {
    // Whatever the resource layer could not give back, the record goes.
}

void DestroyContext() noexcept {
    if (!gPavaneContext) return;
    delete gPavaneContext->auxObject;
    gPavaneContext->auxObject = nullptr;
    LetGoOfWorker(*gPavaneContext);
    ShutDownResourcesQuietly();
    delete gPavaneContext;
    gPavaneContext = nullptr;
}

void TerminateNow() noexcept {
    DestroyContext();
    CloseLog();
}

// Marks the time of a run, for all threads. The terminate that arrived meanwhile is carried out at its end
// and still belongs to it: a call from another thread must not run on a record that is going.
class RunMark {
public:
    RunMark() noexcept {
        RunState idle = RunState::kIdle;
        fIsOurs = gExports.run.compare_exchange_strong(idle, RunState::kRunning);
    }
    ~RunMark() {
        RunState running = RunState::kRunning;
        if (!fIsOurs || gExports.run.compare_exchange_strong(running, RunState::kIdle)) return;
        TerminateNow();
        gExports.run = RunState::kIdle;
    }
    RunMark(const RunMark&) = delete;
    RunMark& operator=(const RunMark&) = delete;

    bool IsOurs() const noexcept { return fIsOurs; }

private:
    bool fIsOurs = false;
};

// No exception leaves an exported call.
template <class Result, class Call>
Result Guarded(Result failure, Call call) noexcept try {
    return call();
} catch (...) {
    return failure;
}

} // namespace

ExportsState& GetExportsState() noexcept { return gExports; }

void ResetExports() {
    TerminateNow();
    gExports.catalogue = &kWorkflowCatalogue;
    gExports.run = RunState::kIdle;
    gLastError = kStatusSuccess;
    gPreloadedWorkflow = 0;
}

Status Initialize(std::int32_t hostApp, std::uint32_t hostOptions) {
    OpenLog(false); // first and always, so that a refused call leaves its trace
    if (gPavaneContext) {
        LogRequirement(kAlreadyInitialized);
        return Store(kStatusSuccess);
    }
    const Status status = hostApp == 2 ? RefuseHostApp() : MakeContext(hostApp, hostOptions);
    if (status != kStatusSuccess) TerminateNow();
    return Store(status);
}

Status PreloadWorkflow(std::uint16_t workflow) {
    if (gExports.run != RunState::kIdle) return Store(kStatusBadArgument);
    if (!gPavaneContext) {
        LogRequirement(kPreloadWithoutContext);
        return Store(kStatusNotInitialized);
    }
    return PrepareOnce(workflow);
}

Status RunWorkflow(std::uint16_t workflow, void* parentWindow) {
    const RunMark mark;
    if (!mark.IsOurs()) return Store(kStatusBadArgument);
    const Status status = Store(RunPrepared(workflow, parentWindow));
    gPreloadedWorkflow = 0; // so that the next run prepares again
    return status;
}

void Terminate() {
    RunState running = RunState::kRunning;
    if (gExports.run.compare_exchange_strong(running, RunState::kRunningThenTerminate)) return;
    if (running == RunState::kIdle) TerminateNow();
}

} // namespace brixen::pvn

using namespace brixen::pvn;

uint16_t Pavane_Initialize(int32_t hostApp, uint32_t hostOptions) {
    return Guarded(kStatusException, [=] { return Initialize(hostApp, hostOptions); });
}

uint32_t Pavane_GetVersion(void) {
    return Guarded(kVersionWord, [] { return kVersionWord; });
}

uint16_t Pavane_PreloadWorkflow(uint16_t workflow) {
    return Guarded(kStatusException, [=] { return PreloadWorkflow(workflow); });
}

uint16_t Pavane_RunWorkflow(uint16_t workflow, void* parentWindow) {
    return Guarded(kStatusException, [=] { return RunWorkflow(workflow, parentWindow); });
}

uint16_t Pavane_Info_GetErrorCode(void) {
    return Guarded(kStatusException, [] { return gLastError.load(); });
}

void Pavane_Terminate(void) {
    Guarded(0, [] { return Terminate(), 0; });
}
