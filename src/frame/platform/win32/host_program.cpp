#include "frame/platform/frame_platform.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brixen::pvn {
namespace {

constexpr std::size_t kLongestPath = 32768; // UTF-16 units: the longest path of the system

std::string Utf8(std::wstring_view text) {
    const int units = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, result.data(), bytes, nullptr, nullptr);
    return result;
}

std::wstring PathOfProgram() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size() || path.size() >= kLongestPath) {
            path.resize(length < path.size() ? length : 0);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

// The version resource of a file: a tree of texts with one branch a language.
class VersionResource {
public:
    explicit VersionResource(const std::wstring& path) {
        const DWORD size = GetFileVersionInfoSizeW(path.c_str(), nullptr);
        if (size == 0) return;
        bytes.resize(size);
        if (!GetFileVersionInfoW(path.c_str(), 0, size, bytes.data())) bytes.clear();
    }

    // Returns the text under that name in the first language of the resource; empty when it has none.
    std::string Text(const wchar_t* name) const {
        const auto branch = Find(L"\\VarFileInfo\\Translation");
        if (branch.size() < 2 * sizeof(WORD)) return {};
        const auto* language = reinterpret_cast<const WORD*>(branch.data());
        wchar_t path[64];
        std::swprintf(path, std::size(path), L"\\StringFileInfo\\%04x%04x\\%ls", language[0], language[1],
                      name);
        const auto found = Find(path, sizeof(wchar_t));
        const auto* text = reinterpret_cast<const wchar_t*>(found.data());
        return Utf8({text, wcsnlen(text, found.size() / sizeof(wchar_t))});
    }

private:
    // The system counts the length of a text in UTF-16 units and of any other value in bytes. A value that is
    // wrongly marked as a text must not reach beyond the resource.
    std::span<const char> Find(const wchar_t* path, std::size_t unit = 1) const {
        void* value = nullptr;
        UINT length = 0;
        if (bytes.empty() || !VerQueryValueW(bytes.data(), path, &value, &length)) return {};
        const char* first = static_cast<const char*>(value);
        return {first, std::min(length * unit, static_cast<std::size_t>(&bytes.back() + 1 - first))};
    }

    std::vector<char> bytes;
};

} // namespace

HostProgram DescribeHostProgram() {
    const std::wstring path = PathOfProgram();
    const VersionResource version(path);
    const auto name = path.find_last_of(L"\\/") + 1; // npos + 1 is 0
    return {version.Text(L"ProductName"), version.Text(L"FileDescription"),
            Utf8(std::wstring_view(path).substr(name))};
}

} // namespace brixen::pvn
