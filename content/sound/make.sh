#!/bin/bash
# Makes the two sound effects with sox.  -R keeps the noise the same every time.
#   Wave1.wav  an explosion (also the ship hit): a falling thump and a noise tail
#   Wave2.wav  a damage tick: short and bright; as loud as the explosion when each is repeated without a pause
# Usage: make.sh [OUTDIR]      (default: ../../assets/data)
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
out=${1:-$here/../../assets/data}
mkdir -p "$out"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
rate=44100
s() { sox -R -D "$@"; }
wav=(-r $rate -c 1 -b 16)

# --- Wave1: explosion ---------------------------------------------------
# body: a sine falling from 170 to 45 Hz, gone after 0.40 s
s -n "${wav[@]}" "$tmp/body.wav" synth 0.40 sine 170:45 fade h 0.004 0.40 0.38 gain -14
# crack: a short burst of bright noise at the start
s -n "${wav[@]}" "$tmp/crack.wav" synth 0.14 whitenoise gain -8 highpass 900 lowpass 7000 fade h 0.002 0.14 0.135 gain -3
# tail: noise that first loses its brightness (0.45 s), then its rumble (0.85 s)
s -n "${wav[@]}" "$tmp/tail.wav" synth 0.45 pinknoise lowpass 3000 highpass 150 fade t 0.004 0.45 0.44 gain -2
s -n "${wav[@]}" "$tmp/rumble.wav" synth 0.85 pinknoise lowpass 700 highpass 60 fade t 0.008 0.85 0.84 gain -3
s -m -v 1 "$tmp/body.wav" -v 1 "$tmp/crack.wav" -v 1 "$tmp/rumble.wav" -v 1 "$tmp/tail.wav" "${wav[@]}" "$tmp/mix.wav"
# a little saturation glues the layers; the fades keep both ends at zero
s "$tmp/mix.wav" "${wav[@]}" "$out/Wave1.wav" gain -9 overdrive 6 10 highpass 40 norm -2.5 fade h 0.003 0.85 0.10

# --- Wave2: damage tick -------------------------------------------------
# a falling chirp with a small metallic partner, 60 ms
s -n "${wav[@]}" "$tmp/chirp.wav" synth 0.060 triangle 2600:1500 fade h 0.002 0.060 0.057 gain -8
s -n "${wav[@]}" "$tmp/ring.wav" synth 0.045 sine 4130 fade h 0.002 0.045 0.042 gain -16
s -n "${wav[@]}" "$tmp/tap.wav" synth 0.012 whitenoise gain -6 highpass 2500 fade l 0.001 0.012 0.010 gain -12
s -m -v 1 "$tmp/chirp.wav" -v 1 "$tmp/ring.wav" -v 1 "$tmp/tap.wav" "${wav[@]}" "$tmp/tick.wav"
s "$tmp/tick.wav" "${wav[@]}" "$out/Wave2.wav" norm -11.5 fade h 0.002 0.060 0.020

for f in Wave1.wav Wave2.wav; do echo "$f: $(stat -c %s "$out/$f") bytes"; done
