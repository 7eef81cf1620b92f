// The process-wide state of the readers: what makes them non-reentrant across threads.
#pragma once

#include "view/reader/reading_limits.h"

namespace brixen::zeve {

class CExpressionScope;

// The furthest positions in a text that were reached by a construct that was completed and by one that
// failed. An aid for seeing where a description stopped; texts run by `eval` do not move them.
struct HighWaterMarks {
    const char* completed = nullptr;
    const char* failed = nullptr;
};

struct ReaderState {
    HighWaterMarks marks; // of the run under way or else of the latest one, set at its start
    // How many runs are under way: more than one while a hook of one has started another.
    std::uint32_t runs = 0;
    // The scope whose expression calls a user function, for the time of the call.
    CExpressionScope* currentScope = nullptr;
    // What a fuzzer lowers, so that an input that reaches the limit does not take it seconds.
    std::uint32_t maximumEvaluatedTexts = kMaximumEvaluatedTexts;
};

extern ReaderState gReaderState;

void ResetReaderState();

} // namespace brixen::zeve
