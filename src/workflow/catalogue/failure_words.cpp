#include "workflow/catalogue/failure_words.h"

#include "dictionaries/translation.h"

#include <algorithm>
#include <iterator>

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr FailureWords kUnavailable{"$$$/pvn/failure/unavailable/what", "$$$/pvn/failure/unavailable/try"};
constexpr FailureWords kOther{"$$$/pvn/failure/other/what", "$$$/pvn/failure/other/try"};

struct Row {
    Status status;
    FailureWords words;
};
constexpr Row kRows[] = {
    {kStatusCallTimedOut, {"$$$/pvn/failure/timed_out/what", "$$$/pvn/failure/timed_out/try"}},
    {kStatusHttpError, {"$$$/pvn/failure/refused/what", "$$$/pvn/failure/refused/try"}},
    {kStatusNameNotResolved, {"$$$/pvn/failure/name/what", "$$$/pvn/failure/name/try"}},
    {kStatusSecureFailure, {"$$$/pvn/failure/secure/what", "$$$/pvn/failure/secure/try"}},
    {kStatusUnexpectedContent, {"$$$/pvn/failure/content/what", "$$$/pvn/failure/content/try"}},
    {kStatusInvalidUrl, {"$$$/pvn/failure/address/what", "$$$/pvn/failure/address/try"}},
    {kStatusCallNoMemory, {"$$$/pvn/failure/memory/what", "$$$/pvn/failure/memory/try"}},
    {kStatusNoMemory, {"$$$/pvn/failure/memory/what", "$$$/pvn/failure/memory/try"}},
    {kStatusNoThread, {"$$$/pvn/failure/thread/what", "$$$/pvn/failure/thread/try"}},
};

} // namespace

FailureWords WordsOfFailure(Status status, const FailureWords& denied) {
    if (status == kStatusServiceDenied) return denied;
    if (IsServiceReply(status)) return kUnavailable;
    const auto* const row = std::ranges::find(kRows, status, &Row::status);
    return row != std::end(kRows) ? row->words : kOther;
}

std::string TextOfFailure(Status status, const FailureWords& denied, const char* kept) {
    const FailureWords words = WordsOfFailure(status, denied);
    return zeve::ZeveTranslate(words.what) + "\n\n" + zeve::ZeveTranslate(words.tryThis) + "\n\n" +
           zeve::ZeveTranslate(kept);
}

} // namespace brixen::pvn::pvn_workflow
