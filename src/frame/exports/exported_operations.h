// The four operations of the exported calls that do something; pavane.h documents them for the host.
#pragma once

#include "frame/status.h"

#include <cstdint>

namespace brixen::pvn {

// Each status is in gLastError too when the operation returns.
[[nodiscard]] Status Initialize(std::int32_t hostApp, std::uint32_t hostOptions);
[[nodiscard]] Status PreloadWorkflow(std::uint16_t number);
[[nodiscard]] Status RunWorkflow(std::uint16_t number, void* parentWindow);

// Undoes a run whose stack is left without destructors, because the host catches a structured exception above
// Pavane_RunWorkflow. The dialogs are destroyed, their owners enabled, and the mark of the run is cleared
// with all that a return does; the latest status is kStatusException. What the run had allocated is lost.
void AbandonRun() noexcept;

// Leaves gLastError alone.
void Terminate() noexcept;

} // namespace brixen::pvn
