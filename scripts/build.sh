# Configuring and building; sourced by run, test and .ci/run.

# configure FOLDER ARGUMENTS...: those of cmake. A folder whose checkout was renamed or copied starts afresh.
configure() {
    local folder=$1 fresh="" home
    shift
    mkdir -p "$folder" 2>/dev/null && [ -w "$folder" ] || { echo "$PWD/$folder cannot be written" >&2; return 1; }
    home=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$folder/CMakeCache.txt" 2>/dev/null || true)
    [ -z "$home" ] || [ "$home" -ef . ] || fresh=--fresh
    cmake $fresh "$@" >/dev/null
}

# build FOLDER [TARGETS...]: on a terminal one line shows how far it is; elsewhere only what goes wrong is shown.
build() {
    local folder=$1 quiet=""
    shift
    [ $# -gt 0 ] || set -- all
    [ -t 1 ] || quiet="-- --quiet"
    cmake --build "$folder" --target "$@" --parallel "$(nproc)" $quiet
}
