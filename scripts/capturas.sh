#!/usr/bin/env bash
# Takes the README's pictures of the desk's windows again, so they never go stale: a virtual
# screen with a window manager, the stand-in service driving the states, the keyboard and
# the mouse driven by xdotool. Pictures go to docs/ventanas/.
#   scripts/capturas.sh     CAPTURAS_PANTALLA=:94 by default (a screen already running there
#                           is used as it is); CAPTURAS_SIN_COMPILAR=1 uses the build as it is
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
cd "$raiz"

if [ "${CAPTURAS_SIN_COMPILAR:-}" != "1" ]; then
    bash scripts/instalar-dependencias.sh
    bash scripts/compilar.sh normal
fi
bin="$raiz/build/normal/bin"
salida="$raiz/docs/ventanas"
trabajo="$(mktemp -d)"
mkdir -p "$salida" "$trabajo/datos" "$trabajo/impresoras"
pantalla="${CAPTURAS_PANTALLA:-:94}"

pids=()
source "$raiz/scripts/procesos.sh"
trap 'parar_procesos; rm -rf "$trabajo"' EXIT

export DISPLAY="$pantalla"
# A screen already there (with its window manager) is used as it is.
if ! xdpyinfo >/dev/null 2>&1; then
    Xvfb "$pantalla" -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
    pids+=("$!")
    for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
    openbox >/dev/null 2>&1 &
    pids+=("$!")
fi

coproc SIM { exec "$bin/simulador" --puerto=0 --impresoras-ep="$trabajo/impresoras"; }
pids+=("$SIM_PID")
puerto=""
for _ in $(seq 100); do
    if read -r -t 0.2 linea <&"${SIM[0]}"; then
        case "$linea" in PUERTO\ *) puerto="${linea#PUERTO }"; break ;; esac
    fi
done
[ -n "$puerto" ] || { echo "capturas: el simulador no arrancó" >&2; exit 1; }
control="http://127.0.0.1:$puerto/__control"

# The window whose title matches, waited for (bounded).
ventana() {
    local id=""
    for _ in $(seq 400); do
        id="$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1)" && [ -n "$id" ] && break
        sleep 0.1
    done
    [ -n "$id" ] || {
        echo "capturas: no aparece la ventana «$1» (pantalla en $salida/fallo.png)" >&2
        import -window root "$salida/fallo.png"
        return 1
    }
    echo "$id"
}
foto() { # foto TITLE FILE
    local id
    id="$(ventana "$1")"
    xdotool windowactivate --sync "$id" >/dev/null 2>&1 || true
    sleep 0.7
    import -window "$id" "$salida/$2"
    echo "capturas: $2"
}
teclas() { # teclas TITLE KEY...
    local id
    id="$(ventana "$1")"
    shift
    xdotool windowactivate --sync "$id" >/dev/null 2>&1 || true
    for k in "$@"; do xdotool key "$k"; sleep 0.3; done
}
pedido() { # queues one generated order of a kind and waits for its window
    curl -s -X POST -d "{\"cantidad\":1,\"semilla\":$2,\"clase\":\"$1\"}" "$control/pedidos" >/dev/null
    ventana '^¡NUEVO PEDIDO!' >/dev/null
}
menu() { # opens the main window's menu and takes its Nth entry
    local id
    id="$(ventana '^Tarvimenta$')"
    xdotool windowactivate --sync "$id" >/dev/null 2>&1 || true
    xdotool mousemove --window "$id" 20 10 click 1
    sleep 0.5
    for _ in $(seq "$1"); do xdotool key Down; done
    xdotool key Return
}

# The first start of a fresh installation: not configured, waiting for Admin.
"$bin/TarvimentaPedidos" --servidor="127.0.0.1:$puerto/api/" --carpeta="$trabajo/vacia" noactualizar &
primera=$!
foto '^Tarvimenta$' primer_arranque.png
kill -TERM "$primera"
wait "$primera" || true

"$bin/preparar_config" --carpeta="$trabajo/datos" --id=7 --password=clave --numconfig=1
"$bin/TarvimentaPedidos" --servidor="127.0.0.1:$puerto/api/" --carpeta="$trabajo/datos" \
    --impresora-pdf="Impresora caja" --carpeta-pdf="$trabajo/impresoras" noactualizar &
pids+=("$!")
sleep 4
foto '^Tarvimenta$' principal.png

# An order accepted with the keyboard: Enter, then 2 0 Enter.
pedido domicilio 3
foto '^¡NUEVO PEDIDO!' pedido_nuevo.png
teclas '^¡NUEVO PEDIDO!' Return
foto '^Aceptar Pedido$' aceptar_minutos.png
teclas '^Aceptar Pedido$' 2 0 Return

# An order rejected: Tab to Rechazar, Enter, back to the reasons, one with the arrow, Enter.
sleep 2
pedido recoger 5
teclas '^¡NUEVO PEDIDO!' Tab Return
teclas '^Rechazar' shift+Tab Down Down
foto '^Rechazar' rechazar.png
teclas '^Rechazar' Return

# Rejected for want of ingredients: the list of the order's products comes up.
sleep 2
pedido domicilio 9
teclas '^¡NUEVO PEDIDO!' Tab Return
teclas '^Rechazar' shift+Tab Down
teclas '^Rechazar' Return
foto '^Productos Pedido' rechazar_ingredientes.png
teclas '^Productos Pedido' Escape
teclas '^Rechazar' Escape
teclas '^¡NUEVO PEDIDO!' Tab Return
teclas '^Rechazar' shift+Tab Down Down
teclas '^Rechazar' Return

# A scheduled order: its own acceptance window.
sleep 2
pedido programado 7
teclas '^¡NUEVO PEDIDO!' Return
foto '^Aceptar Pedido$' aceptar_programado.png
teclas '^Aceptar Pedido$' Return

# The printed tickets, in the demo's window.
sleep 3
"$bin/visor_tickets" --carpeta "$trabajo/impresoras" &
pids+=("$!")
ventana '^Tickets impresos$' >/dev/null
sleep 5 # the driver printer's PDFs get their pictures
foto '^Tickets impresos$' tickets_impresos.png

# The settings windows, from the menu.
menu 1
foto '^Configuración General$' ajustes_generales.png
teclas '^Configuración General$' Escape
menu 2
foto '^Configurar Impresoras$' ajustes_impresoras.png
teclas '^Configurar Impresoras$' Escape
menu 6
foto '^Admin$' admin.png
teclas '^Admin$' Escape

echo "capturas: hechas en $salida"
