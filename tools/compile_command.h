#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace pavane_tools {

// The command that compiles a text dictionary in UTF-8 to a `.zdct` file: SOURCE TARGET. Makes the folders of
// the target; an older target stays when anything fails. Remarks go to `messages` as `file:line: error: ...`.
// Returns the exit code: 0, 1 when the source has an error, 2 for wrong usage or a file that cannot be read
// or written.
int RunCompileCommand(const std::vector<std::string>& arguments, std::ostream& messages);

} // namespace pavane_tools
