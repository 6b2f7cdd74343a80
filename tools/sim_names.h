// What plays, difficulties and weapons are called on the command line and in reports.
#pragma once

#include <algorithm>
#include <vector>

#include "simulation.h"
#include "stage/plays.h"
#include "state/options.h"

template <typename T>
struct SimName {
    T value;
    const char* name;
};

// In the order of reports.
inline const std::vector<SimName<SimPlay>> kPlayNames = [] {
    std::vector<SimName<SimPlay>> names;
    for (const Play& play : kPlays) names.push_back({{.number = play.number}, play.name});
    names.push_back({{.wholeGame = true}, "game"});
    return names;
}();
inline const std::vector<SimName<int>> kLevelNames = [] {
    std::vector<SimName<int>> names;
    for (const Difficulty& row : kDifficulties) names.push_back({row.level, (MainFormType().*row.item).Caption});
    return names;
}();
inline const std::vector<SimName<Weapon>> kWeaponNames = {
    {Weapon::forward, "forward"}, {Weapon::spread, "spread"}, {Weapon::switching, "switching"}};

// The name of one of the table's values.
template <typename T>
const char* NameIn(const std::vector<SimName<T>>& names, T value) {
    return std::ranges::find(names, value, &SimName<T>::value)->name;
}
