#include "bench/lua_peer.h"

#include <dlfcn.h>

#include <cstddef>
#include <stdexcept>
#include <string>

namespace bench {

struct LuaPeer::Functions {
    explicit Functions(LuaKind kind);
    int Call(State* interpreter) const;

    State* (*newState)() = nullptr;
    void (*close)(State*) = nullptr;
    void (*openLibraries)(State*) = nullptr;
    int (*load)(State*, const char* chunk, std::size_t length, const char* name, const char* mode) = nullptr;
    // LuaJIT has the short form, Lua 5.4 the long one.
    int (*shortCall)(State*, int arguments, int results, int handler) = nullptr;
    int (*longCall)(State*, int arguments, int results, int handler, std::ptrdiff_t, void*) = nullptr;
    void (*setTop)(State*, int index) = nullptr;
    const char* (*toText)(State*, int index, std::size_t* length) = nullptr;
};

namespace {

template <class Function>
void Find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
}

} // namespace

LuaPeer::Functions::Functions(LuaKind kind) {
    const char* const name = kind == LuaKind::LuaJit ? "libluajit-5.1.so.2" : "liblua5.4.so.0";
    void* const library = dlopen(name, RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
    if (!library) throw std::runtime_error(dlerror());
    Find(library, "luaL_newstate", newState);
    Find(library, "lua_close", close);
    Find(library, "luaL_openlibs", openLibraries);
    Find(library, "luaL_loadbufferx", load);
    Find(library, "lua_pcall", shortCall);
    Find(library, "lua_pcallk", longCall);
    Find(library, "lua_settop", setTop);
    Find(library, "lua_tolstring", toText);
}

int LuaPeer::Functions::Call(State* interpreter) const {
    return shortCall ? shortCall(interpreter, 0, 1, 0) : longCall(interpreter, 0, 1, 0, 0, nullptr);
}

LuaPeer::LuaPeer(LuaKind kind)
    : lua([kind]() -> const Functions& {
          static const Functions luaJit(LuaKind::LuaJit), lua54(LuaKind::Lua54);
          return kind == LuaKind::LuaJit ? luaJit : lua54;
      }()),
      state(lua.newState()) {
    if (!state) throw std::runtime_error("no memory for an interpreter");
    lua.openLibraries(state);
}

LuaPeer::~LuaPeer() { lua.close(state); }

void LuaPeer::Run(std::string_view chunk) {
    if (lua.load(state, chunk.data(), chunk.size(), "bench", nullptr) != 0 || lua.Call(state) != 0) {
        throw std::runtime_error(lua.toText(state, -1, nullptr));
    }
    lua.setTop(state, 0);
}

} // namespace bench
