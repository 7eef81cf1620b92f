// The shipped texts, read from the source tree.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace brixen::pvn::pvn_workflow {

inline const std::filesystem::path kSources = std::filesystem::path(PAVANE_TEST_DATA) / "../../resources";

inline std::string ReadText(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// Names of what lies in a folder, sorted.
inline std::vector<std::string> NamesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

using Words = std::map<std::string, std::string>;

// The entries of one dictionary source, `"key=value"` a line. Anything else but an empty line is a failure.
inline Words ReadWords(const std::filesystem::path& path) {
    Words words;
    std::istringstream lines(ReadText(path));
    for (std::string line; std::getline(lines, line);) {
        if (line.empty()) continue;
        const std::size_t equals = line.find('=');
        const bool isEntry =
            line.size() > 2 && line.front() == '"' && line.back() == '"' && equals != line.npos;
        EXPECT_TRUE(isEntry) << path << ": " << line;
        if (!isEntry) continue;
        const std::string value = line.substr(equals + 1, line.size() - equals - 2);
        EXPECT_TRUE(words.emplace(line.substr(1, equals - 1), value).second) << path << " twice: " << line;
    }
    return words;
}

// The words of a text that a user reads. Those of a list for a popup, `label{value};label{value}`, are its
// labels, one a line.
inline std::string ReadByUser(const std::string& text) {
    std::string words;
    std::size_t from = 0;
    for (std::size_t open = text.find('{'); open != text.npos; open = text.find('{', from)) {
        words += text.substr(from, open - from) + "\n";
        const std::size_t end = text.find("};", open);
        from = end == text.npos ? text.size() : end + 2;
    }
    return words + text.substr(from);
}

// Whether a text is free of typewriter quotes and, in Arabic, of the marks that have an Arabic form.
inline bool HasNoForeignMarks(const std::string& text, const std::string& locale) {
    return text.find_first_of(locale == "ar_AE" ? "\"'?,;" : "\"'") == text.npos;
}

// Whether a hard space keeps each high mark and guillemet beside its word: U+00A0, since few fonts have the
// narrow one.
inline bool HasFrenchSpacing(const std::string& text) {
    const std::string hardSpace = "\u00A0";
    for (const std::string mark : {";", ":", "!", "?", "»"})
        for (std::size_t at = text.find(mark); at != text.npos; at = text.find(mark, at + 1))
            if (!text.substr(0, at).ends_with(hardSpace)) return false;
    for (std::size_t at = text.find("«"); at != text.npos; at = text.find("«", at + 1))
        if (text.compare(at, 4, "«" + hardSpace) != 0) return false;
    return true;
}

} // namespace brixen::pvn::pvn_workflow
