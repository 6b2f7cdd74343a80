#!/bin/sh
# Builds the background, title, information screen, words, logo and explosions
# into assets/pictures and checks them. Runs from any directory.
set -e
export PYTHONDONTWRITEBYTECODE=1
cd "$(dirname "$0")"
PY="${PYTHON:-/usr/bin/python3}"
for s in scenery title info explosions words logo; do
  "$PY" "$s.py"
done
"$PY" check_scenery.py
