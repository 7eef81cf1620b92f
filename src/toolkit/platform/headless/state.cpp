#include "toolkit/platform/headless/headless.h"

#include <algorithm>
#include <iterator>

namespace brixen::zeve::headless {

System& State() {
    static System gSystem;
    return gSystem;
}

void Reset() { State() = System(); }

Window* FindWindow(NativeWindow handle) {
    for (auto& window : State().windows)
        if (window->handle == handle) return window.get();
    return nullptr;
}

std::vector<Call> CallsOf(std::string_view name) {
    std::vector<Call> found;
    std::copy_if(State().calls.begin(), State().calls.end(), std::back_inserter(found),
                 [name](const Call& call) { return call.name == name; });
    return found;
}

void ScriptMessage(NativeWindow window, std::uint32_t number, std::uintptr_t wparam, std::intptr_t lparam) {
    State().script.push_back([=] { Deliver({window, number, wparam, lparam}); });
}

void Record(const char* name, NativeWindow window, std::initializer_list<std::int64_t> numbers,
            std::u16string_view text) noexcept {
    if (!State().keepsCalls) return;
    try {
        State().calls.push_back({name, window, numbers, std::u16string(text)});
    } catch (const std::bad_alloc&) {
        // A test that lets memory run out reads no calls.
    }
}

bool Refuses(int& countdown) noexcept { return countdown > 0 && --countdown == 0; }

} // namespace brixen::zeve::headless
