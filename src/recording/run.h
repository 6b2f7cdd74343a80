// A run: a recorded game as a file of the player's, NAME.tarnveil-run. It is a text in the zlib format:
//
//   tarnveil-run 1
//   date 2026-11-23 10:43:46   when the game was over
//   name Without a hit         as the player calls it; else none
//   kept 1                     it is never thrown away; else none
//   picture BASE64             the game's last moment, small; else none
//   tarnveil-recording 1       the recording (recording.h) follows
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "recording/recording.h"

inline constexpr const char* kRunEnding = ".tarnveil-run";
inline constexpr std::size_t kMostRunBytes = 1u << 20;  // of a file
inline constexpr std::size_t kMostRunText = 8u << 20;   // of its text

// The last moment: the game screen at an eighth of its size, 5-6-5 bits of red, green and blue each.
struct RunPicture {
    static constexpr int kWidth = 40;
    static constexpr int kHeight = 60;
    std::vector<std::uint16_t> pixels;  // rows from the top; empty: no picture

    bool operator==(const RunPicture&) const = default;
};
// Of the game screen as it is now; empty when nothing was composed there.
RunPicture PictureOfNow();

struct Run {
    std::string date;
    std::string name;
    bool kept = false;
    RunPicture picture;
    Recording recording;

    bool operator==(const Run&) const = default;
};

std::string FormatRunHead(const Run& run);
std::vector<std::uint8_t> PackRun(const Run& run);

// Whether the bytes are meant as a run.
bool LooksLikeRun(std::span<const std::uint8_t> bytes);

// Empty when done, else what is wrong; takes bounded time and memory whatever the bytes are.
std::string UnpackRun(std::span<const std::uint8_t> bytes, Run& run);
std::string ParseRun(std::string_view text, Run& run);

// The same without events and checks: all that lists show, in a small part of the time.
std::string UnpackRunHead(std::span<const std::uint8_t> bytes, Run& run);
