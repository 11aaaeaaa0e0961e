#!/usr/bin/env bash
# check_format.sh [ROOT]: every C++ file is as clang-format leaves it.
set -euo pipefail
# shellcheck source=scripts/common.sh
. "$(dirname "$0")/common.sh"

cd "${1:-$root}"
project_files . | grep -E '\.(h|cpp)$' | tr '\n' '\0' |
    xargs -0 --no-run-if-empty -n 20 -P "$(nproc)" clang-format --dry-run -Werror
