// The command line of pavane-compile.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace pavane_tools {

// Compiles a text dictionary in UTF-8 to a compiled one; `arguments` are SOURCE and TARGET. Makes the folders
// of the target. An older target stays if anything fails. Errors and warnings go to `messages` as
// `file:line: error: ...`. Returns the exit code: 0; 1 if the source has an error; 2 for wrong usage and for
// a file that cannot be read or written, with a message that names it. Throws bad_alloc, and length_error as
// WriteDictionary does.
[[nodiscard]] int RunCompileCommand(const std::vector<std::string>& arguments, std::ostream& messages);

} // namespace pavane_tools
