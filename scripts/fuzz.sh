#!/usr/bin/env bash
# fuzz.sh SECONDS [NAME…]: builds the fuzzers (all by default) with clang's engine and the sanitizers, and runs each of them that
# long. They begin with the corpus of the tests and with what earlier runs found, which is kept in build/fuzz/corpus; an
# input that a fuzzer ends in stands in build/fuzz/findings. Closes with how many found nothing.
set -euo pipefail
# shellcheck source=scripts/common.sh
. "$(dirname "$0")/common.sh"

readonly seconds=$1
shift
readonly findings=$root/build/fuzz/findings

export FIREBIRD_LOCK=${FIREBIRD_LOCK:-$root/build/firebird}
export LSAN_OPTIONS=suppressions=$root/tests/sanitizers/lsan.supp:print_suppressions=0

main() {
    local names=("$@") name passed=0 failed=0
    [ $# -gt 0 ] || mapfile -t names < <(all_names)
    "$root/scripts/build.sh" fuzz "${names[@]/#/fuzz_}"
    mkdir -p "$findings" "$FIREBIRD_LOCK"
    for name in "${names[@]}"; do
        if run "$name"; then
            passed=$((passed + 1))
        else
            failed=$((failed + 1))
        fi
    done
    echo "$passed passed, $failed failed"
    [ $failed = 0 ]
}

all_names() {
    find "$root/tests/fuzz" -name 'fuzz_*.cpp' -printf '%f\n' | sed 's/^fuzz_\(.*\)\.cpp$/\1/' | sort
}

run() {
    local found=$root/build/fuzz/corpus/$1
    mkdir -p "$found"
    echo "fuzz_$1"
    "$root/build/fuzz/tests/fuzz/fuzz_$1" -max_total_time="$seconds" -max_len=4096 -timeout=30 -print_final_stats=1 \
        -verbosity=0 -artifact_prefix="$findings/$1-" "$found" "$root/tests/fuzz/corpus/$1"
}

main "$@"
