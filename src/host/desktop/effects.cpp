#include "host/desktop/effects.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#include "host/desktop/loudness.h"
#include "host/files.h"
#include "toolkit/byte_order.h"

namespace {

constexpr int kVoice = 0;

constexpr std::size_t kLargestWave =
    2u << 20;                           // bytes; larger or longer ones would hold up the frame they are decoded in
constexpr std::size_t kMostSounds = 8;  // a game has two; an author who tries out waves leaves old ones behind
constexpr double kLongestWave = 15;     // seconds

constexpr int kCloseStream = 1;

SDL_RWops* Stream(std::span<const std::uint8_t> wave) {
    return SDL_RWFromConstMem(wave.data(), static_cast<int>(wave.size()));
}

bool HasTag(std::span<const std::uint8_t> wave, std::size_t at, std::string_view tag) {
    return wave.size() >= at + tag.size() &&
           std::equal(tag.begin(), tag.end(), wave.begin() + static_cast<std::ptrdiff_t>(at));
}

// Whether every chunk's size can be believed: SDL takes memory for what a file claims to hold before it reads it.
bool ClaimsLittle(std::span<const std::uint8_t> wave) {
    constexpr std::size_t kFirstChunk = 12, kChunkHead = 8;
    std::size_t at = kFirstChunk;
    while (at + kChunkHead <= wave.size()) {
        const std::size_t size = ByteReader(wave.subspan(at + 4)).Get<std::uint32_t>();
        if (size > kLargestWave) return false;
        at += kChunkHead + size + size % 2;
    }
    return true;
}

bool LooksLikeWave(std::span<const std::uint8_t> wave) {
    return wave.size() <= kLargestWave && HasTag(wave, 0, "RIFF") && HasTag(wave, 8, "WAVE") && ClaimsLittle(wave);
}

// 0..1. The device's format is 16-bit, and so is a chunk's.
float PeakOf(const Mix_Chunk& chunk) {
    constexpr float kFull = 32768.0F;
    const std::span samples(reinterpret_cast<const std::int16_t*>(chunk.abuf), chunk.alen / sizeof(std::int16_t));
    int peak = 0;
    for (const int sample : samples) peak = std::max(peak, std::abs(sample));
    return static_cast<float>(peak) / kFull;
}

// A wave that is too loud for the effect's share is turned down.
void SetVolume(Mix_Chunk& chunk) {
    const float peak = PeakOf(chunk);
    const float loudest = peak > 0 ? kEffectPeak / peak : 1.0F;
    Mix_VolumeChunk(&chunk, std::min(MIX_MAX_VOLUME, static_cast<int>(loudest * MIX_MAX_VOLUME)));
}

// Whether the mixer can be trusted with it: a wave that claims one sample per second would be stretched to hours.
bool IsShort(std::span<const std::uint8_t> wave) {
    SDL_AudioSpec format{};
    Uint8* data = nullptr;
    Uint32 bytes = 0;
    if (!SDL_LoadWAV_RW(Stream(wave), kCloseStream, &format, &data, &bytes)) return false;
    SDL_FreeWAV(data);
    const double frameBytes = SDL_AUDIO_BITSIZE(format.format) / 8.0 * format.channels;
    return format.freq > 0 && bytes / frameBytes / format.freq <= kLongestWave;
}

// The mixer knows other formats too and would take them.
Mix_Chunk* Decode(std::span<const std::uint8_t> wave) {
    Mix_Chunk* chunk = nullptr;
    if (LooksLikeWave(wave) && IsShort(wave)) chunk = Mix_LoadWAV_RW(Stream(wave), kCloseStream);
    if (chunk) SetVolume(*chunk);
    // A lone byte stands for a missing file, which is reported where it is read.
    if (!chunk && wave.size() > 1) LogLine("effect of " + std::to_string(wave.size()) + " bytes: cannot be played");
    return chunk;
}

}  // namespace

Effects::Effects() {
    Mix_AllocateChannels(1);
}

Effects::~Effects() {
    Mix_HaltChannel(kVoice);
}

// The same two waves come again and again, a new game reads them into new places: so they are told apart by content.
// Comparing 75 KB takes some microseconds.
Mix_Chunk* Effects::ChunkOf(std::span<const std::uint8_t> wave) {
    const auto known = std::ranges::find_if(sounds_, [&](const Sound& s) { return std::ranges::equal(s.wave, wave); });
    if (known != sounds_.end()) return known->chunk.get();
    if (sounds_.size() == kMostSounds) sounds_.erase(sounds_.begin());
    sounds_.push_back({{wave.begin(), wave.end()}, {}});
    sounds_.back().chunk.reset(Decode(wave));
    return sounds_.back().chunk.get();
}

void Effects::Play(std::span<const std::uint8_t> wave) {
    if (Mix_Chunk* chunk = ChunkOf(wave)) {
        Mix_PlayChannel(kVoice, chunk, 0);
    } else {
        Mix_HaltChannel(kVoice);
    }
}
