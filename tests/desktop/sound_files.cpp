#include "sound_files.h"

#include <cmath>
#include <fstream>
#include <numbers>
#include <string_view>

using namespace std::string_view_literals;

namespace {

constexpr int kTicksPerQuarter = 480;
constexpr double kQuarter = 0.5;  // seconds, at the 120 per minute of a file that names no tempo

// Byte by byte: gcc 12 warns of an overflow that is none when it sees a range inserted.
template <typename Range>
void Append(Bytes& bytes, const Range& more) {
    for (const auto byte : more) bytes.push_back(static_cast<std::uint8_t>(byte));
}

std::uint8_t ByteOf(unsigned value, int shift) {
    return static_cast<std::uint8_t>(value >> shift);
}

void AppendBig(Bytes& bytes, unsigned value) {
    for (const int shift : {24, 16, 8, 0}) bytes.push_back(ByteOf(value, shift));
}

void AppendLittle(Bytes& bytes, unsigned value, int size) {
    for (int i = 0; i < size; ++i) bytes.push_back(ByteOf(value, 8 * i));
}

// The time before an event, in at most two groups of seven bits.
void AppendWait(Bytes& bytes, double seconds) {
    const auto ticks = static_cast<unsigned>(std::lround(seconds / kQuarter * kTicksPerQuarter));
    bytes.push_back(static_cast<std::uint8_t>(ticks >> 7 | 0x80));
    bytes.push_back(static_cast<std::uint8_t>(ticks & 0x7f));
}

}  // namespace

Bytes MidiFile(const Bytes& track) {
    Bytes file;
    Append(file, "MThd"sv);
    AppendBig(file, 6);
    Append(file, Bytes{0, 0, 0, 1, kTicksPerQuarter >> 8, kTicksPerQuarter & 0xff});
    Append(file, "MTrk"sv);
    AppendBig(file, static_cast<unsigned>(track.size()));
    Append(file, track);
    return file;
}

Bytes Tune(const std::vector<Note>& notes, int volume) {
    constexpr std::uint8_t kLoud = 127;
    Bytes track = {0, 0xc0, kOcarina};
    if (volume != kUsualVolume) Append(track, Bytes{0, 0xb0, 7, static_cast<std::uint8_t>(volume)});
    double wait = 0;
    for (const auto& [key, seconds] : notes) {
        const auto pitch = static_cast<std::uint8_t>(key);
        wait += key == 0 ? seconds : 0;
        if (key == 0) continue;
        AppendWait(track, wait);
        Append(track, Bytes{0x90, pitch, kLoud});
        AppendWait(track, seconds);
        Append(track, Bytes{0x80, pitch, 0});
        wait = 0;
    }
    AppendWait(track, wait);
    Append(track, Bytes{0xff, 0x2f, 0});
    return MidiFile(track);
}

Bytes Tone(double hertz, double seconds, double level) {
    constexpr unsigned kRate = 44100;
    const auto samples = static_cast<unsigned>(seconds * kRate);
    Bytes file;
    Append(file, "RIFF"sv);
    AppendLittle(file, 36 + 2 * samples, 4);
    Append(file, "WAVEfmt "sv);
    AppendLittle(file, 16, 4);
    AppendLittle(file, 1, 2);  // PCM
    AppendLittle(file, 1, 2);  // mono
    AppendLittle(file, kRate, 4);
    AppendLittle(file, 2 * kRate, 4);
    AppendLittle(file, 2, 2);
    AppendLittle(file, 16, 2);
    Append(file, "data"sv);
    AppendLittle(file, 2 * samples, 4);
    for (unsigned i = 0; i < samples; ++i) {
        const double phase = 2 * std::numbers::pi * hertz * i / kRate;
        AppendLittle(file, static_cast<unsigned>(std::lround(32767 * level * std::sin(phase))), 2);
    }
    return file;
}

void WriteBytes(const std::string& path, const Bytes& bytes) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}
