#!/usr/bin/env bash
# README.ja.md says the same as README.md: equal headings by level, tables, commands, Lua lines, inline code and links.
# And every link between the documents leads somewhere.
set -euo pipefail
cd "$(dirname "$0")/.."

outline() {
    sed -E 's/^(#+) .*/\1/' "$1" | grep -xE '#+|\|[-|]+\||!?\[.*' | sed -E 's/\[[^]]*\]/[]/g'
    grep -cE '^\| ' "$1"
    grep -oE '\]\([^)]*\)' "$1"
    sed -nE '/^```/,/^```/ { s/ +-- .*//; s/^(\.\/[a-z]+) .*/\1/; p }' "$1"
    sed '/^```/,/^```/d' "$1" | grep -oE '`[^`]+`' | sort -u
}
diff <(outline README.md) <(outline README.ja.md) ||
    { echo "README.ja.md is not in step with README.md (< and > above)" >&2; exit 1; }
[ "$(outline README.md | wc -l)" -gt 60 ]

status=0
for document in *.md docs/*.md; do
    while read -r link; do
        [ -e "$(dirname "$document")/${link%%#*}" ] || { echo "$document: $link leads nowhere" >&2; status=1; }
    done < <(grep -oE '\]\([^)#][^)]*\)' "$document" | sed 's/^](//; s/)$//' | grep -v '^https:')
done
exit $status
