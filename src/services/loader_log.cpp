#include "services/loader_log.h"

#include "services/platform/services_platform.h"

#include <cstddef>
#include <cstdio>
#include <utility>

namespace brixen::pvn {
namespace {

constexpr char kComponent[] = "ServiceLoader";
constexpr std::size_t kTextLimit = 4093;    // bytes
constexpr std::size_t kRoomAroundText = 64; // component, separator, line end and terminator

void FormatToDebugger(int level, const char* format, std::va_list arguments) noexcept {
    if (level < kLoaderLevelFailure || level > kLoaderLevelMissing) return;
    char text[kTextLimit + 1] = {};
    std::vsnprintf(text, sizeof text, format, arguments);
    ShowToDebugger(kComponent, text);
}

// Marks a message of this thread as under way while it lives, unless the thread has one already.
class MessageMark {
public:
    explicit MessageMark(LoaderLogChannel& ofChannel) noexcept
        : channel(ofChannel), message{CurrentThreadNumber(), nullptr} {
        const std::lock_guard lock(channel.messagesLock);
        isFirst = !IsListed();
        if (isFirst) message.next = std::exchange(channel.messages, &message);
    }
    ~MessageMark() {
        const std::lock_guard lock(channel.messagesLock);
        if (isFirst) Unlist();
    }
    MessageMark(const MessageMark&) = delete;
    MessageMark& operator=(const MessageMark&) = delete;

    [[nodiscard]] bool IsFirstOfThread() const noexcept { return isFirst; }

private:
    bool IsListed() const noexcept {
        const MessageUnderWay* other = channel.messages;
        while (other && other->thread != message.thread) other = other->next;
        return other;
    }
    void Unlist() noexcept {
        MessageUnderWay** place = &channel.messages;
        while (*place != &message) place = &(*place)->next;
        *place = message.next;
    }

    LoaderLogChannel& channel;
    MessageUnderWay message;
    bool isFirst = false;
};

void Send(LoaderLogChannel& channel, int level, const char* argumentFormats, const char* format,
          std::va_list arguments) noexcept {
    const MessageMark mark(channel);
    if (mark.IsFirstOfThread())
        channel.logv(nullptr, kComponent, level, argumentFormats, format, arguments);
    else
        FormatToDebugger(level, format, arguments);
}

} // namespace

void ShowToDebugger(const char* component, const char* text) noexcept {
    char line[kTextLimit + kRoomAroundText];
    std::snprintf(line, sizeof line, "%s: %s\r\n", component, text);
    WriteToDebugger(line);
}

void LoaderLog(LoaderLogChannel& channel, int level, const char* argumentFormats, const char* format,
               ...) noexcept {
    std::va_list arguments;
    va_start(arguments, format);
    if (channel.useLoggingService && channel.logv)
        Send(channel, level, argumentFormats, format, arguments);
    else
        FormatToDebugger(level, format, arguments);
    va_end(arguments);
}

} // namespace brixen::pvn
