// The table of workflows, and what the exported calls ask of the workflow engine.
#pragma once

#include "frame/status.h"
#include "values/storage.h"

#include <cstdint>
#include <span>
#include <string>

namespace brixen::pvn {

// Runs one workflow from its filled bag, modally on the caller's thread.
using RunFunction = Status (*)(T_StorageInterface& bag);

// The fields are ordered by size, so that a row has no padding.
struct WorkflowRow {
    const char* name;                  // in the lines of the log
    RunFunction run;                   // null: the library does not have this workflow and refuses its number
    const char* preloadView = nullptr; // the view description that preparing loads ahead; null for none
    std::uint32_t type = 0;            // put into the bag
    std::uint16_t number = 0;          // the host asks for the workflow by it
    bool showsHostName = false;        // refreshes the host's strings and puts its name into the bag
    bool offersCancel = false;         // the bag says whether busy panes may be canceled
    bool keepsProxy = false;           // starts with the proxy server of the run before, and leaves its own
};

// The workflows, and the calls of the engine that the exports need. Each of the functions
// may throw unless its type says otherwise.
struct LauncherTable {
    std::span<const WorkflowRow> workflows;
    void (*selectLanguage)(const std::string& language);
    std::string (*loadViewDescription)(const std::string& name);
    void (*shutDownResources)();
    void (*abandonRun)() noexcept; // ends the dialogs and the worker of a stack that was left without
                                   // destructors

    // Returns null when the library does not have that workflow.
    [[nodiscard]] const WorkflowRow* Find(std::uint16_t number) const noexcept;
};

// The table of the product.
extern const LauncherTable kLauncherTable;

// Returns the table in use: the product's, or the one that a test has set in FrameState.
[[nodiscard]] const LauncherTable& GetLaunchers() noexcept;

} // namespace brixen::pvn
