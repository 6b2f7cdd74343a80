#include "chart.h"
#include "recording/frame_time.h"

#include <cstdio>
#include <fstream>
#include <sstream>
#include <vector>

namespace {

struct Passage {
    double seconds;
    std::string name;
};

bool ReadPassages(const std::string& file, const std::string& table, std::vector<Passage>& passages) {
    if (file.empty()) return true;
    std::ifstream in(file);
    if (!in) {
        std::fprintf(stderr, "tarnveil-sim: %s: cannot be read\n", file.c_str());
        return false;
    }
    for (std::string line; std::getline(in, line);) {
        std::istringstream words(line);
        std::string of, name;
        double frame = 0;
        if (!(words >> of >> frame) || of != table) continue;
        std::getline(words >> std::ws, name);
        passages.push_back({frame * kSecondsPerFrame, name});
    }
    return true;
}

std::vector<TimeBin> PlayForChart(SimOptions options, int seeds) {
    std::vector<TimeBin> sum;
    for (int i = 0; i < seeds; ++i, ++options.seed) {
        const SimReport report = Simulate(options);
        if (sum.size() < report.bins.size()) sum.resize(report.bins.size());
        for (std::size_t b = 0; b < report.bins.size(); ++b) {
            sum[b].frames += report.bins[b].frames, sum[b].enemies += report.bins[b].enemies;
            sum[b].shots += report.bins[b].shots, sum[b].hits += report.bins[b].hits;
        }
    }
    return sum;
}

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
    return quoted + "'";
}

void WriteHeading(FILE* plot, const SimOptions& options, const std::string& file, double end) {
    std::fprintf(plot,
                 "set terminal svg size 1200,420 font 'sans,11' background 'white'\nset output %s\n"
                 "set title '%s, %s pilot'\nset xlabel 'seconds'\nset ylabel 'in sight, on average'\n"
                 "set y2label 'hits a minute'\nset ytics nomirror\nset y2tics\nset yrange [0:26]\nset y2range [0:26]\n"
                 "set xrange [0:%.1f]\nset xtics 10\nset grid y\nset key outside bottom center horizontal\n",
                 Quoted(file).c_str(), FindPlay(options.play.number)->name, options.pilot.c_str(), end);
}

void WritePassages(FILE* plot, const std::vector<Passage>& passages) {
    for (const Passage& p : passages) {
        std::fprintf(plot, "set arrow from first %.1f, graph 0 to first %.1f, graph 1 nohead lc rgb '#c0c0c0'\n",
                     p.seconds, p.seconds);
        std::fprintf(plot, "set label %s at first %.1f, graph 0.98 rotate by 270 font 'sans,9' noenhanced\n",
                     Quoted(p.name).c_str(), p.seconds + 1);
    }
}

void WriteData(FILE* plot, const std::vector<TimeBin>& bins) {
    constexpr double kPerMinute = 60 / kSecondsPerFrame;
    std::fputs("$data << END\n", plot);
    for (std::size_t b = 0; b < bins.size(); ++b) {
        const double frames = bins[b].frames, middle = (static_cast<double>(b) + 0.5) * kBinFrames * kSecondsPerFrame;
        std::fprintf(plot, "%.2f %.3f %.3f %.3f\n", middle, bins[b].enemies / frames, bins[b].shots / frames,
                     bins[b].hits / frames * kPerMinute);
    }
    std::fputs(
        "END\nplot $data using 1:4 axes x1y2 with boxes fs solid 0.35 noborder lc rgb '#d04040' title 'hits a minute', "
        "$data using 1:3 with lines lw 2 lc rgb '#3060c0' title 'shots', "
        "$data using 1:2 with lines lw 2 lc rgb '#208040' title 'enemies'\n",
        plot);
}

}  // namespace

bool Chart(const SimOptions& options, int seeds, const std::string& file, const std::string& passages) {
    std::vector<Passage> names;
    if (!ReadPassages(passages, FindPlay(options.play.number)->name, names)) return false;
    const std::vector<TimeBin> bins = PlayForChart(options, seeds);
    FILE* plot = popen("gnuplot", "w");
    if (!plot) return false;
    WriteHeading(plot, options, file, static_cast<double>(bins.size()) * kBinFrames * kSecondsPerFrame);
    WritePassages(plot, names);
    WriteData(plot, bins);
    if (pclose(plot) == 0) return true;
    std::fprintf(stderr, "tarnveil-sim: gnuplot could not draw %s (package gnuplot-nox)\n", file.c_str());
    return false;
}
