#!/usr/bin/env bash
# Adds the present files of assets/data to the list of all versions that were ever shipped. To be run whenever one of
# them is built anew: by this list the game knows an unchanged copy in a player's folder from a player's own file.
# With "check": only tells which are missing from the list.
set -euo pipefail
cd "$(dirname "$0")/.."
export LC_ALL=C
list=assets/shipped_versions.txt
present=$(cd assets/data && ls | grep -v '^Scores.DAT$' | xargs sha256sum)
if [ "${1:-}" = check ]; then
    missing=$(grep -vxFf $list <<<"$present") || exit 0
    printf 'Not in %s (scripts/shipped-versions.sh adds them):\n%s\n' $list "$missing"
    exit 1
fi
all=$(cat $list - <<<"$present")
sort -u -k2,2 -k1,1 <<<"$all" >$list
