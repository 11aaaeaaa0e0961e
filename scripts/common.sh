# Shell code shared by the commands and checks. Sourced; the caller has set -euo pipefail.
# shellcheck shell=bash

# shellcheck disable=SC2034  # used by whoever sources this file
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Runs a command with the rights of root, directly or through sudo.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

can_be_root() {
    [ "$(id -u)" = 0 ] || command -v sudo >/dev/null
}

# The files of the tree at $1 that people write, one a line, relative to it; what is built, fetched or made by running is left out.
project_files() {
    (cd "$1" && find . \( -name .git -o -name node_modules -o -path ./build -o -path ./dados -o -path ./client/dist \) -prune \
        -o -type f -print | sed 's|^\./||' | sort)
}

# Seconds since $1 (a value of EPOCHREALTIME), with one decimal.
seconds_since() {
    local tenths=$(((${EPOCHREALTIME/[.,]/} - ${1/[.,]/}) / 100000))
    printf '%d.%d' $((tenths / 10)) $((tenths % 10))
}
