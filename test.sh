#!/usr/bin/env bash
# test.sh [--rapido|--completo] [NAME…]: builds Alinhavo and tests it.
#
#   (nothing)    one build, every test on Firebird and PostgreSQL, the checks, the browser client
#   --rapido     what answers in two minutes: the test programs and roteiros on Firebird, the checks
#   --completo   all of it, then clang-tidy over everything, a fault at every statement, thousands of random histories, ten
#                minutes of each fuzzer and the sanitizers' builds with their runs
#   NAME…        only these: a roteiro or folder of roteiros, a check (module, link, words, format, shell, scripts, tidy),
#                or a test program (forms_tests; a regular expression)
set -euo pipefail
cd "$(dirname "$0")"
. scripts/common.sh
. scripts/install.sh
. scripts/postgresql.sh
. scripts/stages.sh

# Firebird's own lock folder is shared by all of a machine and belongs to whoever came first.
export FIREBIRD_LOCK=$root/build/firebird

# Read by the sanitizers' builds alone.
export ASAN_OPTIONS=detect_stack_use_after_return=1
export UBSAN_OPTIONS=print_stacktrace=1
export LSAN_OPTIONS=suppressions=$root/tests/sanitizers/lsan.supp:print_suppressions=0
export TSAN_OPTIONS=suppressions=$root/tests/sanitizers/tsan.supp

main() {
    local mode=default
    case ${1:-} in
    --rapido | --completo)
        mode=${1#--}
        shift
        ;;
    -*)
        sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
        exit 2
        ;;
    esac

    install_packages build run test
    mkdir -p "$logs" "$FIREBIRD_LOCK"
    trap clean_up EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM

    if [ $# -gt 0 ]; then
        run_named "$@"
    else
        "run_$mode"
    fi
    echo "$passed passed, $failed failed"
    [ $failed = 0 ]
}

clean_up() {
    end_child
    stop_postgresql
}

# Stages do not stop those that follow, save where a later one could not run.

run_rapido() {
    run_checks || true
    step build scripts/build.sh release || return 0
    check link scripts/build.sh release module_links_alone || true
    unset ALINHAVO_TEST_POSTGRESQL
    suite tests-firebird scripts/test_programs.sh release . || true
    roteiros_firebird release
}

run_default() {
    run_checks || true
    step build scripts/build.sh release || return 0
    check link scripts/build.sh release module_links_alone || true
    postgresql || return 0
    suite tests scripts/test_programs.sh release . || true
    roteiros_firebird release
    roteiros_postgresql release
    browser
}

run_completo() {
    run_default
    check tidy scripts/build.sh tidy -k 0 || true
    suite faults env ALINHAVO_FAULTS=all scripts/test_programs.sh release faults_tests || true
    suite histories env ALINHAVO_REVERSAL_HISTORIES=2000 scripts/test_programs.sh release facmov_tests || true
    install_packages fuzz
    suite fuzz scripts/fuzz.sh 600 || true
    [ -n "${ALINHAVO_TEST_POSTGRESQL:-}" ] || return 0
    local sanitizer
    for sanitizer in asan tsan; do
        step "build-$sanitizer" scripts/build.sh $sanitizer || continue
        suite "tests-$sanitizer" scripts/test_programs.sh $sanitizer . || true
        roteiros_firebird $sanitizer
        roteiros_postgresql $sanitizer
    done
}

run_named() {
    local name
    step build scripts/build.sh release || return 0
    for name in "$@"; do
        case $name in
        module | words | format | shell) check "$name" "scripts/check_$name.sh" || true ;;
        link) check link scripts/build.sh release module_links_alone || true ;;
        scripts) suite scripts tests/scripts/checks_can_fail.sh || true ;;
        tidy) check tidy scripts/build.sh tidy -k 0 || true ;;
        *)
            postgresql || return 0
            if [ -e "$name" ]; then
                roteiros_firebird release "$name"
                roteiros_postgresql release "$name"
            else
                suite "tests-$name" scripts/test_programs.sh release "$name" || true
            fi
            ;;
        esac
    done
}

# Starts the tests' own server unless it runs already, or the caller named one.
postgresql() {
    [ -z "${ALINHAVO_TEST_POSTGRESQL:-}" ] || return 0
    start_postgresql >"$logs/postgresql.log" 2>&1 && return
    add_counts 0 1
    echo "The tests' PostgreSQL server did not start:"
    show_failure "$logs/postgresql.log"
    return 1
}

run_checks() {
    check module scripts/check_module.sh || true
    check words scripts/check_words.sh || true
    check format scripts/check_format.sh || true
    check shell scripts/check_shell.sh || true
    suite scripts tests/scripts/checks_can_fail.sh || true
}

roteiros_firebird() {
    [ -d tests/roteiros ] || return 0
    suite "roteiros-firebird$(suffix "$1")" "build/$1/bin/alinhavo" roteiro "${2:-tests/roteiros}" || true
}

roteiros_postgresql() {
    [ -d tests/roteiros ] || return 0
    suite "roteiros-postgresql$(suffix "$1")" \
        "build/$1/bin/alinhavo" roteiro "${2:-tests/roteiros}" --banco "$ALINHAVO_TEST_POSTGRESQL" || true
}

suffix() {
    [ "$1" = release ] || echo "-$1"
}

browser() {
    [ -f client/package.json ] || return 0
    step client scripts/build_client.sh || return 0
    [ -f tests/client/package.json ] || return 0
    step client-test-packages scripts/npm_packages.sh tests/client || return 0
    suite browser npm test --prefix tests/client || true
}

main "$@"
