# Installs the Debian packages that are missing; sourced by run, test and .ci/run. Quick when none are.

# What the game is built from and plays with.
PLAY_PACKAGES="g++ cmake ninja-build pkg-config libstb-dev qt6-base-dev libsdl2-dev libsdl2-mixer-dev libfluidsynth-dev
               timgm6mb-soundfont fonts-vlgothic"
# What only the tests, the author's tools and the checks need.
TEST_PACKAGES="libgtest-dev libbenchmark-dev liblua5.4-dev"
CHECK_PACKAGES="clang clang-format clang-tidy libclang-rt-14-dev git"
# A screen where there is none.
SCREEN_PACKAGES="xvfb xauth"

install_missing() {
    local missing=""
    local installed
    # shellcheck disable=SC2068
    installed=$({ dpkg-query -W -f '${Package} ${db:Status-Status}\n' $@ 2>/dev/null || true; } |
        awk '$2 == "installed" {print $1}')
    # shellcheck disable=SC2068
    for package in $@; do
        grep -qxF "$package" <<<"$installed" || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    echo "Installing:$missing"
    local as_root=""
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { echo "Please install these packages as root:$missing" >&2; return 1; }
        as_root="sudo"
    fi
    $as_root apt-get update -qq
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
