#!/usr/bin/env bash
# Runs every command of README.md and docs/ as it stands, from top to bottom, with the Lua texts between them:
#   docs.sh FOLDER_FOR_THE_COPY FOLDER_OF_PROGRAMS...
# A block ```sh is run, a block ```lua FILE becomes that file, a block ```text is neither; others are refused.
set -euo pipefail
source=$(cd "$(dirname "$0")/.." && pwd)
copy=$1
shift
for folder in "$@"; do PATH=$folder:$PATH; done

rm -rf "$copy"
mkdir -p "$copy/assets"
cp -r "$source/content" "$copy"
cp -r "$source/assets/data" "$copy/assets"
# shellcheck disable=SC2016
awk '
    FNR == 1 { block = "" }
    /^```/ && block != "" { if (block == "lua") print "END_OF_LUA"; block = ""; next }
    /^```sh$/ { block = "sh"; next }
    /^```lua ./ { block = "lua"; print "mkdir -p $(dirname " $2 "); cat >" $2 " <<\"END_OF_LUA\""; next }
    /^```text$/ { block = "text"; next }
    /^```|^    [^ ]/ && block == "" && FILENAME !~ /ARCHITECTURE/ {
        print FILENAME ":" FNR ": neither sh, lua FILE nor text: " $0 >"/dev/stderr"; exit 1
    }
    block == "lua" { print }
    block == "sh" { print "echo \"" FILENAME ":" FNR "\""; print }
' "$source/README.md" "$source"/docs/*.md >"$copy/commands"
[ "$(grep -c '^tarnveil-' "$copy/commands")" -ge 10 ]
cd "$copy"
bash -euo pipefail commands
rm -rf "$copy"
