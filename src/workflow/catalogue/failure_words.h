// The words that a user reads about a call to the service that failed: what happened, and what to try.
#pragma once

#include "frame/status.h"

#include <string>

namespace brixen::pvn::pvn_workflow {

// Keys of two texts.
struct FailureWords {
    const char* what;
    const char* tryThis;
};

// Returns the words of a status. `denied` is for a service that has refused what was asked of it.
[[nodiscard]] FailureWords WordsOfFailure(Status status, const FailureWords& denied);

// Returns the text of a pane, in paragraphs: the words of the status, then the text of `kept`.
[[nodiscard]] std::string TextOfFailure(Status status, const FailureWords& denied, const char* kept);

} // namespace brixen::pvn::pvn_workflow
