#!/bin/bash
# Turns the ABC sources of this folder into the MIDI files of assets/data.
# Needs abc2midi (Debian package "abcmidi").  Any warning of abc2midi (a bar
# of the wrong length, voices of different length) stops the build.
# Usage: make.sh [OUTDIR]      (default: ../../assets/data)
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
out=${1:-$here/../../assets/data}
mkdir -p "$out"

# ABC source            name the game opens (the mixed case is meant)
pieces="
stage1.abc              Stage1.mid
stage2.abc              Stage2.Mid
stage3.abc              Stage3.Mid
attack.abc              Atacck.Mid
boss.abc                boss.mid
boss02.abc              boss02.mid
cleared.abc             Cleared.Mid
gameover.abc            gameover.mid
end.abc                 End.mid
"

while read -r abc mid; do
    [ -n "$abc" ] || continue
    log=$(abc2midi "$here/$abc" -o "$out/$mid.tmp" 2>&1) || { echo "$log" >&2; exit 1; }
    if grep -Eqi 'warning|error' <<<"$log"; then
        printf '%s:\n%s\n' "$abc" "$log" >&2
        rm -f "$out/$mid.tmp"
        exit 1
    fi
    mv "$out/$mid.tmp" "$out/$mid"
    echo "$mid: $(stat -c %s "$out/$mid") bytes"
done <<<"$pieces"
