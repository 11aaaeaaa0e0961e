#!/usr/bin/env bash
# npm_packages.sh FOLDER: fetches the packages of the npm project in the folder, when its lock file changed since they were fetched.
set -euo pipefail
folder=$1
fetched=$folder/node_modules/.package-lock.json

[ ! "$fetched" -nt "$folder/package-lock.json" ] || exit 0
npm ci --prefix "$folder" --no-audit --no-fund
mkdir -p "$folder/node_modules"
touch "$fetched"
