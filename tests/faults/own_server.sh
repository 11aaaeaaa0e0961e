#!/usr/bin/env bash
# own_server.sh start | restart FOLDER | stop FOLDER: a PostgreSQL server that a test has for itself. `start` prints its folder and the
# address of its superuser, a line each.
set -euo pipefail
# shellcheck source=scripts/common.sh
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
# shellcheck source=scripts/postgresql.sh
. "$root/scripts/postgresql.sh"

postgresql_folder=${2:-}
case $1 in
start)
    trap stop_postgresql ERR
    start_postgresql >&2
    printf '%s\n%s\n' "$postgresql_folder" "$ALINHAVO_TEST_POSTGRESQL"
    ;;
restart) restart_postgresql >&2 ;;
stop) stop_postgresql ;;
esac
