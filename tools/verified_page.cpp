// The verified rankings as an HTML page: one file, no scripts.
#include "recording/frame_time.h"
#include "recording/link.h"
#include "verify_runs.h"

namespace {

constexpr const char* kHead = R"(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Tarnveil: verified games</title>
<style>
body { font: 16px/1.4 sans-serif; color: #dde; background: #112; max-width: 50em; margin: 2em auto; padding: 0 1em }
table { border-collapse: collapse; width: 100% }
th, td { text-align: left; padding: .2em .8em .2em 0; border-bottom: 1px solid #446 }
td.number, th.number { text-align: right }
a { color: #8cf }
</style>
<h1>Tarnveil: verified games</h1>
<p>Every game here has been played again from its recording and is what it says.</p>
)";

std::string Escaped(const std::string& text) {
    std::string html;
    for (const char c : text) {
        switch (c) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '"':
                html += "&quot;";
                break;
            default:
                html += c;
        }
    }
    return html;
}

// The game's link; games that are too long for one are told without.
std::string LinkTo(const Verified& verified, const std::string& address) {
    Recording recording;
    const std::string link = ReadRecording(verified.file, recording).empty() ? LinkOf(recording) : "";
    if (link.empty()) return "";
    return "<a href=\"" + Escaped(address) + "#run=" + link + "\">play</a>";
}

std::string Row(int place, const Verified& verified, const std::string& address) {
    const VerifiedRun& run = verified.run;
    const std::string who = run.name[0] ? run.name : run.pilot;
    return "<tr><td class=\"number\">" + std::to_string(place) + "<td class=\"number\">" + std::to_string(run.score) +
           "<td>" + OutcomeName(run.how) + "<td class=\"number\">" + TimeOf(run.frames) + "<td>" + Escaped(run.date) +
           "<td>" + Escaped(who) + "<td>" + LinkTo(verified, address) + "\n";
}

}  // namespace

std::string RankingPage(const std::vector<Ranking>& rankings, const std::string& address) {
    std::string page = kHead;
    for (const Ranking& ranking : rankings) {
        page += "<h2>" + Escaped(PlayTitle(ranking.play)) + ", " + Escaped(LevelTitle(ranking.level)) + "</h2>\n";
        page +=
            "<table>\n<tr><th class=\"number\">Place<th class=\"number\">Score<th>End<th class=\"number\">Time"
            "<th>Date<th>Who<th>Game\n";
        int place = 0;
        for (const Verified* verified : ranking.places) page += Row(++place, *verified, address);
        page += "</table>\n";
    }
    return page;
}
