#include "lua_fields.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <lua.hpp>

namespace {

constexpr std::size_t kLongestText = 100;

std::string Quoted(std::string_view text) {
    std::string quoted(1, '\'');
    quoted += text.substr(0, kLongestText);
    return quoted += '\'';
}

std::string AsText(lua_State* state, int index) {
    char text[32];
    if (lua_isinteger(state, index)) return std::to_string(lua_tointeger(state, index));
    snprintf(text, sizeof text, "%.14g", lua_tonumber(state, index));
    return text;
}

std::string_view TextAt(lua_State* state, int index) {
    std::size_t length = 0;
    const char* text = lua_tolstring(state, index, &length);
    return {text, length};
}

std::string SetFromName(std::string_view word, const Names& names, auto& value) {
    const auto found = names.find(word);
    if (found == names.end()) return "there is no " + Quoted(word);
    value = static_cast<std::remove_reference_t<decltype(value)>>(found->second);
    return {};
}

std::string SetFromBits(std::string_view text, Single& value) {
    std::uint32_t bits = 0;
    const char* end = text.data() + text.size();
    const bool complete =
        text.size() == 9 && text[0] == '#' && std::from_chars(text.data() + 1, end, bits, 16).ptr == end;
    if (!complete) return Quoted(text) + " is neither a number nor '#' and eight hexadecimal digits";
    value = std::bit_cast<Single>(bits);
    return {};
}

std::string Set(lua_State* state, int index, Single& value, const Names*) {
    if (lua_type(state, index) == LUA_TSTRING) return SetFromBits(TextAt(state, index), value);
    if (lua_type(state, index) != LUA_TNUMBER) return std::string(luaL_typename(state, index)) + " is not a number";
    value = AsShown(static_cast<Single>(lua_tonumber(state, index)));
    if (!std::isfinite(value)) return AsText(state, index) + " is not within the range of a Single";
    return {};
}

template <typename Whole>
std::string Set(lua_State* state, int index, Whole& value, const Names* names) {
    if (names && lua_type(state, index) == LUA_TSTRING) return SetFromName(TextAt(state, index), *names, value);
    if (lua_type(state, index) != LUA_TNUMBER) return std::string(luaL_typename(state, index)) + " is not a number";
    constexpr int kLowest = std::numeric_limits<Whole>::min(), kHighest = std::numeric_limits<Whole>::max();
    const double number = lua_tonumber(state, index);
    if (!(number >= kLowest && number <= kHighest)) {
        return AsText(state, index) + " is not within " + std::to_string(kLowest) + ".." + std::to_string(kHighest);
    }
    if (number != std::floor(number)) return AsText(state, index) + " is not a whole number";
    value = static_cast<Whole>(number);
    return {};
}

}  // namespace

std::string SetField(lua_State* state, int index, const Field& field) {
    return std::visit([&](auto* value) { return Set(state, index, *value, field.names); }, field.value);
}
