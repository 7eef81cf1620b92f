// The service loader: it finds companion libraries in its folders, loads them on first need, and finds their
// entry points by name. Nothing here throws; a failure is a message of the channel and a neutral result.
//
// All paths and names are UTF-8. Any thread may call; the functions hold no lock while they call the system,
// a library or the log, so a library may call back.
#pragma once

#include "services/loader_log.h"
#include "services/platform/services_platform.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace brixen::pvn {

// Identifies the loader to tools that search a file for such lines. No code uses what it says.
inline constexpr char kServiceLoaderVersion[] =
    "@(#) SVHServiceLoader: 2.0.1.10077 (BuildVersion: 53.352460; BuildDate: Tue Jul 29 2008 16:32:22)";

// A library that was found. It is loaded by the first FindSymbol.
struct LibraryEntry {
    std::string foundIn;           // the folder of the search in which it was found
    std::string fullPath;          // of its file
    NativeModule module = nullptr; // null until it is loaded; then never unloaded
    std::map<std::string, EntryPoint, std::less<>> symbols = {}; // those that were found
    std::uint8_t opened = 0;                                     // how often it was added; stops at 255
};

struct ServiceLoader : LoaderLogChannel {
    using LoaderLogChannel::LoaderLogChannel;

    // The file of the library holds the line because each instance points to it.
    const char* const version = kServiceLoaderVersion;

    std::mutex tablesLock;                                      // guards the next three
    std::map<std::string, LibraryEntry, std::less<>> libraries; // by the name they were asked for
    std::vector<std::string> searchPaths;                       // in their order, absolute
    std::string overridePath; // if not empty, the only folder that is searched

    std::atomic<bool> baseLoaded = false; // the base service library was found
    std::atomic<bool> isStarted = false;  // the one attempt to find it was begun
};

// Searches a folder from now on, after those before it. Ignores a folder that has no absolute path, and one
// that is in the list already, byte for byte.
void AddSearchPath(ServiceLoader& loader, const std::string& path) noexcept;

// Finds the library `name`, or else `alternateName` if that is not empty, in the first folder that has
// either, and enters it under `name`. Returns whether it is there. Adding it again only counts.
[[nodiscard]] bool AddLibrary(ServiceLoader& loader, const char* name, const char* alternateName) noexcept;

// Returns an entry point of a library that was added, or null. Loads the library if it is not loaded yet.
// Only hits are remembered: the next call tries again what failed.
[[nodiscard]] EntryPoint FindSymbol(ServiceLoader& loader, const char* libraryName,
                                    const char* symbolName) noexcept;

// Returns whether a library that was added has been loaded.
[[nodiscard]] bool IsLoaded(ServiceLoader& loader, const char* name) noexcept;

// Returns the folder in which a library was found. Empty if it was not. Throws std::bad_alloc.
[[nodiscard]] std::string FolderOfLibrary(ServiceLoader& loader, const char* name);

} // namespace brixen::pvn
