// A folder of one test's own, deleted with the object. Tests run side by side in processes of their own, so a
// fixed name would be shared.
#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace pavane_test {

class TemporaryFolder {
public:
    // `name` becomes part of the folder's name; any letters will do.
    explicit TemporaryFolder(const std::u16string& name = u"pavane") {
        const std::string unique = "-" + std::to_string(std::random_device{}());
        const std::filesystem::path last(name + std::u16string(unique.begin(), unique.end()));
        folder = std::filesystem::temp_directory_path() / last;
        std::filesystem::create_directories(folder);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    const std::filesystem::path& Path() const { return folder; }
    std::filesystem::path operator/(const std::filesystem::path& below) const { return folder / below; }

private:
    std::filesystem::path folder;
};

} // namespace pavane_test
