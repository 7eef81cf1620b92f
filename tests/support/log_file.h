// The log of one test: the temporary folder of the native twin is a fresh one while the object lives.
#pragma once

#include "frame/log.h"
#include "frame/platform/posix/frame_twin.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace pavane_test {

class LogFile {
public:
    LogFile() { brixen::pvn::GetFrameTwin().temporaryFolder = (folder / "").u16string(); }
    ~LogFile() {
        brixen::pvn::CloseLog();
        brixen::pvn::ResetFrameTwin();
    }
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    const std::filesystem::path& Folder() const { return folder.Path(); }
    std::filesystem::path Path() const { return folder / "pvn.log"; }

    std::string Text() const {
        std::ifstream file(Path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Returns the lines without their prefix; a line with a wrong prefix stays whole.
    std::vector<std::string> Bodies() const {
        static const std::regex prefix(R"(^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d \[\d+\] )");
        std::vector<std::string> bodies;
        std::ifstream file(Path());
        for (std::string line; std::getline(file, line);)
            bodies.push_back(std::regex_replace(line, prefix, ""));
        return bodies;
    }

private:
    const TemporaryFolder folder;
};

} // namespace pavane_test
