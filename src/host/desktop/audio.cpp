// SDL owns the one sound device, SDL_mixer mixes the effect into what it plays, and the music is its "music source".
#include "host/audio.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>

#include "host/desktop/audio_setup.h"
#include "host/desktop/effects.h"
#include "host/desktop/loudness.h"
#include "host/desktop/music_deck.h"
#include "host/files.h"

namespace {

constexpr int kRate = 44100;  // Hz; the device may insist on another one
constexpr int kChannels = 2;
constexpr int kBufferFrames = 1024;  // 23 ms: less than a frame of the game late

constexpr const char* kSystemSoundFont = "/usr/share/sounds/sf2/TimGM6mb.sf2";

std::string chosenSoundFont;

struct Audio {
    explicit Audio(int rate) : music(SoundFontPath(), rate) {}
    static std::string SoundFontPath();

    MusicDeck music;
    Effects effects;
};

std::string Audio::SoundFontPath() {
    const char* wanted = std::getenv("TARNVEIL_SOUNDFONT");
    if (!chosenSoundFont.empty()) return chosenSoundFont;
    return wanted && *wanted ? wanted : kSystemSoundFont;
}

// Null: silence. Left alone at exit when StopAudio was not called: the device's thread may still be using it.
Audio* audio = nullptr;

// Peaks are bent towards the music's share instead of being cut off; below the knee, where music is nearly all the
// time, nothing changes.
float BendPeak(float level) {
    constexpr float kKnee = kMusicPeak * 0.73F;
    constexpr float kRoom = kMusicPeak - kKnee;
    const float over = std::abs(level) - kKnee;
    return over <= 0 ? level : std::copysign(kKnee + kRoom * (1.0F - std::exp(-over / kRoom)), level);
}

std::int16_t ToSample(float level) {
    constexpr float kFull = 32767.0F;
    return static_cast<std::int16_t>(std::lround(BendPeak(level) * kFull));
}

// On the thread of the sound device; `stream` is 16-bit stereo.
void RenderMusic(void* deck, Uint8* stream, int bytes) {
    auto samples = std::span(reinterpret_cast<std::int16_t*>(stream), static_cast<std::size_t>(bytes) / 2);
    std::array<float, 2 * 8 * kBlockFrames> levels;
    while (!samples.empty()) {
        const auto part = std::span(levels).first(std::min(levels.size(), samples.size()));
        static_cast<MusicDeck*>(deck)->Render(part);
        std::ranges::transform(part, samples.begin(), ToSample);
        samples = samples.subspan(part.size());
    }
}

// The rate the device runs at, 0 when there is none. Rates that FluidSynth cannot make are left to SDL to convert.
int OpenDevice() {
    constexpr int kLowest = 8000, kHighest = 96000;
    for (const int changes : {SDL_AUDIO_ALLOW_FREQUENCY_CHANGE, 0}) {
        if (Mix_OpenAudioDevice(kRate, AUDIO_S16SYS, kChannels, kBufferFrames, nullptr, changes) != 0) return 0;
        int rate = 0;
        Mix_QuerySpec(&rate, nullptr, nullptr);
        if (rate >= kLowest && rate <= kHighest) return rate;
        Mix_CloseAudio();
    }
    return 0;
}

}  // namespace

void SetSoundFont(const std::string& path) {
    chosenSoundFont = path;
}

void StartAudio() {
    if (audio) return;
    SDL_SetHint(SDL_HINT_APP_NAME, "Tarnveil");
    const bool system = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    const int rate = system ? OpenDevice() : 0;
    if (rate == 0) {
        LogLine(std::string("no sound: ") + SDL_GetError());
        if (system) SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return;
    }
    audio = new Audio(rate);
    Mix_HookMusic(RenderMusic, &audio->music);
}

void StopAudio() {
    if (!audio) return;
    Mix_HookMusic(nullptr, nullptr);
    delete audio;
    audio = nullptr;
    Mix_CloseAudio();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

bool MusicOpen(const std::string& path) {
    return audio && audio->music.Open(path);
}

void MusicPlay() {
    if (audio) audio->music.Play();
}

void MusicStop() {
    if (audio) audio->music.Stop();
}

void MusicRewind() {
    if (audio) audio->music.Rewind();
}

void MusicClose() {
    if (audio) audio->music.Close();
}

std::string_view MusicMode() {
    return audio ? audio->music.Mode() : "";
}

void PlayWave(std::span<const std::uint8_t> wave) {
    if (audio) audio->effects.Play(wave);
}
