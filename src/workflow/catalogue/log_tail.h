// The end of the log, which a user may send along.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

inline constexpr std::size_t kKiB = 1024;
// What is offered at most. The log begins anew above 250 KiB, and a service takes 1 MiB.
inline constexpr std::size_t kMostKiBOfLog = 256;

// Returns the bytes of the log that can be sent at most, cut as TailOfLog cuts; nothing if there is no log,
// or if it cannot be read. No more of the log is read, however long it is.
[[nodiscard]] std::string ReadLogTail();

// Returns how many KiB there are, the last of which may be a part.
[[nodiscard]] std::size_t KiBOf(std::string_view log);

// Returns at most that many KiB of the end, as text that markup can hold. It begins with a whole line if one
// begins in the first 256 bytes, and else with a whole character. U+FFFD takes the place of bytes that are no
// UTF-8; control characters other than tabs and line feeds are dropped.
[[nodiscard]] std::u16string TailOfLog(std::string_view log, std::size_t kib);

} // namespace brixen::pvn::pvn_workflow
