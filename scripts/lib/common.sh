# shellcheck shell=bash
# What every script shares. A script in scripts/ opens with:
#   set -euo pipefail
#   source "$(dirname "${BASH_SOURCE[0]}")/lib/common.sh"
# From there on it stands in the project's root folder, whatever folder it was called from.

cd "$(dirname "${BASH_SOURCE[0]}")/../.." || exit

# headline TEXT: opens a step in the output.
headline() {
    printf '\n== %s\n' "$*"
}

# die TEXT: ends the script with a message.
die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# repeat_until SECONDS COMMAND...: runs the command until it succeeds; fails when the time is up.
repeat_until() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS < deadline)) || return 1
        sleep 0.1
    done
}

# sources: the project's own C++ files, each ended by a zero byte.
sources() {
    local folders=(src tests)
    [[ ! -d benchmarks ]] || folders+=(benchmarks)
    find "${folders[@]}" \( -name '*.cpp' -o -name '*.h' \) -print0 | sort -z
}

# build_preset PRESET [TARGET]: configures a preset and builds it, or one target of it.
build_preset() {
    cmake --preset "$1"
    cmake --build --preset "$1" ${2:+--target "$2"}
}
