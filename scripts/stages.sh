# The stages of the test command: each prints one line, keeps its output in a log, and adds to the count. Sourced after common.sh.
# shellcheck shell=bash disable=SC2154  # root is set in common.sh

logs=$root/build/test
passed=0
failed=0
child=

# check NAME COMMAND…: one test, passed when the command ends well.
check() {
    local name=$1 status=0 begin=$EPOCHREALTIME
    shift
    interruptible "$logs/$name.log" "$@" || status=$?
    if [ $status = 0 ]; then
        add_counts 1 0
        report "$name" ok "$begin"
    else
        add_counts 0 1
        report "$name" FAILED "$begin"
        show_failure "$logs/$name.log"
    fi
    return $status
}

# suite NAME COMMAND…: as many tests as the closing line of the command says ("N passed, N failed").
suite() {
    local name=$1 status=0 begin=$EPOCHREALTIME good bad
    shift
    interruptible "$logs/$name.log" "$@" || status=$?
    good=$(last_count passed "$logs/$name.log")
    bad=$(last_count failed "$logs/$name.log")
    # A command that fails without naming a failed test, or that names no test at all, is itself a failed test.
    if [ "$bad" = 0 ] && { [ $status != 0 ] || [ "$good" = 0 ]; }; then
        bad=1
    fi
    add_counts "$good" "$bad"
    if [ "$bad" = 0 ]; then
        report "$name" "$good passed" "$begin"
    else
        report "$name" "$good passed, $bad FAILED" "$begin"
        show_failure "$logs/$name.log"
    fi
    [ "$bad" = 0 ]
}

# step NAME COMMAND…: what others need; it counts only when it fails.
step() {
    local name=$1 status=0 begin=$EPOCHREALTIME
    shift
    interruptible "$logs/$name.log" "$@" || status=$?
    if [ $status != 0 ]; then
        add_counts 0 1
        report "$name" FAILED "$begin"
        show_failure "$logs/$name.log"
        return $status
    fi
    report "$name" ok "$begin"
}

# Runs a program in a process group of its own, so that an interrupt of this one can end all of it. A function will not do: the
# shell would not stop it at an error.
interruptible() {
    local log=$1 status=0
    shift
    set -m
    "$@" >"$log" 2>&1 </dev/null &
    child=$!
    set +m
    wait "$child" || status=$?
    child=
    return $status
}

end_child() {
    [ -z "$child" ] || kill -TERM -- "-$child" 2>/dev/null || true
}

add_counts() {
    passed=$((passed + $1))
    failed=$((failed + $2))
}

# The number before the word $1 where it stands last in the file $2; 0 when it does not.
last_count() {
    local number
    number=$(grep -oE "[0-9]+ $1" "$2" | tail -n 1 | cut -d ' ' -f 1) || true
    echo "${number:-0}"
}

report() {
    printf '%-28s %-24s %8s s\n' "$1" "$2" "$(seconds_since "$3")"
}

# The end of a log, without the lines that tell of success and the compiler's command lines.
show_failure() {
    grep -vE '^ *(Start +[0-9]+:|[0-9]+/[0-9]+ Test .* Passed )|^\[[0-9]+/[0-9]+\] |^(: && )?/[^ ]*/(c\+\+|cmake|ccache) |^[0-9]+ warnings? ' "$1" | tail -n 60 | sed 's/^/    /'
    echo "    (all of it: ${1#"$root"/})"
}
