#include "renew.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "sim_names.h"

namespace {

// The value of that name, or null.
template <typename T>
const T* ValueIn(const std::vector<SimName<T>>& names, const std::string& name) {
    const auto found = std::ranges::find_if(names, [&](const SimName<T>& row) { return row.name == name; });
    return found == names.end() ? nullptr : &found->value;
}

std::string Figures(const Recording& r) {
    return std::to_string(r.endFrames) + " frames, score " + std::to_string(r.endScore);
}

std::string ChangeBetween(const Recording& old, Recording renewed) {
    if (renewed == old) return "nothing has changed";
    renewed.dataDigest = old.dataDigest;
    if (renewed == old) return "the same play; only the fingerprint of the tables is new";
    const auto differs = std::ranges::mismatch(old.frames, renewed.frames).in1;
    return "the play is another one from frame " + std::to_string(differs - old.frames.begin() + 1) +
           " on: " + Figures(renewed) + " (was " + Figures(old) + ")";
}

// Records the game into `path`. Empty when it came to its end.
std::string RecordAnew(SimOptions options, const std::string& path, Recording& renewed) {
    options.recordTo = path;
    const SimReport report = Simulate(options);
    if (!report.error.empty()) return report.error;
    if (report.stuck) return "the game does not come to its end";
    return ReadRecording(path, renewed);
}

}  // namespace

std::string PilotLine(const SimOptions& options) {
    return options.pilot + ' ' + NameIn(kWeaponNames, options.weapon) + ' ' + NameIn(kPlayNames, options.play);
}

bool AskedFor(const Recording& recording, SimOptions& options) {
    std::istringstream words(recording.pilot);
    std::string weaponName, playName;
    words >> options.pilot >> weaponName >> playName;
    const Weapon* weapon = ValueIn(kWeaponNames, weaponName);
    const SimPlay* play = ValueIn(kPlayNames, playName);
    const bool known = std::ranges::count(PilotNames(), options.pilot) > 0;
    if (!known || !weapon || !play || play->number != recording.play) return false;
    options.weapon = *weapon;
    options.play = *play;
    options.level = recording.level;
    options.seed = recording.seed;
    options.start = recording.start;
    options.options = recording.options;
    return true;
}

std::string Renew(const std::string& path, std::string& change) {
    Recording old, renewed;
    std::string error = ReadRecording(path, old);
    if (!error.empty()) return error;
    SimOptions options;
    if (!AskedFor(old, options)) return path + ": names no pilot that could play it again";
    const std::string temporary = path + ".new";
    error = RecordAnew(options, temporary, renewed);
    std::error_code failed;
    if (error.empty()) std::filesystem::rename(temporary, path, failed);
    if (error.empty() && failed) error = failed.message();
    std::filesystem::remove(temporary, failed);
    if (!error.empty()) return path + ": " + error;
    change = ChangeBetween(old, renewed);
    return {};
}
