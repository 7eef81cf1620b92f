// Folders for the companion libraries that the build has made, a loader over them, and what they recorded.
#pragma once

#include "services/base_services.h"
#include "support/temporary_folder.h"
#include "windows/services/debugger_texts.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace brixen::pvn {

using Path = std::filesystem::path;

inline std::string Utf8(const Path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

inline std::string BytesOf(const Path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

inline void WriteBytes(const Path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline Path CompanionFile(const char* kind, const char* name = kBaseServices) {
    return Path(PAVANE_COMPANIONS) / kind / name;
}

class Companion : public testing::Test {
protected:
    Companion() { ResetServiceLoader(); }
    ~Companion() override {
        FreeLibraries(loader);
        FreeLibraries(GetServiceLoader());
        ResetServiceLoader();
    }

    // Copies a companion into a folder of this test, which is made if it is absent.
    Path Install(const char* kind, const Path& folder, const char* name = kBaseServices) const {
        std::filesystem::create_directories(folder);
        std::filesystem::copy_file(CompanionFile(kind, name), folder / name);
        return folder / name;
    }
    bool Add(const Path& folder) {
        AddSearchPath(loader, Utf8(folder));
        return AddLibrary(loader, kBaseServices, "");
    }
    EntryPoint Find(const char* symbol) { return FindSymbol(loader, kBaseServices, symbol); }
    template <class Function>
    Function* FindAs(const char* symbol) {
        return reinterpret_cast<Function*>(Find(symbol));
    }
    const LibraryEntry& Entry() { return loader.libraries.find(kBaseServices)->second; }

    pavane_test::TemporaryFolder folder;
    ServiceLoader loader;
    DebuggerTexts debugger;

private:
    // So that the folder of the test can be deleted. Each thread that has loaded a library counts as a user
    // of it.
    static void FreeLibraries(ServiceLoader& of) {
        for (const auto& [name, entry] : of.libraries) {
            while (entry.module && FreeLibrary(reinterpret_cast<HMODULE>(entry.module))) {
            }
        }
    }
};

} // namespace brixen::pvn
