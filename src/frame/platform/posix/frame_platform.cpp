#include "frame/platform/posix/frame_twin.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace brixen::pvn {

FrameTwin& GetFrameTwin() noexcept {
    static FrameTwin twin;
    return twin;
}

void ResetFrameTwin() {
    FrameTwin fresh;
    fresh.openThreadHandles = GetFrameTwin().openThreadHandles;
    GetFrameTwin() = fresh;
}

static std::size_t CopyFolder(const std::u16string& path, std::span<char16_t, kPathLimit> folder) noexcept {
    if (path.size() < folder.size()) std::copy_n(path.c_str(), path.size() + 1, folder.begin());
    return path.size();
}

// A chosen folder costs no allocation, so that tests that refuse one find their log where it always is.
std::size_t GetTemporaryFolder(std::span<char16_t, kPathLimit> folder) noexcept try {
    if (const auto& chosen = GetFrameTwin().temporaryFolder) return CopyFolder(*chosen, folder);
    return CopyFolder((std::filesystem::temp_directory_path() / "").u16string(), folder);
} catch (...) {
    return 0;
}

std::FILE* OpenSharedFile(const char16_t* path, bool append) noexcept try {
    return std::fopen(std::filesystem::path(path).string().c_str(), append ? "a" : "w");
} catch (...) {
    return nullptr;
}

std::int64_t SizeOfFile(const char16_t* path) noexcept try {
    return static_cast<std::int64_t>(std::filesystem::file_size(path));
} catch (...) {
    return -1;
}

std::uint32_t TickCount() noexcept {
    FrameTwin& twin = GetFrameTwin();
    if (twin.tickCount) return twin.tickCount.Look(twin.ticksPerLook);
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

std::uint32_t CurrentProcessNumber() noexcept { return static_cast<std::uint32_t>(getpid()); }

std::tm LocalTime(std::time_t time) noexcept {
    std::tm parts = {};
    if (!localtime_r(&time, &parts)) return {};
    return parts;
}

void PinLibrary() noexcept { ++GetFrameTwin().pins; }

LanguageIdentifier ThreadLanguage() noexcept { return GetFrameTwin().threadLanguage; }

namespace {

struct LanguageName {
    LanguageIdentifier language;
    const char* name;
};

constexpr LanguageName kLanguageNames[] = {
    {0x0401, "ar-SA"}, {0x0407, "de-DE"}, {0x0409, "en-US"}, {0x040a, "es-ES_tradnl"}, {0x040c, "fr-FR"},
    {0x040d, "he-IL"}, {0x0410, "it-IT"}, {0x0411, "ja-JP"}, {0x0412, "ko-KR"},        {0x0419, "ru-RU"},
    {0x0804, "zh-CN"}, {0x0807, "de-CH"}, {0x0809, "en-GB"}, {0x3801, "ar-AE"},
};

} // namespace

void GetLocaleName(LanguageIdentifier language, std::span<char, kLocaleNameSize> name) noexcept {
    const auto row = std::ranges::find(kLanguageNames, language, &LanguageName::language);
    const std::string_view text = row == std::end(kLanguageNames) ? "" : row->name;
    name[text.copy(name.data(), name.size() - 1)] = '\0';
}

HostProgram DescribeHostProgram() { return GetFrameTwin().hostProgram; }

} // namespace brixen::pvn
