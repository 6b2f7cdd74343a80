#!/usr/bin/env bash
# wayland.sh PROGRAM CHECK: starts the program under a Wayland compositor without a screen, waits until the compositor's own
# picture has changed no more, and lets CHECK find the title in it.
set -euo pipefail
program=$1 check=$2
dir=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; wait; rm -rf "$dir"' EXIT
export XDG_RUNTIME_DIR=$dir HOME=$dir WAYLAND_DISPLAY=tarnveil-test QT_QPA_PLATFORM=wayland SDL_AUDIODRIVER=dummy
unset DISPLAY
cd "$dir"
weston --backend=headless-backend.so --use-pixman --debug --no-config --socket=$WAYLAND_DISPLAY \
    --width=800 --height=700 >weston.log 2>&1 &
for ((i = 0; i < 300; i++)); do [ ! -S $WAYLAND_DISPLAY ] || break; sleep 0.1; done
"$program" --folder "$OLDPWD/assets/data" >program.log 2>&1 &
for ((i = 0; i < 60; i++)); do
    rm -f -- *.png
    weston-screenshooter >/dev/null 2>&1 || true
    for picture in *.png; do
        if [ -s "$picture" ] && "$check" "$picture"; then exit 0; fi
    done
    sleep 0.5
done
echo "the title does not show:"
cat weston.log program.log
exit 1
