#!/usr/bin/env bash
# check_module.sh [ROOT]: the module includes standard headers and its own, nothing else, and nothing that starts a thread.
set -euo pipefail
tree=${1:-$(dirname "$0")/..}
cd "$tree"

folders=(forms host movement master dispatch quality payment reports tables orders administration)
standard_headers=(
    algorithm any array atomic bit bitset cassert ccomplex cctype cerrno cfenv cfloat charconv chrono cinttypes climits
    clocale cmath compare complex concepts coroutine csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime
    cuchar cwchar cwctype deque exception execution filesystem format forward_list fstream functional initializer_list
    iomanip ios iosfwd iostream istream iterator limits list locale map memory memory_resource new numbers numeric
    optional ostream queue random ranges ratio regex scoped_allocator set source_location span sstream stack stdexcept
    streambuf string string_view syncstream system_error tuple type_traits typeindex typeinfo unordered_map
    unordered_set utility valarray variant vector version
)

paths=()
for folder in "${folders[@]}"; do
    [ ! -d "src/$folder" ] || paths+=("src/$folder")
done

join() {
    local IFS='|'
    echo "$*"
}
allowed="<($(join "${standard_headers[@]}"))>|\"($(join "${folders[@]}"))/[A-Za-z0-9_/]+\.h\""

# Every directive that takes in a file, in the form "file:line:directive", less those that are allowed.
foreign=$(grep -rnE '^[[:space:]]*#[[:space:]]*(include|include_next|import)|^[[:space:]]*(export[[:space:]]+)?import[[:space:]]*[<":A-Za-z]' \
    --include='*.h' --include='*.hpp' --include='*.cpp' --include='*.inc' "${paths[@]}" |
    grep -vE "^[^:]+:[0-9]+:[[:space:]]*#[[:space:]]*include[[:space:]]*($allowed)[[:space:]]*(//.*)?$") || true

if [ -n "$foreign" ]; then
    echo "The module may include only the standard library, without its threads, and headers of the module (\"folder/Name.h\"):"
    echo "$foreign"
    exit 1
fi
