#!/usr/bin/env bash
# The version has one place, CMakeLists.txt; everything that tells it agrees: the programs, the changelog, the packages'
# metadata, the page. And an installed tree can be moved, and its papers are in order.
#   release.sh BUILD_FOLDER FOLDER_FOR_THE_TREE
set -euo pipefail
build=$1 tree=$2
cd "$(dirname "$0")/.."
version=$(sed -n 's/^project(tarnveil VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
fail() { echo "$*" >&2; exit 1; }
agree() { [ "$2" = "$version" ] || fail "$1 has version \"$2\", CMakeLists.txt \"$version\""; }

released=$(sed -n 's/^## \[\([0-9].*\)\] - .*/\1 /p; s/^## \[\([0-9].*\)\] - //p' CHANGELOG.md | head -n 1)
agree CHANGELOG.md "${released% }"
agree packaging/tarnveil.metainfo.xml "$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' packaging/tarnveil.metainfo.xml | head -n 1)"
day=$(sed -n "s/^## \[$version\] - //p" CHANGELOG.md)
grep -qF "<release version=\"$version\" date=\"$day\"" packaging/tarnveil.metainfo.xml ||
    fail "packaging/tarnveil.metainfo.xml: version $version was released on $day by CHANGELOG.md"
grep -q 'id="version">VERSION<' page/index.html || fail "page/index.html: no place for the version"

rm -rf "$tree" "$tree.moved"
cmake --install "$build" --prefix "$tree" >/dev/null
mv "$tree" "$tree.moved"
cd "$tree.moved"
programs=$(find . -type f -perm -u+x ! -name '*.*')
[ -n "$programs" ] || fail "nothing is installed"
for program in $programs; do
    agree "$program" "$(QT_QPA_PLATFORM=offscreen "$program" --version | sed "s/^$(basename "$program") //")"
    name=$(basename "$program")
    page=$(find . -path "*/man*/$name.[16]*")
    grep -qF "Tarnveil $version" "$page" || fail "$page: not of version $version"
    [ -f "share/bash-completion/completions/$name" ] || fail "$name: no completion"
done
if command -v desktop-file-validate >/dev/null; then
    find . -name '*.desktop' -exec desktop-file-validate {} +
fi
if command -v appstreamcli >/dev/null; then
    find . -name '*.metainfo.xml' -exec appstreamcli validate --no-net {} +
fi
if command -v man >/dev/null; then
    for page in $(find . -path '*/man*/*.[16]'); do
        said=$(LC_ALL=C.UTF-8 MANROFFSEQ=t man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
        [ -z "$said" ] || fail "$page: $said"
    done
fi
rm -rf "$tree.moved"
