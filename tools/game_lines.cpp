#include "game_lines.h"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "recording/digest.h"
#include "sim_names.h"

using nlohmann::json;

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(StageReport, stage, frames, hits, hitsByCode, hitsByKind, longestSafe, bossFrames,
                                   emptyLongest, wayFrames, wayHits, lonely, lonelyLongest, enemies, shots, offScreen,
                                   cleared)

namespace {

constexpr const char* kSweepKeys[] = {"data", "level", "pilot", "play", "weapon"};

json ToJson(const GameResult& g) {
    const std::vector<StageReport> stages(g.stage, g.stage + g.stages);
    return {{"seed", g.seed},
            {"cleared", g.cleared},
            {"stuck", g.stuck},
            {"diedStage", g.diedStage},
            {"diedEntry", g.diedEntry},
            {"frames", g.frames},
            {"score", g.score},
            {"hits", g.hits},
            {"mostEnemies", g.mostEnemies},
            {"mostShots", g.mostShots},
            {"spawnsLost", g.spawnsLost},
            {"neverLeft", g.neverLeft},
            {"stages", stages},
            {"error", g.error}};
}

void GetStages(const json& stages, GameResult& g) {
    if (stages.size() > kMostStages) throw std::out_of_range("too many stages");
    for (const json& stage : stages) g.stage[g.stages++] = stage.get<StageReport>();
}

GameResult FromJson(const json& line) {
    GameResult g{};
    g.done = true;
    line.at("seed").get_to(g.seed);
    line.at("cleared").get_to(g.cleared), line.at("stuck").get_to(g.stuck);
    line.at("diedStage").get_to(g.diedStage), line.at("diedEntry").get_to(g.diedEntry);
    line.at("frames").get_to(g.frames), line.at("score").get_to(g.score), line.at("hits").get_to(g.hits);
    line.at("mostEnemies").get_to(g.mostEnemies), line.at("mostShots").get_to(g.mostShots);
    line.at("spawnsLost").get_to(g.spawnsLost), line.at("neverLeft").get_to(g.neverLeft);
    GetStages(line.at("stages"), g);
    std::snprintf(g.error, sizeof g.error, "%s", line.at("error").get_ref<const std::string&>().c_str());
    return g;
}

// An error may name a file, whose name may be any bytes.
std::string Text(const json& value) {
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

}  // namespace

std::string SweepOf(const SimOptions& options) {
    std::array<char, 17> data{};
    std::snprintf(data.data(), data.size(), "%016llx", static_cast<unsigned long long>(DataDigest()));
    return Text({{"data", data.data()},
                 {"level", NameIn(kLevelNames, options.level)},
                 {"pilot", options.pilot},
                 {"play", NameIn(kPlayNames, options.play)},
                 {"weapon", NameIn(kWeaponNames, options.weapon)}});
}

std::string GameLine(const std::string& sweep, const GameResult& result) {
    json line = ToJson(result);
    line.update(json::parse(sweep));
    return Text(line);
}

std::string ReadGameLine(const std::string& line, std::string& sweep, GameResult& result) {
    try {
        const json values = json::parse(line);
        result = FromJson(values);
        json of;
        for (const char* key : kSweepKeys) of[key] = values.at(key).get_ref<const std::string&>();
        sweep = Text(of);
        return GameLine(sweep, result) == Text(values) ? "" : "holds something that no game has";
    } catch (const std::exception& error) {
        return error.what();
    }
}

bool BeginsGameLine(const std::string& text) {
    constexpr std::string_view kStart = R"({"cleared":)";  // keys are in alphabetical order
    return text.compare(0, kStart.size(), kStart.substr(0, text.size())) == 0;
}
