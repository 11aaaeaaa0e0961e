#!/usr/bin/env bash
# check_words.sh [ROOT]: no file of the tree holds what belongs to one machine or to nobody but its author.
set -euo pipefail
# shellcheck source=scripts/common.sh
. "$(dirname "$0")/common.sh"
tree=${1:-$root}

# Each is written with a class of one letter, so that this file does not hold the word.
words=(
    '(^|[^A-Za-z0-9_.])/([w]ork|[h]ome|[f]arm)/'   # folders of a development machine
    '\b[s]pec\.md\b'
    '\b[Ss]pecifications?\b'
    '\b[P]arts? [0-9]+\.[0-9]+'
    '\b[T]ODO\b'
    '\b[F]IXME\b'
)

cd "$tree"
status=0
for word in "${words[@]}"; do
    if project_files . | grep -v 'package-lock\.json$' | tr '\n' '\0' | xargs -0 grep -HnIE -e "$word"; then
        status=1
    fi
done
[ $status = 0 ] || echo "These words do not belong in the tree."
exit $status
