// The host's event function and the occasions on which the toolkit calls it.
#pragma once

#include <cstdint>

namespace brixen::zeve {

class EventRecord;

// `params` is what the host gave when the dialog was made. Only the low 32 bits of the result are used, and
// only for kWhatMessage. Called on the thread that made the dialog; it may throw: the exception comes out of
// the operation, or of the modal run, that led to the call.
using ZeveCallback = std::uint64_t (*)(std::int32_t what, EventRecord& record, void* params);

// A callback as the number that a scope holds under `__callback`.
inline std::int64_t CallbackNumber(ZeveCallback callback) {
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(callback));
}

// A message arrived at the dialog's window. The record holds kKeyWindow, kKeyEventRecord, kKeyWparam,
// kKeyLparam.
inline constexpr std::int32_t kWhatMessage = 0;
// A modal run is about to show the dialog. The record is empty.
inline constexpr std::int32_t kWhatModalRun = 1;
// The box of a top-level view was made. The record holds kKeyWindow, kKeyWhat, kKeyScope.
inline constexpr std::int32_t kWhatTopLevelMade = 2;
// The box of any other view was made. The record holds kKeyControl, kKeySubControl, kKeyWhat, kKeyScope.
inline constexpr std::int32_t kWhatViewMade = 3;

// What a host answers to kWhatMessage. Any other answer means that the message was consumed; for the color
// messages it is the brush.
inline constexpr std::uint32_t kAnswerDefault = 1;     // the system's default processing
inline constexpr std::uint32_t kAnswerEndPositive = 2; // ends the modal run, which returns true
inline constexpr std::uint32_t kAnswerEndNegative = 3; // ends the modal run, which returns false

} // namespace brixen::zeve
