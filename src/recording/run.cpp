#include "recording/run.h"

#include <algorithm>
#include <string_view>

#include "state/main_form.h"
#include "toolkit/base64.h"
#include "toolkit/deflate.h"

namespace {

constexpr std::string_view kFirstLine = "tarnveil-run 1\n";
constexpr std::string_view kRecordingStart = "tarnveil-recording";
constexpr std::size_t kPicturePixels = std::size_t{RunPicture::kWidth} * RunPicture::kHeight;

// The average of a square of the surface.
std::uint16_t PixelOf(const Surface& surface, int left, int top, int side) {
    unsigned red = 0, green = 0, blue = 0;
    for (int y = top; y < top + side; ++y) {
        const Color* row = surface.Row(y);
        for (int x = left; x < left + side; ++x) {
            red += row[x] >> 16 & 0xFF, green += row[x] >> 8 & 0xFF, blue += row[x] & 0xFF;
        }
    }
    const auto count = static_cast<unsigned>(side * side);
    return static_cast<std::uint16_t>(red / count >> 3 << 11 | green / count >> 2 << 5 | blue / count >> 3);
}

// High bytes first, then the low ones: they pack better apart.
std::string PictureText(const RunPicture& picture) {
    std::vector<std::uint8_t> bytes;
    for (const std::uint16_t pixel : picture.pixels) bytes.push_back(static_cast<std::uint8_t>(pixel >> 8));
    for (const std::uint16_t pixel : picture.pixels) bytes.push_back(static_cast<std::uint8_t>(pixel));
    return Base64Url(Deflate(bytes));
}

bool ParsePicture(std::string_view text, RunPicture& picture) {
    const auto deflated = FromBase64Url(text);
    const auto bytes = deflated ? Inflate(*deflated, 2 * kPicturePixels) : std::nullopt;
    if (!bytes || bytes->size() != 2 * kPicturePixels) return false;
    picture.pixels.resize(kPicturePixels);
    for (std::size_t i = 0; i < kPicturePixels; ++i)
        picture.pixels[i] = static_cast<std::uint16_t>((*bytes)[i] << 8 | (*bytes)[kPicturePixels + i]);
    return true;
}

bool ParseNote(std::string_view line, Run& run) {
    const auto space = std::min(line.find(' '), line.size());
    const std::string_view word = line.substr(0, space), rest = line.substr(std::min(space + 1, line.size()));
    if (word == "date") return run.date = rest, true;
    if (word == "name") return run.name = rest, true;
    if (word == "kept") return run.kept = rest == "1", run.kept;
    return word == "picture" && ParsePicture(rest, run.picture);
}

// Without the lines that make it long.
std::string WithoutEvents(std::string_view text) {
    std::string head;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size() - 1) + 1;
        const std::string_view line = text.substr(0, end);
        if (!line.starts_with("event ") && !line.starts_with("check ") && !line.starts_with("left ")) head += line;
        text.remove_prefix(end);
    }
    return head;
}

std::string Inflated(std::span<const std::uint8_t> bytes, std::string& text) {
    if (bytes.size() > kMostRunBytes) return "too large to be a run";
    const auto inflated = Inflate(bytes, kMostRunText);
    if (!inflated) return "the file is damaged";
    text.assign(inflated->begin(), inflated->end());
    return {};
}

}  // namespace

RunPicture PictureOfNow() {
    const Surface& screen = MainForm.Crt;
    const int side = game.ScreenW / RunPicture::kWidth;
    const bool composed =
        side > 0 && screen.imageWidth >= side * RunPicture::kWidth && screen.imageHeight >= side * RunPicture::kHeight;
    RunPicture picture;
    if (!composed) return picture;
    for (int y = 0; y < RunPicture::kHeight; ++y) {
        for (int x = 0; x < RunPicture::kWidth; ++x)
            picture.pixels.push_back(PixelOf(screen, x * side, y * side, side));
    }
    return picture;
}

std::string FormatRunHead(const Run& run) {
    std::string text(kFirstLine);
    text += "date " + run.date + '\n';
    if (!run.name.empty()) text += "name " + run.name + '\n';
    if (run.kept) text += "kept 1\n";
    if (!run.picture.pixels.empty()) text += "picture " + PictureText(run.picture) + '\n';
    return text;
}

std::vector<std::uint8_t> PackRun(const Run& run) {
    const std::string text = FormatRunHead(run) + FormatRecording(run.recording, EventFrames::sinceLast);
    return Deflate({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

bool LooksLikeRun(std::span<const std::uint8_t> bytes) {
    constexpr std::uint8_t kZlib = 0x78;
    return !bytes.empty() && bytes.front() == kZlib;
}

std::string ParseRun(std::string_view text, Run& run) {
    if (!text.starts_with(kFirstLine)) return "line 1: not a run of this version (tarnveil-run 1)";
    Run read;
    text.remove_prefix(kFirstLine.size());
    for (int number = 2; !text.starts_with(kRecordingStart); ++number) {
        const auto end = text.find('\n');
        if (end == std::string_view::npos) return "the recording is missing";
        if (!ParseNote(text.substr(0, end), read)) return "line " + std::to_string(number) + ": not understood";
        text.remove_prefix(end + 1);
    }
    std::string error = ParseRecording(text, read.recording);
    if (error.empty()) run = std::move(read);
    return error.empty() ? "" : "in the recording, " + error;
}

std::string UnpackRun(std::span<const std::uint8_t> bytes, Run& run) {
    std::string text;
    std::string error = Inflated(bytes, text);
    return error.empty() ? ParseRun(text, run) : error;
}

std::string UnpackRunHead(std::span<const std::uint8_t> bytes, Run& run) {
    std::string text;
    std::string error = Inflated(bytes, text);
    return error.empty() ? ParseRun(WithoutEvents(text), run) : error;
}
