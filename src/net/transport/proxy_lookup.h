// The proxy that the system's settings name for a URL.
#pragma once

#include "frame/status.h"
#include "net/transport/call_limit.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace brixen::pvn {

inline constexpr std::size_t kLongestProxy = 255; // UTF-16 units

// Returns the proxy for https in a fixed text of the settings, which is one proxy for everything or a list by
// protocols; empty for none. Kept: whatever follows a ";" is not cut off.
[[nodiscard]] std::u16string_view ProxyInSettings(std::u16string_view text) noexcept;

// One look-up. If a configuration script has to be asked, which may take minutes, a thread of its own asks;
// without an Await that thread ends by itself, as it does after an Await that ended early.
class ProxyLookUp {
public:
    // Reads the settings, and begins to ask the script for `url`, which is UTF-8.
    explicit ProxyLookUp(const char* url) noexcept;

    // Waits for the script, once, and replaces `result` by the proxy. It is empty when there is none, when it
    // is longer than kLongestProxy, and after any failure, missing memory included. Returns
    // kStatusCallCanceled or kStatusCallTimedOut when the limit ended the wait, and otherwise 0.
    [[nodiscard]] Status Await(const CallLimit& limit, std::u16string& result) noexcept;

private:
    struct Question;

    static unsigned long Ask(void* question) noexcept;
    void StartAsking(const char* url, ProxySettings settings);

    std::u16string proxy;
    std::shared_ptr<Question> question; // null when no script was asked
};

} // namespace brixen::pvn
