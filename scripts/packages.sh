# Installs the Debian packages that are missing; sourced by run, test and .ci/run. Quick when none are.

# What the game is built from and plays with.
PLAY_PACKAGES="g++ cmake ninja-build pkg-config libstb-dev libcli11-dev qt6-base-dev libxcb1-dev libsdl2-dev
               libsdl2-mixer-dev libfluidsynth-dev timgm6mb-soundfont fonts-vlgothic"
# What the game in the browser is built from; node and python3 come with emscripten.
WEB_PACKAGES="emscripten cmake ninja-build libstb-dev fluidsynth timgm6mb-soundfont lame"
# What only the tests, the author's tools and the checks need.
TEST_PACKAGES="libgtest-dev liblua5.4-dev nlohmann-json3-dev python3-jsonschema parallel
               xvfb xauth openbox libxtst-dev"
CHECK_PACKAGES="clang clang-format clang-tidy libclang-rt-dev git python3 python3-xlib
                weston sway wtype grim qt6-wayland"
# Where the site is tried. npm is asked for only where node comes without it.
BROWSER_PACKAGES="chromium firefox-esr node-typescript"
# What makes and looks at a release, and the systems it is tried on.
PACKAGE_PACKAGES="git dpkg-dev file zip lintian desktop-file-utils appstream man-db debootstrap"
DEBIAN_RELEASES="bookworm trixie"
# A screen where there is none.
SCREEN_PACKAGES="xvfb xauth"
# What Qt needs in a session without X.
WAYLAND_PACKAGES="qt6-wayland"

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
    local as_root="" proxy=()
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || { echo "Please install these packages as root:$missing" >&2; return 1; }
        as_root="sudo"
    fi
    # sudo drops the variables that name a proxy.
    [ -z "${http_proxy:-}" ] || proxy=(-o "Acquire::http::Proxy=$http_proxy")
    [ -z "${https_proxy:-}" ] || proxy+=(-o "Acquire::https::Proxy=$https_proxy")
    # shellcheck disable=SC2086
    $as_root apt-get "${proxy[@]}" update -qq &&
        $as_root env DEBIAN_FRONTEND=noninteractive apt-get "${proxy[@]}" install -y -qq --no-install-recommends $missing >/dev/null ||
        { echo "These packages could not be installed (is there a network?):$missing" >&2; return 1; }
}
