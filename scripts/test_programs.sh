# Runs the test programs of a build and counts the tests in them. Sourced after common.sh.
# shellcheck shell=bash disable=SC2154  # root is set in common.sh

# test_programs PRESET REGEX: ctest over the programs whose name matches; closes with "N passed, N failed".
test_programs() {
    local build=$root/build/$1 results=$root/build/$1/results status=0
    rm -rf "$results"
    mkdir -p "$results"
    # An own folder of ctest's for its record, and one of the programs' for theirs.
    GTEST_BRIEF=1 GTEST_OUTPUT=xml:$results/ \
        ASAN_OPTIONS=detect_stack_use_after_return=1 \
        LSAN_OPTIONS=suppressions=$root/tests/sanitizers/lsan.supp:print_suppressions=0 \
        TSAN_OPTIONS=suppressions=$root/tests/sanitizers/tsan.supp:halt_on_error=0 \
        UBSAN_OPTIONS=print_stacktrace=1 \
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
