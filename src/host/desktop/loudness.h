// Music and effects are added up by the mixer, which cuts off what does not fit. So each keeps to its share of the full
// scale, whatever the piece and whatever the wave, and the sum always fits.
#pragma once

constexpr float kMusicPeak = 0.49F;
constexpr float kEffectPeak = 0.50F;
