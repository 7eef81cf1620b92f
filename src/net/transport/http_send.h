// The transport: one POST to one URL, one answer. No session, no state between calls, no retry.
#pragma once

#include "frame/status.h"
#include "net/transport/communication_detail.h"

#include <string>

namespace brixen::pvn {

// Sends `body` as it is to `url` and replaces `response` by the body of the answer, up to its first zero
// byte. `response` is empty unless the whole answer arrived. Returns 0 or a status of the family 0xD0xx; an
// answer of any HTTP status, such as a 404, is an answer like any other. `url` is text in the process's code
// page. A null text is the same as an empty one. An `http:` address of this computer is not sent to a proxy
// on another one, where it would arrive unencrypted: kStatusInvalidUrl.
//
// Blocks for at most the limit of `detail`, on any thread, and ends early after CancelTransaction. The
// library must stay loaded afterward: an abandoned look-up of the system ends later, on a thread of its own.
[[nodiscard]] Status PVN_HTTPSend(const char* url, const CommunicationDetail& detail, const char* body,
                                  std::string& response) noexcept;

} // namespace brixen::pvn
