// One field of a record from a Lua value.
#pragma once

#include <string>

#include "author/fields.h"

struct lua_State;

// Sets the field from the value at `index` of the Lua stack. Empty when done, else the reason. Raises no Lua error.
std::string SetField(lua_State* state, int index, const Field& field);
