#!/usr/bin/env bash
# Screenshots of the new-order window with a long order, as the staff would see it: the desk
# against the stand-in service under the display given (DISPLAY, with a window manager),
# once per font size of the order windows.
#   DISPLAY=:63 scripts/capturas-pedido.sh [productos] [tamaños...]
# Pictures go to docs/pedido-nuevo-<productos>p-fuente<tamaño>-<ancho>x<alto>.png.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
bin="$raiz/build/normal/bin"
productos="${1:-40}"
shift || true
tamannos=("${@:-8 16}")
read -r -a tamannos <<<"${tamannos[*]}"
: "${DISPLAY:?hace falta una pantalla (Xvfb y un gestor de ventanas)}"

trabajo="$(mktemp -d)"
pids=()
source "$raiz/scripts/procesos.sh"
trap 'parar_procesos; rm -rf "$trabajo"' EXIT

geometria="$(xdpyinfo | sed -n 's/.*dimensions: *\([0-9]*x[0-9]*\) .*/\1/p')"
for tamanno in "${tamannos[@]}"; do
    mkdir -p "$trabajo/$tamanno/datos" "$trabajo/$tamanno/impresoras"
    coproc SIM { exec "$bin/simulador" --puerto=0 --impresoras-ep="$trabajo/$tamanno/impresoras"; }
    pids+=("$SIM_PID")
    read -r -t 10 linea <&"${SIM[0]}"
    puerto="${linea#PUERTO }"
    control="http://127.0.0.1:$puerto/__control"
    # The configuration served, with the font size of the order windows changed.
    curl -sf "$control/configuracion" | python3 -c '
import json, sys
d = json.load(sys.stdin)
doc = json.loads(d["documentoTexto"])
doc["tamannofuenteprincipales"] = int(sys.argv[1])
print(json.dumps({"documento": doc}))' "$tamanno" |
        curl -sf -X PUT -H 'Content-Type: application/json' --data-binary @- "$control/configuracion" >/dev/null
    curl -sf -X POST -H 'Content-Type: application/json' \
        --data "{\"cantidad\":1,\"semilla\":11,\"clase\":\"domicilio\",\"productos\":$productos}" \
        "$control/pedidos" >/dev/null
    "$bin/preparar_config" --carpeta="$trabajo/$tamanno/datos" --id=7 --password=clave --numconfig=1
    "$bin/TarvimentaPedidos" noactualizar --servidor="127.0.0.1:$puerto/api/" \
        --carpeta="$trabajo/$tamanno/datos" &
    pids+=("$!")
    for _ in $(seq 150); do
        xdotool search --onlyvisible --name 'NUEVO PEDIDO' >/dev/null 2>&1 && break
        sleep 0.2
    done
    sleep 1 # the window manager frames it and the window settles in place
    salida="$raiz/docs/pedido-nuevo-${productos}p-fuente${tamanno}-${geometria}.png"
    import -window root "$salida"
    echo "captura: $salida"
    parar_procesos
done
