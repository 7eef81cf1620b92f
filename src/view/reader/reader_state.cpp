#include "view/reader/reader_state.h"

namespace brixen::zeve {

ReaderState gReaderState;

void AbandonReading() noexcept {
    const ReadingLimits limits = gReaderState.limits;
    gReaderState = {};
    gReaderState.limits = limits;
}

void ResetReaderState() { gReaderState = {}; }

} // namespace brixen::zeve
