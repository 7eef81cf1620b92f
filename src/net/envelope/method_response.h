// Reads the answer to a call. The answer is hostile input: it may hold anything.
#pragma once

#include "frame/status.h"
#include "net/envelope/rpc_params.h"

#include <cstddef>
#include <string>

namespace brixen::pvn {

// Results of the reader. The numbers are part of the contract.
inline constexpr int kResponseParsed = 0;
inline constexpr int kResponseBadCall = -1;       // a null text, or a vector that is not empty
inline constexpr int kResponseNotWellFormed = -3; // the text is no markup
inline constexpr int kResponseWrongRoot = -4;     // the root element is not `methodResponse`
inline constexpr int kResponseBadParam = -5;      // a `param` has no valid value

// Appends the parameters of the answer to `out`, which owns them from then on. An answer without `params` has
// none. A param that cannot be read ends the reading, and those before it stay in `out`. Throws
// std::bad_alloc.
[[nodiscard]] int ParseMethodResponse(const char* text, PVN_RPCParamVector& out);

// Replaces `out` by the payload of the first parameter whose name begins with `responseParamName`, up to the
// payload's first zero byte or to its first pair of characters that is no byte. The payload of a parameter
// with an odd number of characters is empty. Returns 0, or kStatusUnexpectedContent with an empty `out` when
// there is no such parameter. Kept: without memory for the payload the result is 0 too, and `out` is empty. A
// null text has no parameters, and a null name is the same as an empty one. Throws std::bad_alloc.
[[nodiscard]] Status ReadPayloadResponse(const char* responseText, const char* responseParamName,
                                         std::string& out);

// The longest answer that is logged in full, in bytes.
inline constexpr std::size_t kLongestLoggedResponse = 65536;

// Logs an answer that ReadPayloadResponse could not read. The log gets at most kLongestLoggedResponse bytes
// of it, cut before a character that does not fit, and then the number of the bytes that follow.
void LogUnknownResponse(const std::string& responseText) noexcept;

} // namespace brixen::pvn
