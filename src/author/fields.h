// The records' fields by name: what the Lua sources write and the dump prints.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "state/state.h"
#include "toolkit/numbers.h"

// What an editor window makes of a Single that it has shown: the value of its seven digits. What is no number stays.
inline Single AsShown(Single value) {
    const std::optional<double> shown = NumberOf(TextOf(value));
    return shown ? SingleOf(*shown).value_or(value) : value;
}

// Words that may stand in place of a number.
using Names = std::map<std::string, Integer, std::less<>>;

struct Field {
    std::string_view name;
    std::variant<Single*, Integer*, Byte*> value;
    const Names* names = nullptr;
};

inline std::array<Field, 5> FieldsOf(StageDataType& e, const Names* names = nullptr) {
    return {{{"X", &e.X}, {"Y", &e.Y}, {"No", &e.No, names}, {"Counter", &e.Counter}, {"Power", &e.Power}}};
}

inline std::array<Field, 7> FieldsOf(EnemyDataType& k, const Names* names = nullptr) {
    return {{{"SX", &k.SX},
             {"SY", &k.SY},
             {"Width", &k.Width},
             {"Height", &k.Height},
             {"BomType", &k.BomType},
             {"MoveNo", &k.MoveNo, names},
             {"Score", &k.Score}}};
}

inline std::array<Field, 4> FieldsOf(EneMoveType& s, const Names* names = nullptr) {
    return {{{"DX", &s.DX}, {"DY", &s.DY}, {"Anime", &s.Anime}, {"Flag", &s.Flag, names}}};
}
