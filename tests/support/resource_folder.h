// A temporary folder with PVResources in it, gone with the object.
#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace test_support {

class ResourceFolder {
public:
    // `name` becomes part of the folder's name; any letters will do.
    explicit ResourceFolder(const std::u16string& name = u"pavane") {
        const std::string unique = std::to_string(std::random_device{}());
        folder = std::filesystem::temp_directory_path() / std::filesystem::path(name + u"-" + Wide(unique));
        std::filesystem::create_directories(folder / "PVResources");
    }
    ResourceFolder(const ResourceFolder&) = delete;
    ResourceFolder& operator=(const ResourceFolder&) = delete;
    ~ResourceFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
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
    // Whether it was there.
    bool Remove(const std::string& name) const { return std::filesystem::remove(PathOf(name)); }

    std::filesystem::path PathOf(const std::string& name) const { return folder / "PVResources" / name; }
    const std::filesystem::path& Folder() const { return folder; }
    // The folder as the library takes it.
    std::string Utf8() const {
        const std::u8string text = folder.u8string();
        return std::string(text.begin(), text.end());
    }

private:
    static std::u16string Wide(const std::string& ascii) {
        return std::u16string(ascii.begin(), ascii.end());
    }

    std::filesystem::path folder;
};

} // namespace test_support
