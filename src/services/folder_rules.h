// Which folder a file is in, and which folder is trusted to hold libraries. All of it is arithmetic on texts.
#pragma once

#include "services/platform/services_platform.h"

#include <string>
#include <string_view>

namespace brixen::pvn {

// Returns the folder of a file without a backslash at its end. That of a drive keeps it, because "C:" alone
// is the working directory of the drive. Empty for a name without a folder.
[[nodiscard]] std::string FolderOfFile(const std::string& path);

// Returns whether the name of a folder says that it is on a server, as "\\server\share" and
// "\\?\UNC\server\share" do. A drive of the network has no such name.
[[nodiscard]] bool IsOnServer(std::string_view folder);

// Returns whether the loader may search a working directory: it exists, and it is neither on the network nor
// the temporary folder of the user nor inside that.
[[nodiscard]] bool IsTrusted(const FolderPlace& workingDirectory, const FolderPlace& temporaryFolder);

} // namespace brixen::pvn
