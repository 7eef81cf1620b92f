#include "view/reader_state.h"

namespace brixen::zeve {

ReaderState gReaderState;

void ResetReaderState() { gReaderState = {}; }

} // namespace brixen::zeve
