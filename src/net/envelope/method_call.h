// Writes a call to the service: a small document with a method's name and its parameters.
#pragma once

#include "frame/status.h"
#include "net/envelope/rpc_params.h"

#include <string>

namespace brixen::pvn {

// Replaces `out` by the call and returns 0. Intentional: nothing is escaped. Names and values must be plain,
// so anything else is sent as bytes. A null name is the same as an empty one. Throws std::bad_alloc.
int WriteMethodCall(const char* methodName, const PVN_RPCParamVector& params, std::string& out);

// Replaces `out` by a call with one parameter, the payload as hexadecimal text. A null payload is the same as
// an empty one. Returns kStatusNoMemory, with an empty `out`, when there is no memory for that text, and
// otherwise 0. Throws
// std::bad_alloc when there is none for the call.
[[nodiscard]] Status BuildPayloadCall(const char* payload, const char* methodName,
                                      const char* requestParamName, std::string& out);

} // namespace brixen::pvn
