#!/usr/bin/env bash
# test_programs.sh PRESET REGEX: runs the test programs whose name matches, and closes with the count of the tests in them.
set -euo pipefail
# shellcheck source=scripts/common.sh
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

main() {
    local build=$root/build/$1 results=$root/build/$1/results status=0
    rm -rf "$results"
    mkdir -p "$results"
    GTEST_BRIEF=1 GTEST_OUTPUT=xml:$results/ \
        ctest --test-dir "$build" --tests-regex "$2" --output-on-failure --parallel "$(nproc)" \
        --output-junit "$results/ctest.junit" --timeout 600 || status=$?
    count_tests "$results"
    return $status
}

# Counts tests, not programs: what a program says in its own record, or the program itself where it left none (it crashed, or
# it is no GoogleTest program). A program that failed without a failed test in its record counts as one that failed.
count_tests() {
    local results=$1 name status good bad skipped passed=0 failed=0 all_skipped=0
    while read -r name status; do
        good=0 bad=0 skipped=0
        if [ -f "$results/$name.xml" ]; then
            read -r good bad skipped < <(gtest_counts "$results/$name.xml")
        elif [ "$status" = run ]; then
            good=1
        fi
        if [ "$status" != run ] && [ "$bad" = 0 ]; then
            bad=1
        fi
        passed=$((passed + good)) failed=$((failed + bad)) all_skipped=$((all_skipped + skipped))
    done < <(sed -n 's/^.*<testcase name="\([^"]*\)".* status="\([^"]*\)".*$/\1 \2/p' "$results/ctest.junit")
    echo "$passed passed, $failed failed, $all_skipped skipped"
}

# "PASSED FAILED SKIPPED" of a GoogleTest record.
gtest_counts() {
    awk '
        /<testcase / { tests++; if (/result="skipped"/) skipped++; else if (/status="notrun"/) disabled++ }
        /<testcase / { counted = 0 }
        /<failure / && !counted { failed++; counted = 1 }
        END { print tests - failed - skipped - disabled, failed + 0, skipped + 0 }' "$1"
}

[ "${BASH_SOURCE[0]}" != "$0" ] || main "$@"
