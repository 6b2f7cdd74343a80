#!/bin/sh
# Render and pack all sprite sheets, then check them. Runs from any directory.
# Renders are cached; TARNVEIL_ART_CACHE chooses where, TARNVEIL_ART_JOBS how
# many renders run side by side (default 1).
set -e
here=$(cd "$(dirname "$0")" && pwd)
export PYTHONDONTWRITEBYTECODE=1
/usr/bin/python3 "$here/sprites.py"
/usr/bin/python3 "$here/check_sprites.py"
