#include "services/folder_rules.h"

#include "values/unicode/ascii.h"

#include <algorithm>
#include <string_view>

namespace brixen::pvn {
namespace {

// The case of letters counts, except in ASCII.
bool BeginsWith(std::string_view path, std::string_view beginning) {
    const auto isSame = [](char one, char other) {
        return lyr::gen::ToAsciiLower(one) == lyr::gen::ToAsciiLower(other);
    };
    return std::ranges::equal(path.substr(0, beginning.size()), beginning, isSame);
}

bool IsInside(std::string_view folder, std::string_view outer) {
    if (outer.ends_with('\\')) outer.remove_suffix(1);
    if (outer.empty() || !BeginsWith(folder, outer)) return false;
    return folder.size() == outer.size() || folder[outer.size()] == '\\';
}

} // namespace

std::string FolderOfFile(const std::string& path) {
    const std::size_t end = path.find_last_of("\\/");
    if (end == std::string::npos) return {};
    const bool isDrive = end > 0 && path[end - 1] == ':';
    return path.substr(0, isDrive ? end + 1 : end);
}

bool IsOnServer(std::string_view folder) {
    const bool isOfDevice = folder.starts_with("\\\\?\\") || folder.starts_with("\\\\.\\");
    return isOfDevice ? BeginsWith(folder.substr(4), "UNC\\") : folder.starts_with("\\\\");
}

bool IsTrusted(const FolderPlace& workingDirectory, const FolderPlace& temporaryFolder) {
    if (workingDirectory.path.empty()) return false;
    if (workingDirectory.isOnNetworkDrive || IsOnServer(workingDirectory.path)) return false;
    return !IsInside(workingDirectory.path, temporaryFolder.path);
}

} // namespace brixen::pvn
