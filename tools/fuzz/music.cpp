// MIDI files: any file is refused or read, and played for some seconds.
#include <cstddef>
#include <cstdint>

#include "host/desktop/midi_piece.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr int kRate = 44100, kBlocks = 2000;
    static const bool quiet = [] {
        for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
            fluid_set_log_function(level, nullptr, nullptr);
        return true;
    }();
    static_cast<void>(quiet);
    const auto piece = MidiPiece::Read({data, size}, kRate);
    for (int block = 0; piece && block < kBlocks && !piece->Ended(); ++block) {
        std::size_t sum = 0;
        for (const MidiMessage& message : piece->Advance()) sum += static_cast<std::size_t>(message.channel);
        if (sum > kBlocks * kRate) return 1;
    }
    return 0;
}
