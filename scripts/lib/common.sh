# shellcheck shell=bash
# Functions that all scripts share. A script in scripts/ starts with:
#   set -euo pipefail
#   source "$(dirname "${BASH_SOURCE[0]}")/lib/common.sh"
# This makes the project's root the current folder, wherever the script was called.

cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit

# headline TEXT: prints the heading of a step.
headline() {
    printf '\n== %s\n' "$*"
}

# die TEXT: ends the script with a message.
die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# repeat_until SECONDS COMMAND...: repeats the command until it succeeds; fails after SECONDS.
repeat_until() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS < deadline)) || return 1
        sleep 0.1
    done
}

# sources: prints the names of the project's C++ files, each followed by a zero byte.
sources() {
    local folders=(src tests)
    [[ ! -d benchmarks ]] || folders+=(benchmarks)
    find "${folders[@]}" \( -name '*.cpp' -o -name '*.h' \) -print0 | sort -z
}

# build_preset PRESET [TARGET]: configures a preset and builds all of it or one target.
build_preset() {
    cmake --preset "$1"
    cmake --build --preset "$1" ${2:+--target "$2"}
}
