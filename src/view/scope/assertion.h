// A broken contract inside the view language or the toolkit: the tested expression is thrown as a
// std::logic_error with the text "Warning! (expression)". The workflow's guard turns it into a status.
#pragma once

namespace brixen::zeve {

[[noreturn]] void FailAssertion(const char* expression);

// `expression` is the text between the parentheses, fixed wherever it is written down as such.
inline void Assert(bool holds, const char* expression) {
    if (!holds) [[unlikely]] {
        FailAssertion(expression);
    }
}

} // namespace brixen::zeve
