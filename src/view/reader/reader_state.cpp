#include "view/reader/reader_state.h"

namespace brixen::zeve {

ReaderState gReaderState;

void ResetReaderState() { gReaderState = {}; }

} // namespace brixen::zeve
