# Configuring and building; sourced by run, test and .ci/run.

# configure FOLDER ARGUMENTS...: those of cmake. A folder whose checkout was renamed or copied starts afresh.
configure() {
    local folder=$1 fresh="" home
    shift
    home=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$folder/CMakeCache.txt" 2>/dev/null || true)
    [ -z "$home" ] || [ "$home" -ef . ] || fresh=--fresh
    cmake $fresh "$@" >/dev/null
}

# build FOLDER [TARGET]: on a terminal one line shows how far it is; elsewhere only what goes wrong is shown.
build() {
    local quiet=""
    [ -t 1 ] || quiet="-- --quiet"
    cmake --build "$1" --target "${2:-all}" --parallel "$(nproc)" $quiet
}
