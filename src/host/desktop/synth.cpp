#include "host/desktop/synth.h"

#include <filesystem>
#include <utility>

namespace {

constexpr int kVoices = 48;          // the busiest moments lose their oldest, quietest notes; bounds the processor time
constexpr double kGain = 0.21;       // busy passages then peak near the music's share
constexpr int kFadesPerSecond = 60;  // a fade lasts the 60th part of a second
constexpr int kAllChannels = -1;
constexpr int kChannels = 16;
constexpr int kSustainPedal = 64;
constexpr int kSostenutoPedal = 66;

enum Status {
    kNoteOff = 0x80,
    kNoteOn = 0x90,
    kKeyPressure = 0xa0,
    kControlChange = 0xb0,
    kProgramChange = 0xc0,
    kChannelPressure = 0xd0,
    kPitchBend = 0xe0,
};

}  // namespace

FluidSettings MakeFluidSettings(int rate, int voices) {
    for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG}) {
        fluid_set_log_function(level, nullptr, nullptr);
    }
    FluidSettings settings(new_fluid_settings());
    fluid_settings_setnum(settings.get(), "synth.sample-rate", rate);
    fluid_settings_setint(settings.get(), "synth.polyphony", voices);
    fluid_settings_setint(settings.get(), "synth.cpu-cores", 1);
    fluid_settings_setint(settings.get(), "synth.reverb.active", 0);
    fluid_settings_setint(settings.get(), "synth.chorus.active", 0);
    fluid_settings_setint(settings.get(), "synth.lock-memory", 0);  // ordinary users may lock next to nothing
    fluid_settings_setnum(settings.get(), "synth.gain", kGain);
    return settings;
}

Synth::Synth(int rate, FluidSettings settings, FluidSynth synth)
    : settings_(std::move(settings)), synth_(std::move(synth)), fadeFrames_(rate / kFadesPerSecond) {}

std::unique_ptr<Synth> Synth::Load(const std::string& soundFont, int rate) {
    constexpr int kResetPresets = 1;
    std::error_code error;
    if (!std::filesystem::is_regular_file(soundFont, error)) return nullptr;  // FluidSynth would wait for a pipe
    FluidSettings settings = MakeFluidSettings(rate, kVoices);
    FluidSynth synth(new_fluid_synth(settings.get()));
    if (!synth || fluid_synth_sfload(synth.get(), soundFont.c_str(), kResetPresets) == FLUID_FAILED) return nullptr;
    return std::unique_ptr<Synth>(new Synth(rate, std::move(settings), std::move(synth)));
}

void Synth::Send(const MidiMessage& message) {
    fluid_synth_t* synth = synth_.get();
    const auto [type, channel, first, second] = message;
    switch (type) {
        case kNoteOff:
            fluid_synth_noteoff(synth, channel, first);
            break;
        case kNoteOn:
            fluid_synth_noteon(synth, channel, first, second);
            break;
        case kKeyPressure:
            fluid_synth_key_pressure(synth, channel, first, second);
            break;
        case kControlChange:
            fluid_synth_cc(synth, channel, first, second);
            break;
        case kProgramChange:
            fluid_synth_program_change(synth, channel, first);
            break;
        case kChannelPressure:
            fluid_synth_channel_pressure(synth, channel, first);
            break;
        case kPitchBend:
            fluid_synth_pitch_bend(synth, channel, first);
            break;
        default:
            break;  // tempo, texts and system messages mean nothing to the instrument
    }
}

void Synth::ReleaseAll() {
    for (int channel = 0; channel < kChannels; ++channel) {
        fluid_synth_cc(synth_.get(), channel, kSustainPedal, 0);
        fluid_synth_cc(synth_.get(), channel, kSostenutoPedal, 0);
    }
    fluid_synth_all_notes_off(synth_.get(), kAllChannels);
}

void Synth::Silence() {
    if (!Fading()) fadeLeft_ = fadeFrames_;
}

void Synth::Reset() {
    Silence();
    resetAfterFade_ = true;
}

void Synth::Render(std::span<float> stereo) {
    const auto frames = static_cast<int>(stereo.size() / 2);
    fluid_synth_write_float(synth_.get(), frames, stereo.data(), 0, 2, stereo.data(), 1, 2);
    if (Fading()) FadeOut(stereo);
}

void Synth::FadeOut(std::span<float> stereo) {
    for (std::size_t i = 0; i < stereo.size(); i += 2) {
        if (fadeLeft_ > 0) --fadeLeft_;
        const float level = static_cast<float>(fadeLeft_) / static_cast<float>(fadeFrames_);
        stereo[i] *= level;
        stereo[i + 1] *= level;
    }
    if (!Fading()) EndFade();
}

void Synth::EndFade() {
    fluid_synth_all_sounds_off(synth_.get(), kAllChannels);
    if (std::exchange(resetAfterFade_, false)) fluid_synth_system_reset(synth_.get());
}
