# Installs what is missing of the distribution's packages (Debian 12). Sourced.
# shellcheck shell=bash disable=SC2154,SC2034  # root is set in common.sh; the lists are used by name

build_packages=(
    g++ cmake ninja-build ccache pkg-config ca-certificates
    firebird-dev libpq-dev libboost-dev nlohmann-json3-dev libsodium-dev libcurl4-openssl-dev libssl-dev
    liblua5.4-dev libxlsxwriter-dev libzint-dev libzip-dev libexpat1-dev libspdlog-dev libfmt-dev libcli11-dev
    libgtest-dev libgmock-dev libbenchmark-dev
)
run_packages=(firebird3.0-server-core firebird3.0-utils chromium fonts-dejavu-core fonts-liberation2)
test_packages=(postgresql clang-format clang-tidy-16 shellcheck)
fuzz_packages=(clang-16 libclang-rt-16-dev)

# Any node from 18 on will do, wherever it comes from.
has_node() {
    command -v npm >/dev/null && [ "$(node --version 2>/dev/null | sed 's/^v\([0-9]*\).*/\1/')" -ge 18 ] 2>/dev/null
}

# Prints those of the given packages that are not installed.
missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${db:Status-Abbrev}|${Package}\n' "$@" 2>/dev/null | sed -n 's/^ii *|//p') || true
    comm -23 <(printf '%s\n' "$@" | sort -u) <(printf '%s\n' "$installed" | sort -u)
}

# install_packages build run test: installs what is missing of the named lists, or ends the command with a message.
install_packages() {
    local list wanted=() missing
    for list in "$@"; do
        local -n packages=${list}_packages
        wanted+=("${packages[@]}")
    done
    has_node || wanted+=(nodejs npm)

    if ! command -v dpkg-query >/dev/null; then
        echo "A instalação automática supõe o Debian 12. Instale à mão: ${wanted[*]}" >&2
        exit 1
    fi
    mapfile -t missing < <(missing_packages "${wanted[@]}")
    [ ${#missing[@]} -gt 0 ] || return 0
    if ! can_be_root; then
        echo "Faltam pacotes, e para instalá-los é preciso ser root ou ter o sudo: ${missing[*]}" >&2
        exit 1
    fi

    echo "Instalando pacotes da distribuição: ${missing[*]}"
    mkdir -p "$root/build"
    local log=$root/build/install.log
    if ! { apt_get update && apt_get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        echo "A instalação falhou; o registro completo está em build/install.log." >&2
        exit 1
    fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 \
        apt-get -q -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 "$@" </dev/null
}
