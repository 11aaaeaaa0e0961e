#!/usr/bin/env bash
# run.sh: instala o que falta, compila o Alinhavo, cria a fábrica de demonstração e a põe em funcionamento.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=scripts/common.sh
. scripts/common.sh
# shellcheck source=scripts/install.sh
. scripts/install.sh

readonly alinhavo=build/release/bin/alinhavo
readonly banco=dados/demo.fdb

install_packages build run
echo "Compilando (na primeira vez leva alguns minutos)…"
mkdir -p build
if ! scripts/build.sh release alinhavo >build/run.log 2>&1; then
    tail -n 30 build/run.log >&2
    echo "A compilação falhou; o registro completo está em build/run.log." >&2
    exit 1
fi

if [ ! -e $banco ]; then
    echo "Criando a fábrica de demonstração em $banco…"
    mkdir -p dados
    # Only a database that is whole gets its name.
    rm -f $banco.parcial
    $alinhavo demo --banco $banco.parcial
    mv $banco.parcial $banco
fi

echo "A fábrica de demonstração está em $banco. As telas ainda não abrem no navegador: executando os roteiros."
exec $alinhavo roteiro tests/roteiros
