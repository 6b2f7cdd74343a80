#include "host/desktop/midi_piece.h"

#include <array>
#include <utility>

namespace {

// More than any music needs in one and a half milliseconds. A file that sends a million at once must not hold up the
// sound device.
constexpr std::size_t kMostMessages = 512;

constexpr int kNoVoices = 1;  // the least FluidSynth takes

}  // namespace

MidiPiece::MidiPiece(int rate)
    : settings_(MakeFluidSettings(rate, kNoVoices)),
      clock_(new_fluid_synth(settings_.get())),
      player_(clock_ ? new_fluid_player(clock_.get()) : nullptr) {
    due_.reserve(kMostMessages);
}

std::unique_ptr<MidiPiece> MidiPiece::Read(std::span<const std::uint8_t> file, int rate) {
    std::unique_ptr<MidiPiece> piece(new MidiPiece(rate));
    if (!piece->player_ || !piece->Open(file)) return nullptr;
    return piece;
}

// The player reads its file with the first block, which also brings the messages of the very start.
bool MidiPiece::Open(std::span<const std::uint8_t> file) {
    fluid_player_set_playback_callback(player_.get(), &MidiPiece::Collect, this);
    if (fluid_player_add_mem(player_.get(), file.data(), file.size()) == FLUID_FAILED) return false;
    fluid_player_play(player_.get());
    Tick();
    unheard_ = true;
    length_ = fluid_player_get_total_ticks(player_.get());
    return fluid_player_get_status(player_.get()) == FLUID_PLAYER_PLAYING;
}

int MidiPiece::Collect(void* piece, fluid_midi_event_t* event) {
    constexpr int kPitchBend = 0xe0;
    auto& due = static_cast<MidiPiece*>(piece)->due_;
    if (due.size() == kMostMessages) return FLUID_OK;
    const int type = fluid_midi_event_get_type(event);
    const int first = type == kPitchBend ? fluid_midi_event_get_pitch(event) : fluid_midi_event_get_key(event);
    due.push_back({type, fluid_midi_event_get_channel(event), first, fluid_midi_event_get_velocity(event)});
    return FLUID_OK;
}

void MidiPiece::Tick() {
    std::array<float, 2 * kBlockFrames> silence;
    fluid_synth_write_float(clock_.get(), kBlockFrames, silence.data(), 0, 2, silence.data(), 1, 2);
}

std::span<const MidiMessage> MidiPiece::Advance() {
    if (std::exchange(unheard_, false)) return due_;
    due_.clear();
    Tick();
    return due_;
}

// The player itself reports the end two seconds late, to let notes ring out. Its tick count tells the moment; its
// report still matters for files whose tempo makes the count useless.
bool MidiPiece::Ended() const {
    return fluid_player_get_current_tick(player_.get()) >= length_ ||
           fluid_player_get_status(player_.get()) != FLUID_PLAYER_PLAYING;
}
