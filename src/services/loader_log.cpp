#include "services/loader_log.h"

#include "services/platform/services_platform.h"

#include <cstddef>
#include <cstdio>

namespace brixen::pvn {
namespace {

constexpr char kComponent[] = "ServiceLoader";
constexpr std::size_t kTextLimit = 4093;    // bytes
constexpr std::size_t kRoomAroundText = 64; // component, separator, line end and terminator

void ShowToDebugger(const char* component, const char* text) {
    char line[kTextLimit + kRoomAroundText];
    std::snprintf(line, sizeof line, "%s: %s\r\n", component, text);
    WriteToDebugger(line);
}

void FormatToDebugger(const char* format, std::va_list arguments) {
    char text[kTextLimit + 1] = {};
    std::vsnprintf(text, sizeof text, format, arguments);
    ShowToDebugger(kComponent, text);
}

} // namespace

void LoaderLog(const LoaderLogChannel& channel, int level, const char* argumentFormats, const char* format,
               ...) {
    std::va_list arguments;
    va_start(arguments, format);
    if (!channel.useLoggingService) {
        if (level >= kLoaderLevelFailure && level <= kLoaderLevelMissing) FormatToDebugger(format, arguments);
    } else if (const LogvEntry logv = channel.findLogv ? channel.findLogv() : nullptr) {
        logv(nullptr, kComponent, level, argumentFormats, format, arguments);
    } else {
        ShowToDebugger("Logging", "failed to find C_SVHLogv\n");
    }
    va_end(arguments);
}

} // namespace brixen::pvn
