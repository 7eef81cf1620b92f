// The user's country.
#pragma once

#include <string>

namespace brixen::pvn::pvn_workflow::platform {

// Returns the country that the user has chosen in the system's settings, as a code of ISO 3166-1 such as
// "DE"; empty if there is none.
[[nodiscard]] std::string UserCountry();

} // namespace brixen::pvn::pvn_workflow::platform
