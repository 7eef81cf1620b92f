// What stands between an exported run and the workflow engine: the table of workflows and the one launcher
// that serves them all.
#pragma once

#include "frame/status.h"
#include "values/storage.h"

#include <cstdint>
#include <span>
#include <string>

namespace brixen::pvn {

// Runs one workflow from its filled bag, modally on the caller's thread.
using RunFunction = Status (*)(T_StorageInterface& bag);

struct WorkflowRow {
    std::uint16_t number;              // as the host asks for it
    std::uint32_t type;                // goes into the bag
    const char* name;                  // as the log tells it
    RunFunction run;                   // null: the library does not have this workflow, its number is refused
    bool showsHostName = false;        // refreshes the host's strings and puts its name into the bag
    bool offersCancel = false;         // the bag says whether busy panes may be canceled
    const char* preloadView = nullptr; // the view description that its preparation loads ahead
};

// Everything that the exports ask of the engine. Each of the functions may throw.
struct WorkflowCatalogue {
    std::span<const WorkflowRow> workflows;
    void (*selectLanguage)(const std::string& language);
    std::string (*loadViewDescription)(const std::string& name);
    void (*shutDownResources)();

    // Null when the library does not have that workflow.
    const WorkflowRow* Find(std::uint16_t number) const noexcept;
};

// The library's own.
extern const WorkflowCatalogue kWorkflowCatalogue;

// Fills a bag, runs the workflow, and frames the run in the log. Any exception is caught and becomes
// kStatusException. Needs a context.
Status LaunchWorkflow(const WorkflowRow& workflow, void* parentWindow) noexcept;

} // namespace brixen::pvn
