// tarnveil-sim: plays the game without a window, many times, and reports.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "chart.h"
#include "promises.h"
#include "renew.h"
#include "report.h"
#include "sim_options.h"
#include "toolkit/folder.h"
#include "verify_runs.h"

namespace {

int RenewRecording(const std::string& path) {
    std::string change;
    const std::string error = Renew(path, change);
    if (error.empty()) return std::printf("%s: %s\n", path.c_str(), change.c_str()) < 0;
    std::fprintf(stderr, "tarnveil-sim: %s\n", error.c_str());
    return 1;
}

int Report(const SimLine& options) {
    std::vector<Question> questions = AllQuestions();
    if (options.playGiven) std::erase_if(questions, [&](const auto& q) { return q.play != options.games.sim.play; });
    const std::vector<Answer> answers = Ask(questions, static_cast<int>(options.games.seeds), options.games.jobs);
    (options.games.json ? PrintAnswersAsJson : PrintAnswers)(answers);
    return std::any_of(answers.begin(), answers.end(), [](const Answer& a) { return a.failed > 0; }) ? 1 : 0;
}

int Hold(const SweepPlan& games) {
    const auto answers = Ask(PromisedQuestions(), static_cast<int>(games.seeds), games.jobs);
    const std::vector<std::string> broken = BrokenPromises(answers);
    for (const std::string& promise : broken) std::puts(promise.c_str());
    return broken.empty() ? 0 : 1;
}

int DrawChart(const SimLine& options) {
    const SweepPlan& games = options.games;
    return Chart(games.sim, static_cast<int>(games.seeds), options.chart, options.passages) ? 0 : 1;
}

int Run(const SimLine& options) {
    if (!options.verify.empty()) {
        const VerifyPlan plan{options.verify,     options.games.jobs, options.anyData,
                              options.games.json, options.page,       options.address};
        return VerifyRuns(plan);
    }
    if (!options.renew.empty()) return RenewRecording(options.renew);
    if (!options.merge.empty()) return Merge(options.merge, options.games.json);
    if (options.report) return Report(options);
    if (options.hold) return Hold(options.games);
    return options.chart.empty() ? Sweep(options.games) : DrawChart(options);
}

}  // namespace

int main(int argc, char** argv) {
    SimLine options;
    if (const auto ended = ReadSimLine(argc, argv, options)) return *ended;
    SetProgramFolder(options.folder);
    const int status = Run(options);
    return std::fflush(stdout) == 0 ? status : 1;
}
