#!/usr/bin/env bash
# clang-tidy over the project's sources: lint.sh BUILD_FOLDER (with its compile_commands.json). Those of the browser and
# of the fuzzers are built with other compilers and left out.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files 'src/*.cpp' 'tools/*.cpp' ':!tools/frame_benchmark.cpp' ':!tools/fuzz' ':!src/host/web' ':!src/web_*.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy -p "$1" --quiet --warnings-as-errors='*' \
        --extra-arg=-Wno-unknown-warning-option 2> >(grep -vE 'warnings? (generated|treated)|Suppressed|Use -' >&2)
