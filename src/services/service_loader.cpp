#include "services/service_loader.h"

#include <algorithm>
#include <limits>
#include <new>
#include <optional>
#include <utility>

namespace brixen::pvn {
namespace {

using Lock = std::lock_guard<std::mutex>;

// A library by the folder and the file that the search has tried.
struct Candidate {
    const std::string& folder;
    std::string path;
};

Candidate MakeCandidate(const std::string& folder, const char* name) {
    return {folder, folder + "\\" + name};
}

std::vector<std::string> FoldersToSearch(ServiceLoader& loader) {
    const Lock lock(loader.tablesLock);
    return loader.overridePath.empty() ? loader.searchPaths : std::vector{loader.overridePath};
}

std::optional<LibraryEntry> Try(ServiceLoader& loader, const Candidate& candidate) {
    if (!IsExistingFile(candidate.path)) return std::nullopt;
    std::string fullPath = ResolvePath(candidate.path);
    if (fullPath.empty()) {
        LoaderLog(loader, kLoaderLevelUnusable, "%s", "Found library %s but could not resolve the path",
                  candidate.path.c_str());
        return std::nullopt;
    }
    LoaderLog(loader, kLoaderLevelProgress, "%s", "Found library %s", fullPath.c_str());
    return LibraryEntry{.foundIn = candidate.folder, .fullPath = std::move(fullPath)};
}

std::optional<LibraryEntry> Search(ServiceLoader& loader, const char* name, const char* alternateName) {
    for (const std::string& folder : FoldersToSearch(loader)) {
        const Candidate candidate = MakeCandidate(folder, name);
        LoaderLog(loader, kLoaderLevelProgress, "%s", "looking for library %s", candidate.path.c_str());
        std::optional<LibraryEntry> found = Try(loader, candidate);
        if (!found && *alternateName) found = Try(loader, MakeCandidate(folder, alternateName));
        if (found) return found;
    }
    return std::nullopt;
}

void LogNotFound(ServiceLoader& loader, const char* name, const char* alternateName) noexcept {
    if (!*alternateName) {
        LoaderLog(loader, kLoaderLevelMissing, "%s", "Failed to find %s", name);
    } else {
        LoaderLog(loader, kLoaderLevelMissing, "%s %s", "Failed to find %s (or %s)", name, alternateName);
    }
}

void CountAdd(LibraryEntry& entry) noexcept {
    if (entry.opened < std::numeric_limits<std::uint8_t>::max()) ++entry.opened;
}

bool AddAgain(ServiceLoader& loader, const char* name) {
    const Lock lock(loader.tablesLock);
    const auto entry = loader.libraries.find(name);
    if (entry == loader.libraries.end()) return false;
    CountAdd(entry->second);
    return true;
}

bool FindAndAdd(ServiceLoader& loader, const char* name, const char* alternateName) {
    std::optional<LibraryEntry> found = Search(loader, name, alternateName);
    if (!found) return false;
    const Lock lock(loader.tablesLock);
    // Another thread may have been faster: its entry stays.
    CountAdd(loader.libraries.try_emplace(name, std::move(*found)).first->second);
    return true;
}

// What the tables know of a symbol. An absent library has neither path nor module.
struct SymbolPlace {
    bool isLibraryKnown = false;
    std::string fullPath = {}; // only if there is no module yet
    NativeModule module = nullptr;
    EntryPoint entry = nullptr;
};

SymbolPlace LookUp(ServiceLoader& loader, const char* libraryName, const char* symbolName) {
    const Lock lock(loader.tablesLock);
    const auto library = loader.libraries.find(libraryName);
    if (library == loader.libraries.end()) return {};
    const LibraryEntry& entry = library->second;
    if (!entry.module) return {.isLibraryKnown = true, .fullPath = entry.fullPath};
    const auto symbol = entry.symbols.find(symbolName);
    return {.isLibraryKnown = true,
            .module = entry.module,
            .entry = symbol == entry.symbols.end() ? nullptr : symbol->second};
}

// Two threads that load the library at once get the same module.
NativeModule Load(ServiceLoader& loader, const char* libraryName, const std::string& path) {
    const std::string resolved = ResolvePath(path);
    const NativeModule module = resolved.empty() ? nullptr : LoadModule(resolved);
    if (!module) {
        LoaderLog(loader, kLoaderLevelUnusable, "%s", "Failed to open library %s", path.c_str());
        return nullptr;
    }
    const Lock lock(loader.tablesLock);
    return loader.libraries.find(libraryName)->second.module = module;
}

// Without memory the symbol is found again at its next use.
void Remember(ServiceLoader& loader, const char* libraryName, const char* symbolName,
              EntryPoint entry) noexcept try {
    const Lock lock(loader.tablesLock);
    loader.libraries.find(libraryName)->second.symbols.try_emplace(symbolName, entry);
} catch (const std::bad_alloc&) {
}

EntryPoint Ask(ServiceLoader& loader, NativeModule module, const char* libraryName,
               const char* symbolName) noexcept {
    const EntryPoint entry = FindEntry(module, symbolName);
    if (entry) {
        Remember(loader, libraryName, symbolName, entry);
    } else {
        LoaderLog(loader, kLoaderLevelUnusable, "%s %s", "Unable to locate symbol %s in %s", symbolName,
                  libraryName);
    }
    return entry;
}

} // namespace

void AddSearchPath(ServiceLoader& loader, const std::string& path) noexcept try {
    const std::string resolved = ResolvePath(path);
    if (resolved.empty()) return;
    const auto isListed = [&] {
        return std::ranges::find(loader.searchPaths, resolved) != loader.searchPaths.end();
    };
    {
        const Lock lock(loader.tablesLock);
        if (isListed()) return;
    }
    LoaderLog(loader, kLoaderLevelPath, "%s", "adding search path: %s", resolved.c_str());
    const Lock lock(loader.tablesLock);
    if (!isListed()) loader.searchPaths.push_back(resolved);
} catch (const std::bad_alloc&) { // as a path that cannot be resolved
}

bool AddLibrary(ServiceLoader& loader, const char* name, const char* alternateName) noexcept {
    try {
        if (AddAgain(loader, name) || FindAndAdd(loader, name, alternateName)) return true;
    } catch (const std::bad_alloc&) { // counts as not found
    }
    LogNotFound(loader, name, alternateName);
    return false;
}

EntryPoint FindSymbol(ServiceLoader& loader, const char* libraryName, const char* symbolName) noexcept try {
    const SymbolPlace place = LookUp(loader, libraryName, symbolName);
    if (!place.isLibraryKnown) {
        LoaderLog(loader, kLoaderLevelProgress, "%s %s",
                  "Symbol %s can't be found in library %s because the library has not been added to the "
                  "loader",
                  symbolName, libraryName);
        return nullptr;
    }
    if (place.entry) return place.entry;
    const NativeModule module = place.module ? place.module : Load(loader, libraryName, place.fullPath);
    return module ? Ask(loader, module, libraryName, symbolName) : nullptr;
} catch (const std::bad_alloc&) {
    LoaderLog(loader, kLoaderLevelUnusable, "%s", "Failed to open library %s", libraryName);
    return nullptr;
}

bool IsLoaded(ServiceLoader& loader, const char* name) noexcept {
    const Lock lock(loader.tablesLock);
    const auto entry = loader.libraries.find(name);
    return entry != loader.libraries.end() && entry->second.module;
}

std::string FolderOfLibrary(ServiceLoader& loader, const char* name) {
    const Lock lock(loader.tablesLock);
    const auto entry = loader.libraries.find(name);
    return entry == loader.libraries.end() ? std::string() : entry->second.foundIn;
}

} // namespace brixen::pvn
