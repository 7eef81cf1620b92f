// Status words: 0 is success, any other value a failure or a decision of the user. A value means the same
// wherever it appears: returned, kept as the last error, passed to a progress callback, or stored as the
// result of a workflow.
#pragma once

#include <cstdint>

namespace brixen::pvn {

using Status = std::uint16_t;

inline constexpr Status kStatusSuccess = 0;
inline constexpr Status kStatusNotInitialized = 0x8101;  // there is no context
inline constexpr Status kStatusNullArgument = 0x8102;    // a required pointer was null
inline constexpr Status kStatusBadArgument = 0x8106;     // a value outside its set
inline constexpr Status kStatusNoMemory = 0x8206;        // an allocation failed
inline constexpr Status kStatusException = 0x8209;       // an exception reached a boundary
inline constexpr Status kStatusNoThread = 0x8282;        // the worker thread could not be created
inline constexpr Status kStatusUnmappedOutcome = 0x8401; // a workflow ended in a way that has no status
inline constexpr Status kStatusUserQuit = 0x8901;        // the user chose to quit the host
inline constexpr Status kStatusUserCancel = 0x8902;      // the user canceled the workflow
inline constexpr Status kStatusUserOutcome3 = 0x8903;    // each workflow defines its meaning
inline constexpr Status kStatusUserOutcome4 = 0x8904;    // each workflow defines its meaning

// Failed calls to the service.
inline constexpr Status kStatusCallCanceled = 0xD001;      // the cancel event was signaled
inline constexpr Status kStatusCallTimedOut = 0xD002;      // the time-out elapsed
inline constexpr Status kStatusUnexpectedContent = 0xD003; // the answer did not hold what was asked for
inline constexpr Status kStatusSystemError = 0xD0A1;       // any system error that is not listed below
inline constexpr Status kStatusCallNoMemory = 0xD0A2;      // there was no memory
inline constexpr Status kStatusHttpError = 0xD0A3;         // any HTTP error that is not listed below
inline constexpr Status kStatusInvalidUrl = 0xD0B1;        // the URL is not valid
inline constexpr Status kStatusNameNotResolved = 0xD0B2;   // the host's name was not resolved
inline constexpr Status kStatusSecureFailure = 0xD0B3;     // the secure connection failed

// The service's own replies: with the first one it denies the request, with the others it is not available.
inline constexpr Status kStatusServiceDenied = 0x8501;
inline constexpr Status kLastServiceReply = 0x85FF;
constexpr bool IsServiceReply(Status status) {
    return status >= kStatusServiceDenied && status <= kLastServiceReply;
}

// The decisions of the user are no faults.
constexpr bool IsUserDecision(Status status) { return status >> 8 == 0x89; }

} // namespace brixen::pvn
