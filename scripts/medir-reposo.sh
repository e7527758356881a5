#!/usr/bin/env bash
# Idle cost of the desk: it polls the stand-in service every second for a while, and the
# desk's CPU time and resident memory are read from /proc at regular moments.
#   scripts/medir-reposo.sh [seconds=600] [sample every=30]
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
bin="${TARVIMENTA_BIN:-$raiz/build/normal/bin}"
duracion="${1:-600}"
paso="${2:-30}"
trabajo="$(mktemp -d)"
trap 'kill $desk $sim 2>/dev/null || true; rm -rf "$trabajo"' EXIT

"$bin/simulador" --puerto=0 --parar-con-stdin < <(sleep $((duracion + 120))) > "$trabajo/sim.out" &
sim=$!
for _ in $(seq 100); do grep -q PUERTO "$trabajo/sim.out" 2>/dev/null && break; sleep 0.1; done
puerto=$(awk '/PUERTO/{print $2}' "$trabajo/sim.out")
"$bin/preparar_config" --carpeta="$trabajo/datos" --id=7 --password=clave --numconfig=1 >/dev/null
QT_QPA_PLATFORM=offscreen "$bin/TarvimentaPedidos" --servidor="127.0.0.1:$puerto/api/" \
    --carpeta="$trabajo/datos" --cajas="$trabajo/cajas.txt" 2>/dev/null &
desk=$!
hz=$(getconf CLK_TCK)
sleep 5
leer() { # prints: ticks rss_kb
    awk '{print $14+$15}' "/proc/$desk/stat" | tr -d '\n'
    printf ' '
    awk '/VmRSS/{print $2}' "/proc/$desk/status"
}
read -r t0 r0 < <(leer)
inicio=$(date +%s.%N)
printf 'segundo  cpu%%_tramo  rss_MB\n'
anterior=$t0
antes=$inicio
for ((s = paso; s <= duracion; s += paso)); do
    sleep "$paso"
    read -r t r < <(leer)
    ahora=$(date +%s.%N)
    awk -v s="$s" -v dt="$((t - anterior))" -v hz="$hz" -v w="$(echo "$ahora - $antes" | bc)" -v r="$r" \
        'BEGIN{printf "%7d  %9.3f  %6.1f\n", s, 100*dt/hz/w, r/1024}'
    anterior=$t
    antes=$ahora
done
fin=$(date +%s.%N)
polls=$(curl -s "http://127.0.0.1:$puerto/__control/registro" | grep -o '"pedidosgprs/pedidosnuevos"' | wc -l)
awk -v dt="$((anterior - t0))" -v hz="$hz" -v w="$(echo "$fin - $inicio" | bc)" -v r0="$r0" -v r="$r" -v p="$polls" \
    'BEGIN{printf "media: %.3f%% de un núcleo en %.0f s; RSS %.1f MB -> %.1f MB; %d sondeos\n", 100*dt/hz/w, w, r0/1024, r/1024, p}'
