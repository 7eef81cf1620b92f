// The user's colors of links, as the registry holds them. Pure.
#pragma once

#include "workflow/platform/control_platform.h"
#include "workflow/platform/painting.h"

#include <optional>

namespace brixen::pvn::pvn_workflow {

// Returns the color of a text such as "0,102,204": red, green and blue from 0 to 255, decimal, with commas
// between them and blanks around them. Nothing for any other text, for a value that is no text, has an odd
// number of bytes, or lacks the terminator.
std::optional<platform::Color> ColorOfSetting(const platform::UserSetting& setting);

} // namespace brixen::pvn::pvn_workflow
