// The peers of the view language: LuaJIT and Lua 5.4 side by side in one process. Both define the same
// symbols, so each is loaded privately and used through pointers.
#pragma once

#include <string_view>

namespace bench {

enum class LuaKind { LuaJit, Lua54 };

// One interpreter with its standard libraries.
class LuaPeer {
public:
    // Throws std::runtime_error if the interpreter's library is not installed.
    explicit LuaPeer(LuaKind kind);
    LuaPeer(const LuaPeer&) = delete;
    LuaPeer& operator=(const LuaPeer&) = delete;
    ~LuaPeer();

    // Parses and runs the chunk and drops its result. Throws std::runtime_error with the interpreter's
    // message.
    void Run(std::string_view chunk);

private:
    struct Functions;

    const Functions& lua;
    struct State* state;
};

} // namespace bench
