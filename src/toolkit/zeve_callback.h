// The host's callback and the events for which the toolkit calls it.
#pragma once

#include <cstdint>

namespace brixen::zeve {

class EventRecord;

// `params` is the pointer that the host passed to ZeveMakeDialog. Only the low 32 bits of the result are
// used, and only for kWhatMessage. The callback runs on the thread that made the dialog. It may throw: the
// operation or modal run that led to the call throws the same exception.
using ZeveCallback = std::uint64_t (*)(std::int32_t what, EventRecord& record, void* params);

// Returns the callback as the number that a scope holds under `__callback`.
[[nodiscard]] inline std::int64_t CallbackNumber(ZeveCallback callback) {
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(callback));
}

// The dialog's window received a message. The record holds kKeyWindow, kKeyEventRecord, kKeyWparam,
// kKeyLparam.
inline constexpr std::int32_t kWhatMessage = 0;
// A modal run is about to show the dialog. The record is empty.
inline constexpr std::int32_t kWhatModalRun = 1;
// The box of a top-level view was made. The record holds kKeyWindow, kKeyWhat, kKeyScope.
inline constexpr std::int32_t kWhatTopLevelMade = 2;
// The box of any other view was made. The record holds kKeyControl, kKeySubControl, kKeyWhat, kKeyScope.
inline constexpr std::int32_t kWhatViewMade = 3;

// The host's answers to kWhatMessage. Any other answer means that the host handled the message; for the color
// messages it is the brush.
inline constexpr std::uint32_t kAnswerDefault = 1;     // the system's default procedure answers
inline constexpr std::uint32_t kAnswerEndPositive = 2; // ends the modal run, which returns true
inline constexpr std::uint32_t kAnswerEndNegative = 3; // ends the modal run, which returns false

} // namespace brixen::zeve
