#include "recording/keeper.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "host/clock.h"
#include "host/journal.h"
#include "toolkit/folder.h"

namespace {

constexpr const char* kJournalEnding = ".tarnveil-journal";
constexpr const char* kAsideEnding = ".deleted";
constexpr std::string_view kNow = "now ";  // in a journal: what the end line would be, after each second

std::string FileNameOf(const std::string& date) {
    std::string name = date;
    std::replace(name.begin(), name.end(), ':', '-');
    return name;
}

// A path of that name that is not taken yet.
std::string FreePath(const std::string& name, const char* ending) {
    const std::string start = RunsFolder() + "/" + name;
    std::string path = start + ending;
    for (int number = 2; FileExists(path); ++number) path = start + " (" + std::to_string(number) + ")" + ending;
    return path;
}

KeptRun ReadKept(const std::string& path) {
    KeptRun kept{path};
    const FileBytes file = ReadWholeFile(path);
    kept.problem = file.error == FileError::none ? UnpackRunHead(file.bytes, kept.run) : file.reason;
    return kept;
}

// Of the runs, newest first, those that nothing keeps.
std::vector<std::string> NotWorthKeeping(const std::vector<KeptRun>& runs) {
    std::map<std::pair<int, int>, const KeptRun*> best;
    for (const KeptRun& kept : runs) {
        const Recording& game = kept.run.recording;
        if (!kept.problem.empty() || !CountsAsBest(game)) continue;
        const KeptRun*& known = best[{game.play, game.level}];
        if (!known || game.endScore > known->run.recording.endScore) known = &kept;
    }
    std::vector<std::string> paths;
    for (std::size_t i = kNewestRuns; i < runs.size(); ++i) {
        const bool isBest = std::ranges::any_of(best, [&](const auto& row) { return row.second == &runs[i]; });
        if (runs[i].problem.empty() && !runs[i].run.kept && !isBest) paths.push_back(runs[i].path);
    }
    return paths;
}

// The text of a journal as a run's: up to its last second, which becomes the end.
std::string RunTextOf(std::string_view journal) {
    std::string text;
    std::string pending;  // since the last second
    std::string end;
    while (journal.find('\n') != std::string_view::npos) {
        const auto length = journal.find('\n') + 1;
        const std::string_view line = journal.substr(0, length);
        if (line.starts_with(kNow)) {
            text += std::exchange(pending, {});
            end = line.substr(kNow.size());
        } else {
            pending += line;
        }
        journal.remove_prefix(length);
    }
    return end.empty() ? "" : text + end;
}

std::string Rescue(const std::string& path) {
    const FileBytes journal = ReadDeadJournal(path);
    if (journal.error != FileError::none) return {};
    const std::string text = RunTextOf({reinterpret_cast<const char*>(journal.bytes.data()), journal.bytes.size()});
    Run run;
    const std::string error = text.empty() ? "" : ParseRun(text, run);
    if (!error.empty()) LogLine(path + ": " + error);
    run.recording.result.how = Outcome::cutOff;
    const std::string problem = text.empty() || !error.empty() ? "" : KeepRun(run);
    return problem.empty() ? RemoveFile(path) : problem;
}

}  // namespace

std::string RunsFolder() {
    return ProgramFolder() + "/Runs";
}

std::vector<KeptRun> ListRuns() {
    std::vector<KeptRun> runs;
    for (const std::string& name : FilesIn(RunsFolder(), kRunEnding))
        runs.push_back(ReadKept(RunsFolder() + "/" + name));
    const auto newer = [](const KeptRun& a, const KeptRun& b) {
        return std::tie(a.run.date, a.path) > std::tie(b.run.date, b.path);
    };
    std::sort(runs.begin(), runs.end(), newer);
    std::stable_partition(runs.begin(), runs.end(), [](const KeptRun& run) { return run.problem.empty(); });
    return runs;
}

bool CountsAsBest(const Recording& recording) {
    return !recording.parent && !recording.options[&MainFormType::Menu003] && recording.start == GameStart{};
}

std::string KeepRun(const Run& run) {
    std::string problem = MakeFolder(RunsFolder());
    if (problem.empty()) problem = WriteWholeFile(FreePath(FileNameOf(run.date), kRunEnding), PackRun(run));
    if (!problem.empty()) return "the run cannot be kept: " + problem;
    if (FilesIn(RunsFolder(), kRunEnding).size() <= kNewestRuns) return {};
    for (const std::string& path : NotWorthKeeping(ListRuns())) {
        const std::string reason = RemoveFile(path);
        if (!reason.empty()) LogLine(path + ": " + reason);
    }
    return {};
}

std::string ChangeRun(const std::string& path, const std::string& name, bool kept) {
    const FileBytes file = ReadWholeFile(path);
    Run run;
    std::string problem = file.error == FileError::none ? UnpackRun(file.bytes, run) : file.reason;
    if (!problem.empty()) return problem;
    run.name = name;
    std::erase_if(run.name, [](char c) { return static_cast<unsigned char>(c) < ' '; });
    run.kept = kept;
    return WriteWholeFile(path, PackRun(run));
}

std::string PutAside(const std::string& path) {
    static_cast<void>(RemoveFile(path + kAsideEnding));
    return RenameFile(path, path + kAsideEnding);
}

std::string BringBack(const std::string& path) {
    return RenameFile(path + kAsideEnding, path);
}

void RunJournal::Begin(const Recording& head) {
    events_ = checks_ = 0;
    Run run{.date = LocalDate()};
    std::string problem = MakeFolder(RunsFolder());
    if (problem.empty()) problem = BeginJournal(FreePath(FileNameOf(run.date), kJournalEnding));
    if (problem.empty()) problem = AddToJournal(FormatRunHead(run) + FormatHeader(head));
    if (!problem.empty()) LogLine("the journal of this game cannot be written: " + problem);
}

void RunJournal::Add(const Recording& sofar) {
    std::string text;
    for (; events_ < sofar.events.size(); ++events_) text += FormatEventLine(sofar.events[events_]);
    for (; checks_ < sofar.checks.size(); ++checks_)
        text += FormatCheckLine(static_cast<int>(checks_ + 1) * kCheckInterval, sofar.checks[checks_]);
    static_cast<void>(AddToJournal(text.append(kNow) + FormatEnd(sofar)));
}

void RunJournal::End() {
    EndJournal();
}

void RescueRuns() {
    for (const std::string& name : FilesIn(RunsFolder(), kAsideEnding))
        static_cast<void>(RemoveFile(RunsFolder() + "/" + name));
    for (const std::string& name : FilesIn(RunsFolder(), kJournalEnding)) {
        const std::string problem = Rescue(RunsFolder() + "/" + name);
        if (!problem.empty()) LogLine(name + ": " + problem);
    }
}
