// One POST and its answer.
#pragma once

#include "frame/status.h"
#include "net/platform/net_platform.h"
#include "net/transport/call_limit.h"

#include <string>

namespace brixen::pvn {

struct TransactionRequest {
    UrlParts url;
    std::u16string proxy; // empty: the way out is the system's
    const char* body = "";
};

// Sends the body and waits for the answer, the cancel event or the end of the limit. Appends the answer to
// `response` when all of it arrived. Returns 0 or a status of the transport. Throws std::bad_alloc.
[[nodiscard]] Status RunTransaction(const TransactionRequest& request, const CallLimit& limit,
                                    std::string& response);

} // namespace brixen::pvn
