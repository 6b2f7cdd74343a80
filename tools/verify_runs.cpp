#include "verify_runs.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <tuple>

#include "host/files.h"
#include "recording/frame_time.h"
#include "recording/link.h"
#include "recording/run.h"
#include "side_by_side.h"
#include "stage/plays.h"
#include "state/options.h"

namespace {

using nlohmann::ordered_json;

template <std::size_t size>
void Put(char (&place)[size], const std::string& text) {
    std::snprintf(place, size, "%s", text.c_str());
}

std::vector<std::string> FilesOf(const std::vector<std::string>& names) {
    std::vector<std::string> files;
    for (const std::string& name : names) {
        std::error_code error;
        if (!std::filesystem::is_directory(name, error)) {
            files.push_back(name);
            continue;
        }
        for (const char* ending : {kRunEnding, ".txt"}) {
            for (const std::string& file : FilesIn(name, ending)) files.push_back(name + "/" + file);
        }
    }
    return files;
}

// A run with its notes, or a recording or link without any.
std::string Read(const std::string& file, Run& run) {
    const FileBytes bytes = LooksLikeLink(file) ? FileBytes{} : ReadWholeFile(file);
    if (bytes.error != FileError::none) return bytes.reason;
    if (LooksLikeRun(bytes.bytes)) return UnpackRun(bytes.bytes, run);
    return ReadRecording(file, run.recording);
}

VerifiedRun Describe(const Run& run) {
    const Recording& r = run.recording;
    VerifiedRun told{.play = r.play, .level = r.level, .frames = r.endFrames, .score = r.endScore, .how = r.result.how};
    told.seed = r.seed, told.identity = RunIdentity(r);
    Put(told.date, run.date), Put(told.name, run.name), Put(told.pilot, r.pilot), Put(told.program, r.program);
    return told;
}

VerifiedRun VerifyFile(const std::string& file, bool anyData) {
    const std::clock_t start = std::clock();
    Run run;
    const std::string problem = Read(file, run);
    VerifiedRun told = Describe(run);
    Verification verified{Verdict::damaged, problem};
    if (problem.empty()) verified = Verify(run.recording, anyData);
    told.verdict = verified.verdict;
    const bool agrees = told.verdict == Verdict::agrees;
    const std::string notRanked = anyData ? "other tables were allowed" : WhyNotRanked(run.recording);
    told.ranked = agrees && notRanked.empty();
    Put(told.reason, agrees ? notRanked : verified.reason);
    told.seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    return told;
}

std::vector<Verified> VerifyAll(const VerifyPlan& plan) {
    const std::vector<std::string> files = FilesOf(plan.names);
    VerifiedRun died{.verdict = Verdict::damaged};
    Put(died.reason, "its process died");
    std::vector<VerifiedRun> results(files.size(), died);
    SideBySide(
        results, plan.jobs, [&](std::size_t i) { return VerifyFile(files[i], plan.anyData); },
        [](const VerifiedRun&) {});
    std::vector<Verified> verified;
    for (std::size_t i = 0; i < files.size(); ++i) verified.push_back({files[i], results[i]});
    return verified;
}

void PrintVerdict(const Verified& verified) {
    const VerifiedRun& run = verified.run;
    if (run.verdict != Verdict::agrees) {
        std::printf("%s: %s: %s\n", verified.file.c_str(), VerdictName(run.verdict), run.reason);
        return;
    }
    std::printf("%s: the same in all %d frames, score %d", verified.file.c_str(), run.frames, run.score);
    std::printf(run.ranked ? "\n" : " (not ranked: %s)\n", run.reason);
}

const char* WhoPlayed(const VerifiedRun& run) {
    return run.name[0] ? run.name : run.pilot;
}

void PrintRanking(const Ranking& ranking) {
    std::printf("\n%s, %s\n", PlayTitle(ranking.play).c_str(), LevelTitle(ranking.level).c_str());
    int place = 0;
    for (const Verified* verified : ranking.places) {
        const VerifiedRun& run = verified->run;
        std::printf("%4d. %8d  %-7s %6s  %-19s  %s  %s\n", ++place, run.score, OutcomeName(run.how),
                    TimeOf(run.frames).c_str(), run.date, verified->file.c_str(), WhoPlayed(run));
    }
}

ordered_json ToJson(const Verified& verified) {
    const VerifiedRun& run = verified.run;
    ordered_json json = {{"file", verified.file}, {"verdict", VerdictName(run.verdict)}};
    if (run.reason[0]) json["reason"] = run.reason;
    if (run.level == 0) return json;  // nothing of it could be read
    json.update({{"play", PlayTitle(run.play)},
                 {"level", LevelTitle(run.level)},
                 {"score", run.score},
                 {"frames", run.frames},
                 {"end", OutcomeName(run.how)},
                 {"ranked", run.ranked},
                 {"seed", run.seed},
                 {"seconds", run.seconds}});
    for (const auto& [key, text] : {std::pair{"date", run.date}, std::pair{"name", run.name},
                                    std::pair{"pilot", run.pilot}, std::pair{"program", run.program}}) {
        if (text[0]) json[key] = text;
    }
    return json;
}

void PrintJson(const std::vector<Verified>& runs, const std::vector<Ranking>& rankings) {
    ordered_json list = ordered_json::array(), tables = ordered_json::array();
    for (const Verified& run : runs) list.push_back(ToJson(run));
    for (const Ranking& ranking : rankings) {
        ordered_json places = ordered_json::array();
        for (const Verified* run : ranking.places) places.push_back({{"file", run->file}, {"score", run->run.score}});
        tables.push_back({{"play", PlayTitle(ranking.play)}, {"level", LevelTitle(ranking.level)}, {"places", places}});
    }
    const ordered_json all = {{"runs", list}, {"rankings", tables}};
    std::puts(all.dump(2, ' ', false, ordered_json::error_handler_t::replace).c_str());
}

bool WritePage(const VerifyPlan& plan, const std::vector<Ranking>& rankings) {
    if (plan.page.empty()) return true;
    const std::string page = RankingPage(rankings, plan.address);
    const std::string reason =
        WriteWholeFile(plan.page, {reinterpret_cast<const std::uint8_t*>(page.data()), page.size()});
    if (!reason.empty()) std::fprintf(stderr, "tarnveil-sim: %s: %s\n", plan.page.c_str(), reason.c_str());
    return reason.empty();
}

}  // namespace

std::vector<Ranking> Rank(const std::vector<Verified>& runs) {
    std::map<std::pair<int, int>, Ranking> rankings;
    std::set<std::uint64_t> seen;
    for (const Verified& verified : runs) {
        const VerifiedRun& run = verified.run;
        if (!run.ranked || !seen.insert(run.identity).second) continue;
        Ranking& ranking = rankings.try_emplace({run.play, run.level}, Ranking{run.play, run.level, {}}).first->second;
        ranking.places.push_back(&verified);
    }
    std::vector<Ranking> all;
    for (auto& [key, ranking] : rankings) {
        std::ranges::stable_sort(ranking.places, std::greater{}, [](const Verified* v) { return v->run.score; });
        all.push_back(std::move(ranking));
    }
    return all;
}

std::string PlayTitle(int play) {
    const Play* found = FindPlay(play);
    if (!found) return "?";
    return found->number == kNormalPlay ? "game" : found->name;
}

std::string LevelTitle(int level) {
    for (const Difficulty& row : kDifficulties) {
        if (row.level == level) return (MainFormType().*row.item).Caption;
    }
    return "?";
}

int VerifyRuns(const VerifyPlan& plan) {
    const std::vector<Verified> runs = VerifyAll(plan);
    const std::vector<Ranking> rankings = Rank(runs);
    if (plan.json) {
        PrintJson(runs, rankings);
    } else {
        for (const Verified& run : runs) PrintVerdict(run);
        for (const Ranking& ranking : rankings) PrintRanking(ranking);
    }
    const bool written = WritePage(plan, rankings);
    const bool good = std::ranges::all_of(runs, [](const Verified& v) { return v.run.verdict == Verdict::agrees; });
    return good && written ? 0 : 1;
}
