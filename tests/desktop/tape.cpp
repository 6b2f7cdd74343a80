#include "tape.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <thread>

namespace {

constexpr double kRate = 44100;
constexpr double kBytesPerSecond = kRate * 4;
constexpr double kBufferMs = 1000 * 1024 / kRate;
constexpr double kMoment = 0.03;  // seconds; long enough to tell the pitches of neighbouring notes above 440 Hz
constexpr double kShortest = 1.5 * kMoment;  // of a note; the moment in which one begins may seem another pitch
constexpr double kSilence = 0.0014;          // a note at a sixth of its volume is still heard

double Level(const std::vector<float>& samples, double hertz) {
    std::complex<double> sum = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double n = static_cast<double>(samples.size()), x = static_cast<double>(i);
        const double window = 1 - std::cos(2 * std::numbers::pi * x / n);  // Hann; its mean is 1
        sum += window * samples[i] * std::polar(1.0, -2 * std::numbers::pi * hertz * x / kRate);
    }
    return samples.empty() ? 0 : 2 * std::abs(sum) / static_cast<double>(samples.size());
}

double Rms(const std::vector<float>& samples) {
    double sum = 0;
    for (const float s : samples) sum += static_cast<double>(s) * static_cast<double>(s);
    return samples.empty() ? 0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

// The key of 60..96 that is strongest, 0 in silence.
int PitchOf(const std::vector<float>& samples) {
    constexpr int kLowest = 60, kHighest = 96;
    if (Rms(samples) < kSilence) return 0;
    int best = 0;
    double most = 0;
    for (int key = kLowest; key <= kHighest; ++key) {
        const double level = Level(samples, 440 * std::exp2((key - 69) / 12.0));
        if (level > most) best = key;
        most = std::max(most, level);
    }
    return best;
}

// A single moment between two notes belongs to the second.
void JoinMoments(std::vector<HeardNote>& notes) {
    for (std::size_t i = notes.size(); i-- > 1;) {
        HeardNote& moment = notes[i - 1];
        if (moment.key == 0 || moment.seconds > kShortest) continue;
        notes[i].start = moment.start;
        notes[i].seconds += moment.seconds;
        notes.erase(notes.begin() + static_cast<std::ptrdiff_t>(i) - 1);
    }
}

}  // namespace

Tape::Tape(std::string path, double speed) : path_(std::move(path)) {
    const int delay = static_cast<int>(kBufferMs / speed);
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", path_.c_str(), 1);
    setenv("SDL_DISKAUDIODELAY", std::to_string(delay).c_str(), 1);
}

Tape::~Tape() {
    for (const char* name : {"SDL_AUDIODRIVER", "SDL_DISKAUDIOFILE", "SDL_DISKAUDIODELAY"}) unsetenv(name);
}

double Tape::Now() const {
    std::error_code error;
    const auto size = std::filesystem::file_size(path_, error);
    return error ? 0 : static_cast<double>(size) / kBytesPerSecond;
}

void Tape::Run(double seconds, const std::function<void()>& everyMoment) const {
    using Clock = std::chrono::steady_clock;
    const auto giveUp = Clock::now() + std::chrono::seconds(30);
    const double end = Now() + seconds;
    while (Now() < end) {
        ASSERT_LT(Clock::now(), giveUp) << "the device does not run";
        if (everyMoment) everyMoment();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

double Tape::RunUntilHeard() const {
    constexpr double kStep = 0.05, kPatience = 10;
    const double from = Now();
    while (Now() < from + kPatience) {
        Run(kStep);
        for (const HeardNote& note : Notes(from)) {
            if (note.key != 0 && note.seconds > kShortest) return note.start;
        }
        if (testing::Test::HasFatalFailure()) break;
    }
    ADD_FAILURE() << "nothing is heard";
    return Now();
}

std::vector<float> Tape::Samples(double from, double to) const {
    constexpr std::size_t kFrameBytes = 4;
    const auto first = static_cast<std::streamoff>(from * kRate) * static_cast<std::streamoff>(kFrameBytes);
    std::vector<std::int16_t> stereo(2 * static_cast<std::size_t>(std::max(0.0, std::min(to, Now()) - from) * kRate));
    std::ifstream file(path_, std::ios::binary);
    file.seekg(first);
    file.read(reinterpret_cast<char*>(stereo.data()), static_cast<std::streamsize>(2 * stereo.size()));
    stereo.resize(static_cast<std::size_t>(file.gcount()) / kFrameBytes * 2);
    std::vector<float> samples(stereo.size() / 2);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i] = static_cast<float>(stereo[2 * i] + stereo[2 * i + 1]) / 65536.0F;
    }
    return samples;
}

double Tape::Loudness(double from, double to) const {
    return Rms(Samples(from, to));
}

double Tape::Strength(double hertz, double from, double to) const {
    return Level(Samples(from, to), hertz);
}

int Tape::Peak(double from) const {
    std::vector<std::int16_t> samples(2 * static_cast<std::size_t>(std::max(0.0, Now() - from) * kRate));
    std::ifstream file(path_, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(from * kRate) * 4);
    file.read(reinterpret_cast<char*>(samples.data()), static_cast<std::streamsize>(2 * samples.size()));
    int peak = 0;
    for (const int sample : samples) peak = std::max(peak, std::abs(sample));
    return peak;
}

std::vector<HeardNote> Tape::Notes(double from) const {
    std::vector<HeardNote> notes;
    const double end = Now() - kMoment;
    for (double at = from; at < end; at += kMoment) {
        const int key = PitchOf(Samples(at, at + kMoment));
        if (notes.empty() || notes.back().key != key) notes.push_back({key, at, 0});
        notes.back().seconds += kMoment;
    }
    JoinMoments(notes);
    return notes;
}

std::vector<int> Keys(const std::vector<HeardNote>& notes) {
    std::vector<int> keys;
    for (const HeardNote& note : notes) {
        if (note.key != 0) keys.push_back(note.key);
    }
    return keys;
}
