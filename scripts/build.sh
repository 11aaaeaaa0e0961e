# Building, without doing anything twice. Sourced after common.sh.
# shellcheck shell=bash disable=SC2154  # root is set in common.sh

# Objects found in the compiler's cache are good for every copy of the tree.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1

# build PRESET [TARGET…]: configures the preset when it never was, and builds the targets (all by default).
build() {
    local preset=$1
    shift
    if [ ! -f "$root/build/$preset/build.ninja" ]; then
        (cd "$root" && cmake --preset "$preset")
    fi
    ninja -C "$root/build/$preset" "$@"
}

# Fetches the packages of the npm project in folder $1 when its lock file changed since they were fetched.
npm_packages() {
    local folder=$1
    [ "$folder/node_modules/.package-lock.json" -nt "$folder/package-lock.json" ] && return
    npm ci --prefix "$folder" --no-audit --no-fund
    touch "$folder/node_modules/.package-lock.json"
}

# Builds the browser client when one of its files changed since it was built.
build_client() {
    local stamp=$root/build/client.stamp
    npm_packages "$root/client"
    if [ -f "$stamp" ] && [ -d "$root/client/dist" ] &&
        [ -z "$(find "$root/client" \( -name node_modules -o -name dist \) -prune -o -type f -newer "$stamp" -print -quit)" ]; then
        return
    fi
    npm run --prefix "$root/client" build
    touch "$stamp"
}
