// Music and effects are added up by the mixer, which cuts off what does not fit. So each keeps to its share of the full
// scale, whatever the piece and whatever the wave, and the sum always fits.
#pragma once

// The effects have the larger one: as they are made, they are then about 6 dB louder than the music.
constexpr float kMusicPeak = 0.26F;
constexpr float kEffectPeak = 0.73F;
