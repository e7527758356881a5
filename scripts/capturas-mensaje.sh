#!/usr/bin/env bash
# Screenshots of the new-message window as the staff would see it: the desk against the
# stand-in service under the display given (DISPLAY, with a window manager), once for a
# customer's message and once for a request to cancel an accepted, paid order.
#   DISPLAY=:67 scripts/capturas-mensaje.sh
# Pictures go to docs/mensaje-<cliente|cancelacion>-<ancho>x<alto>.png.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
bin="$raiz/build/normal/bin"
: "${DISPLAY:?hace falta una pantalla (Xvfb y un gestor de ventanas)}"

trabajo="$(mktemp -d)"
pids=()
source "$raiz/scripts/procesos.sh"
trap 'parar_procesos; rm -rf "$trabajo"' EXIT

geometria="$(xdpyinfo | sed -n 's/.*dimensions: *\([0-9]*x[0-9]*\) .*/\1/p')"
for clase in cliente cancelacion; do
    mkdir -p "$trabajo/$clase/datos" "$trabajo/$clase/impresoras"
    coproc SIM { exec "$bin/simulador" --puerto=0 --impresoras-ep="$trabajo/$clase/impresoras"; }
    pids+=("$SIM_PID")
    read -r -t 10 linea <&"${SIM[0]}"
    puerto="${linea#PUERTO }"
    control="http://127.0.0.1:$puerto/__control"
    json=(-sf -H 'Content-Type: application/json')
    if [ "$clase" = cliente ]; then
        mensaje='{"asunto":"Timbre","mensaje":"Hola, el timbre del portal no funciona. Cuando lleguéis llamad al 600 111 222, por favor. ¡Gracias!","quienenvia":"US","tipo":1}'
    else
        # An order accepted (as at another desk) before the request to cancel it arrives.
        numero="$(curl "${json[@]}" -X POST --data '{"cantidad":1,"semilla":5,"clase":"domicilio","productos":4}' \
            "$control/pedidos" | python3 -c 'import json,sys; print(json.load(sys.stdin)[0]["numero"])')"
        curl -sf -X DELETE "$control/respuestas" >/dev/null
        curl -sf "http://127.0.0.1:$puerto/api/pedidosgprs/respuestapedidos?a=7&o=$numero&ak=Accepted&m=40_Minutos&dt=nousado&u=nousado&p=x" >/dev/null
        mensaje="{\"asunto\":\"Cancelar pedido\",\"mensaje\":\"Me he equivocado de dirección, ¿podéis cancelarlo?\",\"pedido\":\"$numero\",\"quienenvia\":\"US\",\"tipo\":2}"
    fi
    curl "${json[@]}" -X POST --data "$mensaje" "$control/mensajes" >/dev/null
    "$bin/preparar_config" --carpeta="$trabajo/$clase/datos" --id=7 --password=clave --numconfig=1
    "$bin/TarvimentaPedidos" noactualizar --servidor="127.0.0.1:$puerto/api/" \
        --carpeta="$trabajo/$clase/datos" &
    pids+=("$!")
    for _ in $(seq 150); do
        xdotool search --onlyvisible --name 'MENSAJE NUEVO' >/dev/null 2>&1 && break
        sleep 0.2
    done
    sleep 1 # the window manager frames it and the window settles in place
    salida="$raiz/docs/mensaje-${clase}-${geometria}.png"
    import -window root "$salida"
    echo "captura: $salida"
    parar_procesos
done
