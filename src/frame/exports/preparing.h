// Preparing a workflow: its language, its view, and the host's strings, before its run.
#pragma once

#include "frame/exports/launcher_table.h"
#include "frame/status.h"

#include <cstdint>
#include <string>

namespace brixen::pvn {

// A workflow as one exported call sees it: looked up once, in the language of that moment.
struct RequestedWorkflow {
    std::uint16_t number = 0;
    const WorkflowRow* row = nullptr; // null: the library does not have it
    std::string language = {};        // such as "he_IL"
};

// Returns whether `number` is the workflow that was prepared last and not run since.
[[nodiscard]] bool IsPrepared(std::uint16_t number) noexcept;

// Looks the workflow up and prepares it. From then on it counts as prepared, after a failure too. Returns
// kStatusBadArgument for a number that the library does not have, kStatusException after any exception. Needs
// a context. Leaves gLastError alone.
[[nodiscard]] Status Prepare(RequestedWorkflow& workflow) noexcept;

// Looks the workflow up without preparing it. Returns kStatusException when memory runs out. Needs a context.
[[nodiscard]] Status LookUp(RequestedWorkflow& workflow) noexcept;

} // namespace brixen::pvn
