#!/usr/bin/env bash
# build.sh PRESET [ARGUMENT…]: configures the preset when it never was, and has ninja build the targets (all by default).
set -euo pipefail
# shellcheck source=scripts/common.sh
. "$(dirname "$0")/common.sh"
preset=$1
shift

# Objects found in the compiler's cache are good for every copy of the tree.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1

cd "$root"
[ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"
ninja -C "build/$preset" "$@"
