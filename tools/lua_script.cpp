#include "lua_script.h"

#include <cstdlib>
#include <iterator>
#include <lua.hpp>

// Lua leaves a function by longjmp when an error is raised: no object with a destructor may live across a call that can
// raise one.

namespace {

// Far above what a stage needs (well under a million), and over in less than a second.
constexpr int kStride = 1'000'000;
constexpr int kStrideLimit = 50;
constexpr std::size_t kMemoryLimit = 64u << 20;
constexpr const char* kSelfKey = "tarnveil.script";
constexpr const char* kIncludedKey = "tarnveil.included";
constexpr const char* kSheet = "../art/sheet.lua";  // where the sprites lie; the one file outside the folder

// Functions that read files or code, depend on addresses or the clock, or could catch the end of the instructions.
constexpr const char* kRemoved[] = {"dofile", "loadfile",       "load",         "require",      "pcall",
                                    "xpcall", "collectgarbage", "setmetatable", "getmetatable", "warn"};

// The order of pairs depends on addresses; a build must not.
constexpr const char* kPrelude = R"(
local next, type, sort, error, seed = next, type, table.sort, error, math.randomseed
local rank = { number = 1, string = 2 }
local function before(a, b)
    if type(a) ~= type(b) then return rank[type(a)] < rank[type(b)] end
    return a < b
end
function pairs(t)
    local keys, i = {}, 0
    for k in next, t do
        if not rank[type(k)] then error("pairs goes through keys that are numbers or strings only", 2) end
        keys[#keys + 1] = k
    end
    sort(keys, before)
    return function()
        i = i + 1
        if keys[i] ~= nil then return keys[i], t[keys[i]] end
    end
end
_G.next = nil
function math.randomseed(n)
    if math.type(n) ~= "integer" then error("math.randomseed wants a whole number", 2) end
    seed(n)
end
math.randomseed(1)
)";

// The innermost line of a script. Allocates nothing: it is also called when there is no memory left.
void NotePlace(lua_State* state) {
    lua_Debug frame;
    for (int level = 0; lua_getstack(state, level, &frame) == 1; ++level) {
        lua_getinfo(state, "Sl", &frame);
        if (frame.currentline <= 0) continue;
        snprintf(scriptPlace->data(), scriptPlace->size(), "%s:%d", frame.short_src, frame.currentline);
        return;
    }
}

bool CallsLibrary(lua_State* state, lua_Debug* event) {
    lua_getinfo(state, "S", event);
    return *event->what == 'C';
}

void OpenLibraries(lua_State* state) {
    constexpr luaL_Reg kLibraries[] = {{LUA_GNAME, luaopen_base},
                                       {LUA_TABLIBNAME, luaopen_table},
                                       {LUA_STRLIBNAME, luaopen_string},
                                       {LUA_MATHLIBNAME, luaopen_math}};
    for (const luaL_Reg& library : kLibraries) {
        luaL_requiref(state, library.name, library.func, 1);
        lua_pop(state, 1);
    }
    for (const char* name : kRemoved) {
        lua_pushnil(state);
        lua_setglobal(state, name);
    }
}

// A plain file name: letters, digits, "_", "-" and ".lua" at the end.
bool IsSourceName(const std::string& name) {
    constexpr std::string_view kEnding = ".lua";
    if (!name.ends_with(kEnding) || name.size() == kEnding.size()) return false;
    const std::string stem = name.substr(0, name.size() - kEnding.size());
    return stem.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-") ==
           std::string::npos;
}

}  // namespace

void* Reallocate(void* self, void* block, std::size_t oldSize, std::size_t newSize) {
    auto& script = *static_cast<LuaScript*>(self);
    if (block == nullptr) oldSize = 0;  // then it holds the type of the new object
    if (newSize == 0) {
        free(block);
        script.memory_ -= oldSize;
        return nullptr;
    }
    if (newSize > oldSize && script.memory_ + (newSize - oldSize) > kMemoryLimit) {
        if (script.state_) NotePlace(script.state_);
        return nullptr;
    }
    void* moved = realloc(block, newSize);
    if (moved) script.memory_ += newSize - oldSize;
    return moved;
}

void* SelfOf(lua_State* state) {
    return lua_touserdata(state, lua_upvalueindex(1));
}

Origin OriginIn(lua_State* state, const std::string& source) {
    Origin origin{};
    lua_Debug frame;
    for (int level = 1; lua_getstack(state, level, &frame) == 1; ++level) {
        lua_getinfo(state, "Sl", &frame);
        if (source != frame.short_src || frame.currentline <= 0) continue;
        if (origin.inner == 0) origin.inner = frame.currentline;
        origin.outer = frame.currentline;
    }
    return origin;
}

LuaScript::LuaScript(const SourceReader& read, std::string file) : read_(read), file_(std::move(file)) {
    state_ = lua_newstate(Reallocate, this);
    if (!state_) std::abort();
    OpenLibraries(state_);
    Define("include", Include, this);
    lua_newtable(state_);
    lua_setfield(state_, LUA_REGISTRYINDEX, kIncludedKey);
    lua_pushlightuserdata(state_, this);
    lua_setfield(state_, LUA_REGISTRYINDEX, kSelfKey);
    if (luaL_dostring(state_, kPrelude) != LUA_OK) std::abort();
}

LuaScript::~LuaScript() {
    lua_close(state_);
}

void LuaScript::Define(const char* name, int (*function)(lua_State*), void* self) {
    lua_pushlightuserdata(state_, self);
    lua_pushcclosure(state_, function, 1);
    lua_setglobal(state_, name);
}

int LuaScript::Load(const std::string& name) {
    const FileBytes file = read_(name);
    if (file.error != FileError::none) {
        lua_pushfstring(state_, "%s: %s", name.c_str(), file.reason.c_str());
        return LUA_ERRFILE;
    }
    if (!file.bytes.empty() && file.bytes[0] == LUA_SIGNATURE[0]) {
        lua_pushfstring(state_, "%s: compiled code, not text", name.c_str());
        return LUA_ERRSYNTAX;
    }
    const char* text = reinterpret_cast<const char*>(file.bytes.data());
    return luaL_loadbufferx(state_, text, file.bytes.size(), ("@" + name).c_str(), "t");
}

// The hook of Run.
void LuaScript::Watch(lua_State* state, lua_Debug* event) {
    if (event->event != LUA_HOOKCOUNT) {
        if (CallsLibrary(state, event)) NotePlace(state);
        return;
    }
    NotePlace(state);
    lua_getfield(state, LUA_REGISTRYINDEX, kSelfKey);
    auto& script = *static_cast<LuaScript*>(lua_touserdata(state, -1));
    if (++script.strides_ < kStrideLimit) return lua_pop(state, 1);
    luaL_error(state, "%s: more than %d million instructions: does a loop never end?", scriptPlace->data(),
               kStrideLimit);
}

// include(NAME): runs the file once and gives what it returns; later calls give the same again.
int LuaScript::Include(lua_State* state) {
    auto& script = *static_cast<LuaScript*>(SelfOf(state));
    const char* name = luaL_checkstring(state, 1);
    lua_getfield(state, LUA_REGISTRYINDEX, kIncludedKey);
    if (lua_getfield(state, -1, name) != LUA_TNIL) return 1;
    lua_pop(state, 1);
    if (!IsSourceName(name) && std::string(name) != kSheet) {
        return luaL_error(state, "include: '%s' is neither a file of the source folder nor %s", name, kSheet);
    }
    lua_pushboolean(state, 1);  // two files that include each other end here
    lua_setfield(state, -2, name);
    if (script.Load(name) != LUA_OK) {
        luaL_where(state, 1);
        lua_insert(state, -2);
        lua_concat(state, 2);
        return lua_error(state);
    }
    lua_call(state, 0, 1);
    if (lua_isnil(state, -1)) return 0;
    lua_pushvalue(state, -1);
    lua_setfield(state, -3, name);
    return 1;
}

// The message handler of Run: a fault inside an included file is told together with the line of the source.
int LuaScript::AddOrigin(lua_State* state) {
    lua_getfield(state, LUA_REGISTRYINDEX, kSelfKey);
    const std::string& source = static_cast<LuaScript*>(lua_touserdata(state, -1))->file_;
    const char* message = luaL_tolstring(state, 1, nullptr);
    if (std::string_view(message).starts_with(source)) return 1;
    lua_Debug frame;
    for (int level = 1; lua_getstack(state, level, &frame) == 1; ++level) {
        lua_getinfo(state, "Sl", &frame);
        if (source != frame.short_src) continue;
        lua_pushfstring(state, "%s (from %s:%d)", message, frame.short_src, frame.currentline);
        return 1;
    }
    return 1;
}

std::string LuaScript::Run() {
    lua_settop(state_, 0);
    lua_pushcfunction(state_, AddOrigin);
    snprintf(scriptPlace->data(), scriptPlace->size(), "%s", file_.c_str());
    int status = Load(file_);
    lua_sethook(state_, Watch, LUA_MASKCALL | LUA_MASKCOUNT, kStride);
    if (status == LUA_OK) status = lua_pcall(state_, 0, 0, 1);
    if (status == LUA_OK) return {};
    if (status == LUA_ERRMEM) {
        return std::string(scriptPlace->data()) + ": more than 64 MiB of memory: does something grow without end?";
    }
    return lua_tostring(state_, -1) ? lua_tostring(state_, -1) : "unknown fault";
}
