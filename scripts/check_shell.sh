#!/usr/bin/env bash
# check_shell.sh [ROOT]: shellcheck has nothing to say about the shell files.
set -euo pipefail
# shellcheck source=scripts/common.sh
. "$(dirname "$0")/common.sh"

cd "${1:-$root}"
project_files . | grep -E '\.sh$|^\.ci/run$' | tr '\n' '\0' | xargs -0 --no-run-if-empty shellcheck -x
