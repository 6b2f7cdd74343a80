#!/usr/bin/env bash
# on_screen.sh [--large] [--managed] COMMAND...: runs the command on a virtual X screen of its own, which is gone
# afterwards. Keys repeat soon, so that nobody waits long for it. --managed: with a window manager. --large: room for
# two windows.
set -euo pipefail
manager="" size=800x600
[ "$1" = --large ] && { size=1760x1000; shift; }
[ "$1" = --managed ] && { manager=openbox; shift; }
dir=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; wait; rm -rf "$dir"' EXIT
mkfifo "$dir/number"
Xvfb -displayfd 3 -screen 0 ${size}x24 -ardelay 100 -arinterval 20 -nolisten tcp 3>"$dir/number" 2>/dev/null &
read -r number <"$dir/number"
export DISPLAY=:$number QT_QPA_PLATFORM=xcb
if [ -n "$manager" ]; then
    export TARNVEIL_TEST_WINDOW_MANAGER=1
    HOME=$dir $manager &
fi
"$@"
