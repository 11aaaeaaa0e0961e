#!/usr/bin/env bash
# build_client.sh: builds the browser client, when one of its files changed since it was built.
set -euo pipefail
# shellcheck source=scripts/common.sh
. "$(dirname "$0")/common.sh"
client=$root/client
stamp=$root/build/client.stamp

"$root/scripts/npm_packages.sh" "$client"

unchanged() {
    [ -d "$client/dist" ] && [ -f "$stamp" ] &&
        [ -z "$(find "$client" \( -name node_modules -o -name dist \) -prune -o -type f -newer "$stamp" -print -quit)" ]
}

! unchanged || exit 0
npm run --prefix "$client" build
touch "$stamp"
