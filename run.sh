#!/usr/bin/env bash
# run.sh [OPÇÃO…]: instala o que falta, compila o Alinhavo, cria a fábrica de demonstração e a serve aos navegadores. As opções são
# as do comando servir (--porta 8081, por exemplo).
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

if ! scripts/build_client.sh >build/client.log 2>&1; then
    tail -n 30 build/client.log >&2
    echo "A compilação do cliente falhou; o registro completo está em build/client.log." >&2
    exit 1
fi

echo "A fábrica de demonstração está em $banco. Entre com o usuário ANA e a senha demo."
exec $alinhavo servir --banco $banco --cliente client/dist "$@"
