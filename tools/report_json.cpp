// The report for other programs.
#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "report.h"
#include "sim_names.h"

namespace {

using nlohmann::ordered_json;

// Four digits say all that so many games tell.
double Rounded(double value) {
    return std::round(value * 1e4) / 1e4;
}

template <std::size_t N>
ordered_json Shares(const std::array<double, N>& shares) {
    ordered_json list = ordered_json::array();
    for (const double share : shares) list.push_back(Rounded(share));
    return list;
}

ordered_json ToJson(const Answer& a) {
    return {{"play", NameIn(kPlayNames, a.question.play)},
            {"level", NameIn(kLevelNames, a.question.level)},
            {"pilot", a.question.pilot},
            {"weapon", NameIn(kWeaponNames, a.question.weapon)},
            {"games", a.games},
            {"failed", a.failed},
            {"cleared", Rounded(a.cleared)},
            {"hitsPerMinute", Rounded(a.hitsPerMinute)},
            {"wayHitsPerMinute", Rounded(a.wayHitsPerMinute)},
            {"bossSeconds", Rounded(a.bossSeconds)},
            {"score", Rounded(a.score)},
            {"lonely", Rounded(a.lonely)},
            {"lonelySeconds", Rounded(a.lonelySeconds)},
            {"enemies", Rounded(a.enemies)},
            {"shots", Rounded(a.shots)},
            {"lifeSeconds", Rounded(a.lifeSeconds)},
            {"safeSeconds", Rounded(a.safeSeconds)},
            {"spawnsLost", a.spawnsLost},
            {"offScreen", a.offScreen},
            {"byCode", Shares(a.byCode)},
            {"byKind", Shares(a.byKind)}};
}

}  // namespace

void PrintAnswersAsJson(const std::vector<Answer>& answers) {
    ordered_json list = ordered_json::array();
    for (const Answer& answer : answers) list.push_back(ToJson(answer));
    std::puts(list.dump(1).c_str());
}
