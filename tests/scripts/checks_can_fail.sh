#!/usr/bin/env bash
# Each check of the tree is shown a violation, planted in a small tree of its own, and must go red; and must be green without it.
set -euo pipefail
# shellcheck source=scripts/common.sh
. "$(dirname "$0")/../../scripts/common.sh"
# shellcheck source=scripts/install.sh
. "$root/scripts/install.sh"
# shellcheck source=scripts/stages.sh
. "$root/scripts/stages.sh"
# shellcheck source=scripts/test_programs.sh
. "$root/scripts/test_programs.sh"

scratch=$(mktemp -d "${TMPDIR:-/tmp}/alinhavo-checks-XXXXXX")
trap 'rm -rf "$scratch"' EXIT
good=0
bad=0

says() {
    if [ "$1" = "$2" ]; then
        good=$((good + 1))
    else
        bad=$((bad + 1))
        echo "$3: expected $2, got $1"
    fi
}

# turns COLOUR WHAT COMMAND…: the command must be green or red.
turns() {
    local colour=$1 what=$2 got=green
    shift 2
    "$@" >"$scratch/output" 2>&1 || got=red
    says "$got" "$colour" "$what"
}

# plant FILE LINE…: a small tree with one clean file and this one.
plant() {
    local file=$scratch/tree/$1
    shift
    rm -rf "$scratch/tree"
    mkdir -p "$(dirname "$file")" "$scratch/tree/src/host"
    printf '#pragma once\n#include <string>\n' >"$scratch/tree/src/host/Clean.h"
    cp "$root/.clang-format" "$scratch/tree"
    printf '%s\n' "$@" >"$file"
}

module_check() {
    local colour=$1 directive=$2
    plant src/movement/TfmPlanted.cpp "$directive"
    turns "$colour" "module: $directive" "$root/scripts/check_module.sh" "$scratch/tree"
}

module_check green '#include <vector>'
module_check green '#include "host/Clean.h"'
module_check green '  #  include <vector>   // its rows'
module_check red '#include "platform/database/TOrvDatabase.h"'
module_check red '#include "../platform/database/TOrvDatabase.h"'
module_check red '#include <libpq-fe.h>'
module_check red '#include <nlohmann/json.hpp>'
module_check red '#include <sys/socket.h>'
module_check red '#include <thread>'
module_check red '#include<thread>'
module_check red '# include "ibase.h"'
module_check red '#include HEADER'
module_check red '#import <vector>'
module_check red 'import std;'

words_check() {
    local colour=$1 text=$2
    plant docs/page.md "$text"
    turns "$colour" "words: $text" "$root/scripts/check_words.sh" "$scratch/tree"
}

# The words are put together here, so that this file does not hold them.
words_check green 'Todos os setores; METODO; homework/; the parts 2 and 3; /var/work'
words_check red "see /wor""k/main/README.md"
words_check red "/hom""e/ana/alinhavo"
words_check red "as the spe""c.md says"
words_check red "the specificatio""n says"
words_check red "as in Par""t 2.1"
words_check red "// TOD""O later"

plant src/host/Format.cpp 'int Twice(int n) { return 2 * n; }'
turns green 'format: as clang-format leaves it' "$root/scripts/check_format.sh" "$scratch/tree"
plant src/host/Format.cpp 'int Twice( int n ) { return 2*n; }'
turns red 'format: blanks elsewhere' "$root/scripts/check_format.sh" "$scratch/tree"

plant planted.sh '#!/bin/sh' 'rm ~/a'
turns green 'shell: a plain command' "$root/scripts/check_shell.sh" "$scratch/tree"
plant planted.sh '#!/bin/sh' "rm \$1"
turns red 'shell: an unquoted word' "$root/scripts/check_shell.sh" "$scratch/tree"

# A project of one library, the calls of which are given, and the check that it links alone.
link_project() {
    local calls=$1 libraries=$2
    plant library.cpp "extern \"C\" int $calls(const char*);" "int Length() { return static_cast<int>($calls(\"\")); }"
    cat >"$scratch/tree/CMakeLists.txt" <<CMAKE
cmake_minimum_required(VERSION 3.25)
project(planted LANGUAGES CXX)
include($root/cmake/ModuleLinksAlone.cmake)
add_library(planted STATIC library.cpp)
target_link_libraries(planted PUBLIC $libraries)
alinhavo_module_dependencies(planted)
alinhavo_links_alone(links_alone planted)
CMAKE
    cmake -G Ninja -S "$scratch/tree" -B "$scratch/tree/build"
}
link_built() { cmake --build "$scratch/tree/build" --target links_alone; }

turns green 'link: the standard library' link_project puts ''
turns green 'link: the standard library, built' link_built
turns green 'link: a name of nobody, configured' link_project isc_name_of_nobody ''
turns red 'link: a name of nobody, built' link_built
turns red 'link: a library outside the module' link_project puts pq

# The counts that the test command adds up.
counts_of() {
    (
        logs=$scratch passed=0 failed=0
        "$@" >/dev/null || true
        echo "$passed $failed"
    )
}
says "$(counts_of suite log echo '3 passed, 2 failed')" '3 2' 'a closing line is counted'
says "$(counts_of suite log printf '  1 failed\n  12 passed (3s)\n')" '12 1' 'a closing line in two rows is counted'
says "$(counts_of suite log echo nothing)" '0 1' 'a suite that names no test has failed'
says "$(counts_of suite log bash -c 'echo 3 passed, 0 failed; exit 1')" '3 1' 'a suite that ends badly has failed'
says "$(counts_of check log true)" '1 0' 'a check that ends well has passed'
says "$(counts_of check log false)" '0 1' 'a check that ends badly has failed'
says "$(counts_of step log true)" '0 0' 'a step that ends well is no test'
says "$(counts_of step log false)" '0 1' 'a step that ends badly has failed'

mkdir -p "$scratch/results"
cat >"$scratch/results/ctest.junit" <<'XML'
	<testcase name="forms_tests" classname="forms_tests" time="0.1" status="fail">
	<testcase name="host_tests" classname="host_tests" time="0.1" status="run">
	<testcase name="crashed_tests" classname="crashed_tests" time="0.1" status="fail">
XML
cat >"$scratch/results/forms_tests.xml" <<'XML'
    <testcase name="A" file="" line="1" status="run" result="completed" time="0." />
    <testcase name="B" file="" line="2" status="run" result="completed" time="0.">
      <failure message="x" type=""></failure>
      <failure message="y" type=""></failure>
    </testcase>
XML
cat >"$scratch/results/host_tests.xml" <<'XML'
    <testcase name="A" status="run" result="completed" time="0." />
    <testcase name="B" status="run" result="skipped" time="0." />
    <testcase name="C" status="notrun" result="suppressed" time="0." />
XML
says "$(count_tests "$scratch/results")" '2 passed, 2 failed, 1 skipped' 'the tests in the programs are counted'

# What is installed is not asked for again.
says "$(missing_packages bash coreutils)" '' 'packages that are installed are not missing'
says "$(missing_packages bash no-such-package)" 'no-such-package' 'a package that is not installed is missing'

echo "$good passed, $bad failed"
[ $bad = 0 ]
