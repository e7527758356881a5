#!/usr/bin/env bash
# The long soaks of the real desk, by hand; the suite runs short forms of both.
#   scripts/aguante.sh fallos [polls=1000]     30% of the requests fail, of every kind
#   scripts/aguante.sh memoria [polls=10000]   polls every 10 ms; resident memory and open
#                                              descriptors after warm-up against the end
# Orders are accepted by themselves onto three raw printers on TCP; the run fails unless each
# order is answered (the same answer each time, if more than once) and each copy printed
# once. The figures go to standard output.
# TARVIMENTA_AGUANTE_FALLOS (share failing), _INTERVALO (ms) and _SEMILLA pass through.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
cd "$raiz"

case "${1:-fallos}" in
    fallos) prueba=Aguante.PedidosAutomaticosEntreFallosDeTodaClase; sondeos="${2:-1000}" ;;
    memoria) prueba=Aguante.MemoriaYDescriptoresEstables; sondeos="${2:-10000}" ;;
    *) echo "uso: $0 fallos|memoria [sondeos]" >&2; exit 2 ;;
esac

bash scripts/compilar.sh normal pruebas_soak TarvimentaPedidos simulador
export QT_QPA_PLATFORM=offscreen TZ=Europe/Madrid LC_ALL=C.UTF-8
export TARVIMENTA_AGUANTE_SONDEOS="$sondeos"
exec build/normal/bin/pruebas_soak --gtest_filter="$prueba"
