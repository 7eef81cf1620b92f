// What the service loader asks of the system. Paths and names are UTF-8, with a backslash between folders on
// every system. Nothing here throws but std::bad_alloc. Any thread may call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace brixen::pvn {

// Shows a text to the debugger of the process, if there is one.
void WriteToDebugger(const char* text) noexcept;

// Returns a number that no other running thread of the process has.
[[nodiscard]] std::uint32_t CurrentThreadNumber() noexcept;

// The longest path that the loader handles, in UTF-16 units without the terminator.
inline constexpr std::size_t kServicePathLimit = 1024;

// Returns the path of the file that holds this code. Empty if the system does not know it, or if it is longer
// than the limit.
[[nodiscard]] std::string ModuleFile();
// Returns the working directory of the process. Empty if there is none, or if it is longer than the limit.
[[nodiscard]] std::string WorkingDirectory();
// Returns the absolute form of a path, whether or not it exists. Empty if there is none, or if it is longer
// than the limit.
[[nodiscard]] std::string ResolvePath(const std::string& path);
// Returns whether `path` names a file and not a folder.
[[nodiscard]] bool IsExistingFile(const std::string& path);

// Where a folder is, after links and short names.
struct FolderPlace {
    std::string path; // the same text for the same folder; empty if there is no such folder
    bool isOnNetworkDrive = false;
};
[[nodiscard]] FolderPlace PlaceOf(const std::string& folder);

using NativeModule = struct ServiceModuleTag*;
using EntryPoint = void (*)(); // cast to the type of the function before the call

// Loads a library by its absolute path, or returns null. Libraries that it needs are searched in its own
// folder and in the system's, and nowhere else. The system shows no message to the user. Nothing unloads the
// library.
[[nodiscard]] NativeModule LoadModule(const std::string& path);
// Returns null for a name that the library does not export.
[[nodiscard]] EntryPoint FindEntry(NativeModule module, const char* name) noexcept;

} // namespace brixen::pvn
