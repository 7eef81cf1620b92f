#include "workflow/catalogue/failure_words.h"

#include "dictionaries/translation.h"

namespace brixen::pvn::pvn_workflow {

namespace {

constexpr Status kServiceDenies = 0x8501;
constexpr Status kFirstOfService = 0x8500, kLastOfService = 0x85FF;

// The first row whose range holds the status has the words.
constexpr struct {
    Status first, last;
    FailureWords words;
} kRows[] = {
    {kStatusCallTimedOut,
     kStatusCallTimedOut,
     {"$$$/pvn/failure/timed_out/what", "$$$/pvn/failure/timed_out/try"}},
    {kStatusHttpError, kStatusHttpError, {"$$$/pvn/failure/refused/what", "$$$/pvn/failure/refused/try"}},
    {kStatusNameNotResolved,
     kStatusNameNotResolved,
     {"$$$/pvn/failure/name/what", "$$$/pvn/failure/name/try"}},
    {kStatusSecureFailure,
     kStatusSecureFailure,
     {"$$$/pvn/failure/secure/what", "$$$/pvn/failure/secure/try"}},
    {kStatusUnexpectedContent,
     kStatusUnexpectedContent,
     {"$$$/pvn/failure/content/what", "$$$/pvn/failure/content/try"}},
    {kStatusInvalidUrl, kStatusInvalidUrl, {"$$$/pvn/failure/address/what", "$$$/pvn/failure/address/try"}},
    {kStatusCallNoMemory, kStatusCallNoMemory, {"$$$/pvn/failure/memory/what", "$$$/pvn/failure/memory/try"}},
    {kStatusNoMemory, kStatusNoMemory, {"$$$/pvn/failure/memory/what", "$$$/pvn/failure/memory/try"}},
    {kFirstOfService,
     kLastOfService,
     {"$$$/pvn/failure/unavailable/what", "$$$/pvn/failure/unavailable/try"}},
    {kStatusNoThread, kStatusNoThread, {"$$$/pvn/failure/thread/what", "$$$/pvn/failure/thread/try"}},
    {0, 0xFFFF, {"$$$/pvn/failure/other/what", "$$$/pvn/failure/other/try"}},
};

} // namespace

FailureWords WordsOfFailure(Status status, const FailureWords& denied) {
    if (status == kServiceDenies) return denied;
    const auto* row = kRows;
    while (status < row->first || status > row->last) ++row;
    return row->words;
}

std::string TextOfFailure(Status status, const FailureWords& denied, const char* kept) {
    const FailureWords words = WordsOfFailure(status, denied);
    return zeve::ZeveTranslate(words.what) + "\n\n" + zeve::ZeveTranslate(words.tryThis) + "\n\n" +
           zeve::ZeveTranslate(kept);
}

} // namespace brixen::pvn::pvn_workflow
