#!/usr/bin/env bash
# Configures and builds one flavour of the project into build/<flavour>.
#   scripts/compilar.sh [normal|sanitizadores|fuzz] [ninja targets...]
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
sabor="${1:-normal}"
shift || true

case "$sabor" in
    normal) opciones=(-DCMAKE_BUILD_TYPE=Release) ;;
    sanitizadores) opciones=(-DCMAKE_BUILD_TYPE=Debug -DTARVIMENTA_SANITIZERS=ON -DTARVIMENTA_BENCH=OFF) ;;
    fuzz) opciones=(-DCMAKE_BUILD_TYPE=RelWithDebInfo -DTARVIMENTA_FUZZ=ON
                    -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_C_COMPILER=clang) ;;
    *) echo "sabor desconocido: $sabor" >&2; exit 2 ;;
esac

dir="$raiz/build/$sabor"
cmake -S "$raiz" -B "$dir" -G Ninja "${opciones[@]}" >/dev/null
ninja -C "$dir" "$@"
