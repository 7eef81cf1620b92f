// The native twin of the services' platform: it records what it is asked, and answers and refuses as a test
// sets it. It loads nothing.
#pragma once

#include "services/platform/services_platform.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace brixen::pvn {

// The entry points of a library that the twin "loads", by name.
using TwinEntries = std::map<std::string, EntryPoint>;

struct ServicesTwin {
    std::vector<std::string> debuggerTexts; // oldest first
    std::vector<std::string> calls;         // "Load C:\App\a.dll", "Find symbol", "IsFile C:\App\a.dll"

    // An empty text refuses.
    std::string moduleFile = "C:\\App\\pavane.dll";
    std::string workingDirectory = "C:\\Work";
    // What ResolvePath returns if it is not the path itself. An empty text refuses.
    std::map<std::string, std::string> resolved;
    std::set<std::string> files;
    // What PlaceOf returns if it is not the path itself, on a disk.
    std::map<std::string, FolderPlace> places;
    std::map<std::string, TwinEntries> modules; // by path; no other path can be loaded
    std::function<void()> duringLoad;           // called by LoadModule, as the start of a library would be
};

// A test may change the twin while no other thread uses it.
[[nodiscard]] ServicesTwin& GetServicesTwin() noexcept;
void ResetServicesTwin();

} // namespace brixen::pvn
