// The process-wide state of the readers, which makes them non-reentrant across threads.
#pragma once

#include "view/reader/reading_limits.h"

#include <cstdint>

namespace brixen::zeve {

class CExpressionScope;

// The furthest positions in a text that a construct reached: one that was completed, and one that failed. An
// aid for seeing where a description stopped. Texts run by `eval` do not move them.
struct HighWaterMarks {
    const char* completed = nullptr;
    const char* failed = nullptr;
};

struct ReaderState {
    // Of the run under way, or else of the latest one. Set at its start.
    HighWaterMarks marks;
    // How many runs are under way: more than one while a hook of one has started another.
    std::uint32_t runs = 0;
    // The scope of the expression that calls a user function, during the call.
    CExpressionScope* currentScope = nullptr;
    ReadingLimits limits;
};

extern ReaderState gReaderState;

// For a stack that was left without destructors: as if all runs had returned. The limits stay.
void AbandonReading() noexcept;

// Restores the state at the start of the process, for tests.
void ResetReaderState();

} // namespace brixen::zeve
