// One Lua source file, run without any way to the outside: no files but those of its own folder, no clock, no programs.
// The same source gives the same result on every run.
#pragma once

#include <functional>
#include <string>

#include "host/files.h"
#include "limited_process.h"

struct lua_State;
struct lua_Debug;

// Where the running script is, "stage1.lua:12", as far as it may be needed: before each call into Lua's own library,
// which may not come back, and where the memory ended.
inline WorkPlace ownPlace{};
inline WorkPlace* scriptPlace = &ownPlace;

// The content of a source by its name.
using SourceReader = std::function<FileBytes(const std::string& name)>;

class LuaScript {
  public:
    // `file` is the name of the source; `read` gives it and what it includes.
    LuaScript(const SourceReader& read, std::string file);
    LuaScript(const LuaScript&) = delete;
    LuaScript& operator=(const LuaScript&) = delete;
    ~LuaScript();

    // Gives the script a global function; `self` is what SelfOf finds.
    void Define(const char* name, int (*function)(lua_State*), void* self);

    // Empty when the script came to its end, else "FILE:LINE: reason", and "(from FILE:LINE)" when an included file
    // was at work for the source itself.
    std::string Run();

  private:
    static void Watch(lua_State* state, lua_Debug* event);
    static int Include(lua_State* state);
    static int AddOrigin(lua_State* state);
    int Load(const std::string& name);  // a Lua status; leaves a function or a message on the stack

    SourceReader read_;
    std::string file_;
    lua_State* state_ = nullptr;
    std::size_t memory_ = 0;  // bytes in use
    int strides_ = 0;         // of instructions
    friend void* Reallocate(void* self, void* block, std::size_t oldSize, std::size_t newSize);
};

// A running function's place in a source: the line that is at work and the line of the source's own that has led to it.
struct Origin {
    int inner;
    int outer;
};
Origin OriginIn(lua_State* state, const std::string& source);

// The `self` that the running function was defined with.
void* SelfOf(lua_State* state);
