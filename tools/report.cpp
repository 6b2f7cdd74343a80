#include "report.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <span>

#include "many_games.h"
#include "recording/frame_time.h"
#include "sim_names.h"

namespace {

bool StandsStill(const Question& question) {
    return question.pilot.starts_with("column");
}

int SeedsFor(const Question& question, int seeds) {
    return StandsStill(question) ? std::max(seeds / 5, 1) : seeds;
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double Ratio(double part, double whole) {
    return whole == 0 ? 0 : part / whole;
}

StageReport SumOfStages(std::span<const GameResult> games) {
    StageReport sum;
    for (const GameResult& game : games) {
        for (const StageReport& s : std::span(game.stage, static_cast<std::size_t>(game.stages))) {
            sum.frames += s.frames, sum.hits += s.hits, sum.wayFrames += s.wayFrames, sum.wayHits += s.wayHits;
            sum.lonely += s.lonely, sum.lonelyLongest = std::max(sum.lonelyLongest, s.lonelyLongest);
            sum.enemies += s.enemies, sum.shots += s.shots, sum.offScreen += s.offScreen;
            for (int i = 0; i < kFireCodes; ++i) sum.hitsByCode[i] += s.hitsByCode[i];
            for (int i = 0; i < kEnemyKinds; ++i) sum.hitsByKind[i] += s.hitsByKind[i];
        }
    }
    return sum;
}

void AddStages(Answer& a, std::span<const GameResult> games) {
    constexpr double kFramesPerMinute = 60 / kSecondsPerFrame;
    const StageReport sum = SumOfStages(games);
    a.hitsPerMinute = Ratio(sum.hits, sum.frames) * kFramesPerMinute;
    a.wayHitsPerMinute = Ratio(sum.wayHits, sum.wayFrames) * kFramesPerMinute;
    a.lonely = Ratio(sum.lonely, sum.wayFrames);
    a.lonelySeconds = sum.lonelyLongest * kSecondsPerFrame;
    a.enemies = Ratio(static_cast<double>(sum.enemies), sum.wayFrames);
    a.shots = Ratio(static_cast<double>(sum.shots), sum.wayFrames);
    a.offScreen = sum.offScreen;
    for (std::size_t i = 0; i < a.byCode.size(); ++i) a.byCode[i] = Ratio(sum.hitsByCode[i], sum.hits);
    for (std::size_t i = 0; i < a.byKind.size(); ++i) a.byKind[i] = Ratio(sum.hitsByKind[i], sum.hits);
}

// Boss fights of a whole game are counted together.
void AddBosses(Answer& a, std::span<const GameResult> games) {
    int fights = 0;
    for (const GameResult& game : games) {
        for (const StageReport& s : std::span(game.stage, static_cast<std::size_t>(game.stages))) {
            if (!s.cleared || s.bossFrames == 0) continue;
            ++fights;
            a.bossSeconds += s.bossFrames * kSecondsPerFrame;
        }
    }
    a.bossSeconds = Ratio(a.bossSeconds, fights);
}

Answer Summarize(const Question& question, std::span<const GameResult> games) {
    Answer a{.question = question, .games = static_cast<int>(games.size())};
    std::vector<double> lives, safe;
    for (const GameResult& game : games) {
        a.failed += !game.done || game.error[0] != 0;
        a.cleared += game.cleared;
        a.score += game.score / static_cast<double>(games.size());
        a.spawnsLost += game.spawnsLost;
        lives.push_back(game.frames * kSecondsPerFrame);
        safe.push_back(game.stages > 0 ? game.stage[0].longestSafe * kSecondsPerFrame : 0);
    }
    a.cleared = Ratio(a.cleared, a.games);
    a.lifeSeconds = Median(lives);
    a.safeSeconds = Median(safe);
    AddStages(a, games);
    AddBosses(a, games);
    return a;
}

void AddRows(std::vector<Question>& questions, SimPlay play, int level) {
    for (const Weapon weapon : {Weapon::forward, Weapon::spread, Weapon::switching}) {
        questions.push_back({play, level, "dodge", weapon});
    }
    for (const char* pilot : {"beginner", "practised"}) questions.push_back({play, level, pilot, Weapon::switching});
    questions.push_back({play, level, "sweep", Weapon::forward});
    if (play.wholeGame) return;
    for (int i = 0; i < kColumns; ++i) {
        questions.push_back({play, level, "column" + std::to_string(i), Weapon::forward});
    }
}

std::size_t Most(std::span<const double> shares) {
    return static_cast<std::size_t>(std::ranges::max_element(shares) - shares.begin());
}

void PrintRow(const Answer& a) {
    const std::size_t code = Most(a.byCode), kind = Most(a.byKind);
    std::printf(
        "%-6s%-10s%-10s %5.1f %7.2f %6.2f %6.1f %7.0f   %4zu %3.0f%%  %4zu %3.0f%%  %5.1f %5.1f %6.2f %6.2f %5d %5d\n",
        NameIn(kLevelNames, a.question.level), a.question.pilot.c_str(), NameIn(kWeaponNames, a.question.weapon),
        100 * a.cleared, a.hitsPerMinute, a.wayHitsPerMinute, a.bossSeconds, a.score, code, 100 * a.byCode[code], kind,
        100 * a.byKind[kind], 100 * a.lonely, a.lonelySeconds, a.enemies, a.shots, a.spawnsLost, a.offScreen);
}

// The motionless ship: one line for all columns.
void PrintColumns(std::span<const Answer> columns) {
    const auto safest = std::ranges::max_element(columns, {}, &Answer::lifeSeconds);
    double cleared = 0, safe = 0;
    for (const Answer& a : columns) cleared = std::max(cleared, a.cleared), safe = std::max(safe, a.safeSeconds);
    std::printf("%-6smotionless: safest column %td lasts %.0f s, best clears %.0f %%, longest time unhit %.1f s; lasts",
                NameIn(kLevelNames, columns.front().question.level), safest - columns.begin(), safest->lifeSeconds,
                100 * cleared, safe);
    for (const Answer& a : columns) std::printf(" %.0f", a.lifeSeconds);
    std::puts("");
}

void PrintHeading(SimPlay play) {
    std::printf(
        "\n%s\nlevel pilot     weapon    clear%% hits/min   way boss s   score  code most  kind most alone%%  gap "
        "enemies  shots  lost  born outside\n",
        NameIn(kPlayNames, play));
}

}  // namespace

std::vector<Question> AllQuestions() {
    std::vector<Question> questions;
    for (const auto& [play, name] : kPlayNames) {
        for (const auto& [level, levelName] : kLevelNames) {
            const bool attack = FindPlay(play.number)->stageNo == kScoreAttackStage;  // hardly knows difficulties
            if (!attack || level == kNomal) AddRows(questions, play, level);
        }
    }
    return questions;
}

std::vector<Answer> Ask(const std::vector<Question>& questions, int seeds, int jobs) {
    std::vector<SimOptions> games;
    for (const Question& q : questions) {
        const auto more =
            SeedsOf({.play = q.play, .level = q.level, .pilot = q.pilot, .weapon = q.weapon}, SeedsFor(q, seeds));
        games.insert(games.end(), more.begin(), more.end());
    }
    const std::vector<GameResult> results = PlayMany(games, jobs);
    std::vector<Answer> answers;
    std::size_t first = 0;
    for (const Question& q : questions) {
        const auto count = static_cast<std::size_t>(SeedsFor(q, seeds));
        answers.push_back(Summarize(q, std::span(results).subspan(first, count)));
        first += count;
    }
    return answers;
}

void PrintAnswers(const std::vector<Answer>& answers) {
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (i == 0 || answers[i].question.play != answers[i - 1].question.play) PrintHeading(answers[i].question.play);
        if (!StandsStill(answers[i].question)) {
            PrintRow(answers[i]);
            continue;
        }
        PrintColumns(std::span(answers).subspan(i, kColumns));
        i += kColumns - 1;
    }
}
