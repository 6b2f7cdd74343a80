#!/usr/bin/env bash
# on_wayland.sh weston|sway COMMAND...: runs the command under that compositor, without a screen. TARNVEIL_TEST_SCREENSHOT
# prints the compositor's own picture (PNG). Only sway lets a program press keys.
set -euo pipefail
compositor=$1
shift
dir=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; wait; rm -rf "$dir"' EXIT
export XDG_RUNTIME_DIR=$dir HOME=$dir QT_QPA_PLATFORM=wayland
unset DISPLAY WAYLAND_DISPLAY
if [ "$compositor" = weston ]; then
    weston --backend=headless-backend.so --use-pixman --debug --no-config --socket=wayland-1 --width=800 --height=700 \
        >"$dir/log" 2>&1 &
    export TARNVEIL_TEST_SCREENSHOT="cd $dir && rm -f -- *.png && weston-screenshooter >&2 && cat -- *.png"
else
    as_user=""  # sway does not run as root
    [ "$(id -u)" != 0 ] || as_user="unshare --user --map-user=1000 --map-group=1000"
    printf 'xwayland disable\noutput * resolution 1400x1100\nfor_window [app_id=".*"] floating enable\n' >"$dir/config"
    WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman $as_user sway -c "$dir/config" >"$dir/log" 2>&1 &
    export TARNVEIL_TEST_SCREENSHOT="grim -"
fi
for ((i = 0; i < 300; i++)); do [ ! -S "$dir/wayland-1" ] || break; sleep 0.1; done
export WAYLAND_DISPLAY=wayland-1 SWAYSOCK
SWAYSOCK=$(find "$dir" -name 'sway-ipc.*')
"$@" || { status=$?; cat "$dir/log"; exit $status; }
