// A temporary folder with PVResources in it, deleted with the object.
#pragma once

#include "support/temporary_folder.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace pavane_test {

class ResourceFolder {
public:
    // `name` becomes part of the folder's name; any letters will do.
    explicit ResourceFolder(const std::u16string& name = u"pavane") : folder(name) {
        std::filesystem::create_directory(folder / "PVResources");
    }

    // Writes a file below PVResources, folders included.
    void Write(const std::string& name, const std::string& bytes) const {
        const std::filesystem::path path = PathOf(name);
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }
    void Copy(const std::string& name, const std::filesystem::path& source) const {
        const std::filesystem::path path = PathOf(name);
        std::filesystem::create_directories(path.parent_path());
        std::filesystem::copy_file(source, path);
    }
    // Returns whether the file existed.
    bool Remove(const std::string& name) const { return std::filesystem::remove(PathOf(name)); }

    std::filesystem::path PathOf(const std::string& name) const { return folder / "PVResources" / name; }
    const std::filesystem::path& Folder() const { return folder.Path(); }
    // Returns the folder's path in UTF-8, as the library takes it.
    std::string Utf8() const {
        const std::u8string text = Folder().u8string();
        return std::string(text.begin(), text.end());
    }

private:
    TemporaryFolder folder;
};

} // namespace pavane_test
