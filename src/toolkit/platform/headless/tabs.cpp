#include "toolkit/platform/headless/headless.h"

namespace brixen::zeve::platform {

void InsertTab(NativeWindow window, std::int32_t index, const char16_t* text) noexcept {
    headless::Record("InsertTab", window, {index}, text);
}

} // namespace brixen::zeve::platform
