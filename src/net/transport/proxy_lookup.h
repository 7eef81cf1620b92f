// The proxy that the system's settings name for a URL.
#pragma once

#include "frame/status.h"
#include "net/transport/call_limit.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace brixen::pvn {

inline constexpr std::size_t kLongestProxy = 255; // UTF-16 units

// Returns the proxy for https in a fixed text of the settings, which is one proxy for everything or a list by
// protocols; empty for none. Kept: whatever follows a ";" is not cut off.
[[nodiscard]] std::u16string_view ProxyInSettings(std::u16string_view text) noexcept;

// Replaces `proxy` by the proxy for `url`, which is UTF-8. It is empty when there is none, when it is longer
// than kLongestProxy, and after any failure. Returns kStatusCallCanceled or kStatusCallTimedOut when the
// limit ended the look-up, which then goes on by itself on a thread of its own, and otherwise 0. Throws
// std::bad_alloc.
[[nodiscard]] Status LookUpSystemProxy(const char* url, const CallLimit& limit, std::u16string& proxy);

} // namespace brixen::pvn
