// One call to the service, made by a worker out of its private bag.
#pragma once

#include "frame/status.h"
#include "values/storage.h"
#include "workflow/context/worker_notifier.h"

#include <string>
#include <string_view>

namespace brixen::pvn::pvn_workflow {

// Posts a payload to the address under PvnWFKey_ServiceUrl, by the way out that the bag has, and replaces
// `answer` by the payload of the answer, which is hostile input. Returns 0 or
//
// - kStatusInvalidUrl for an address that IsAllowedAddress refuses;
// - kStatusCallCanceled, before anything is sent, if the worker is not to go on;
// - a status of the transport, 0xD0xx;
// - the service's own status, 0x8501 to 0x85FF;
// - kStatusUnexpectedContent for an answer without a payload, and for a status that is none of the service's.
//   The answer is logged.
//
// `answer` is empty unless the status is 0. Any thread. Throws std::bad_alloc.
[[nodiscard]] Status CallService(T_StorageInterface& workerBag, const char* method,
                                 const std::string& payload, std::string& answer,
                                 const WorkerNotifier& notifier);

// What an entry returns for a payload that is not the answer to its call: logs it and returns
// kStatusUnexpectedContent.
[[nodiscard]] Status RefuseAnswer(const std::string& answer) noexcept;

// Whether an address may get what a user has typed: `https:`, or `http:` on this computer itself.
[[nodiscard]] bool IsAllowedAddress(std::string_view url);

// Returns the status that an answer has beside its payload, in its first `integer` parameter named `status`.
// An answer without one, or with the text "0", is a success. Texts from "34049" to "34303" are the service's
// own statuses. Any other text, and an answer that cannot be read, is kStatusUnexpectedContent. Throws
// std::bad_alloc.
[[nodiscard]] Status ReadServiceStatus(const std::string& response);

} // namespace brixen::pvn::pvn_workflow
