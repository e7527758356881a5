#!/usr/bin/env bash
# Takes the README's pictures of the desk's windows again, so they never go stale: a virtual
# screen with a window manager, the stand-in service driving the states, the keyboard and
# the mouse driven by xdotool, on a 1024x768 screen. Pictures go to docs/ventanas/; the
# long-order and message pictures of capturas-pedido.sh and capturas-mensaje.sh are taken
# after them, on the same screen.
#   scripts/capturas.sh     CAPTURAS_PANTALLA=:94 by default (a screen already running there
#                           is used as it is); CAPTURAS_SIN_COMPILAR=1 uses the build as it is
# Each picture is checked: the window lies whole on the screen and no message box is up;
# the script ends with an error when one is not.
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
pantalla_pids=()
source "$raiz/scripts/procesos.sh"
# The updater copy, and the desk it starts again when its download fails, are processes of
# their own: whatever runs a program of the copy's folder is stopped, until nothing does.
parar_copias() {
    local p quedan
    for _ in $(seq 20); do
        quedan=0
        for p in /proc/[0-9]*; do
            case "$(readlink "$p/exe" 2>/dev/null)" in
            "$trabajo/programa/"*) kill -KILL "${p#/proc/}" 2>/dev/null && quedan=1 ;;
            esac
        done
        [ "$quedan" = 0 ] && return
        sleep 0.5
    done
}
trap 'parar_procesos; parar_copias; pids=("${pantalla_pids[@]}"); parar_procesos; rm -rf "$trabajo"' EXIT
fallos=0

export DISPLAY="$pantalla"
# A screen already there (with its window manager) is used as it is.
if ! xdpyinfo >/dev/null 2>&1; then
    Xvfb "$pantalla" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
    pantalla_pids+=("$!")
    for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
    openbox >/dev/null 2>&1 &
    pantalla_pids+=("$!")
fi
read -r ancho alto < <(xdpyinfo | sed -n 's/.*dimensions: *\([0-9]*\)x\([0-9]*\) .*/\1 \2/p')

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
    local id x y w h
    id="$(ventana "$1")"
    xdotool windowactivate --sync "$id" >/dev/null 2>&1 || true
    sleep 0.7
    # A window of one colour is not painted yet (a busy machine): taken again, for a while.
    for _ in $(seq 20); do
        import -window "$id" "$salida/$2"
        [ "$(identify -format '%[fx:standard_deviation>0]' "$salida/$2")" = 1 ] && break
        sleep 0.5
    done
    echo "capturas: $2"
    # The whole window on the screen, so none of its buttons is out of reach.
    read -r x y w h < <(xwininfo -id "$id" | awk '/Absolute upper-left X/ {x=$NF} /Absolute upper-left Y/ {y=$NF}
        /^ *Width/ {w=$NF} /^ *Height/ {h=$NF} END {print x, y, w, h}')
    if [ "$x" -lt 0 ] || [ "$y" -lt 0 ] || [ $((x + w)) -gt "$ancho" ] || [ $((y + h)) -gt "$alto" ]; then
        echo "capturas: «$1» se sale de la pantalla (${w}x${h} en $x,$y; pantalla ${ancho}x${alto})" >&2
        fallos=$((fallos + 1))
    fi
    # A message box of the desk (titled with the program's name) means something went wrong.
    if xdotool search --onlyvisible --name '^TarvimentaPedidos$' >/dev/null 2>&1; then
        import -window root "$salida/fallo-caja.png"
        echo "capturas: hay una caja de mensaje en pantalla ($salida/fallo-caja.png)" >&2
        fallos=$((fallos + 1))
    fi
}
cerrar() { # closes a secondary window as its title bar's cross would
    local id
    id="$(ventana "$1")"
    xdotool windowactivate --sync "$id" key alt+F4
    sleep 0.5
}
pulsar() { # pulsar TITLE X Y [doble]: a click at a point of the window (its layout at Debian
    # 12's fonts), or a double click
    local id veces=1
    id="$(ventana "$1")"
    [ "${4:-}" = doble ] && veces=2
    xdotool windowactivate --sync "$id" >/dev/null 2>&1 || true
    xdotool mousemove --window "$id" "$2" "$3" click --repeat "$veces" --delay 80 1
    sleep 1
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

# A week of answered orders for the history, set straight on the service (as if answered at
# another desk) before this desk polls: the queue of new orders is emptied again.
curl -s -X POST -d '{"cantidad":8,"semilla":21,"clase":"mezcla"}' "$control/pedidos" >/dev/null
curl -s -X DELETE "$control/respuestas" >/dev/null
respuesta="http://127.0.0.1:$puerto/api/pedidosgprs/respuestapedidos?a=7&dt=nousado&u=nousado&p=x"
for n in 1001 1002 1003 1005 1006 1008; do curl -s "$respuesta&o=$n&ak=Accepted&m=30_Minutos" >/dev/null; done
for n in 1004 1007; do curl -s "$respuesta&o=$n&ak=Rejected&m=Cerrado%20por%20vacaciones" >/dev/null; done

# The first start of a fresh installation: not configured, waiting for Admin.
"$bin/TarvimentaPedidos" --servidor="127.0.0.1:$puerto/api/" --carpeta="$trabajo/vacia" noactualizar &
primera=$!
foto '^Tarvimenta$' primer_arranque.png
kill -TERM "$primera"
wait "$primera" || true

"$bin/preparar_config" --carpeta="$trabajo/datos" --id=7 --password=clave --numconfig=1
"$bin/TarvimentaPedidos" --servidor="127.0.0.1:$puerto/api/" --carpeta="$trabajo/datos" \
    --impresora-pdf="Impresora caja" --carpeta-pdf="$trabajo/impresoras" noactualizar &
escritorio=$!
pids+=("$escritorio")
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

# A kitchen printer's categories and extra options: its tab, then its two buttons.
menu 2
pulsar '^Configurar Impresoras$' 227 21 # "Impresora 3", the hot kitchen
pulsar '^Configurar Impresoras$' 372 156 # "Configurar"
foto '^Categorías Cocina$' ajustes_categorias_cocina.png
teclas '^Categorías Cocina$' Escape
pulsar '^Configurar Impresoras$' 457 156 # "Extra"
foto '^Extra Configuración Impresora$' ajustes_extra.png
teclas '^Extra Configuración Impresora$' Escape
teclas '^Configurar Impresoras$' Escape

# The main window's buttons, where its layout puts them.
principal_cerrar=(108 172)    # "Cerrar Temporalmente"
principal_historico=(108 200) # "Últimos Pedidos"
principal_mensaje=(312 200)   # "Último Mensaje"
principal_informes=(108 228)  # "Informes"
principal_agotados=(312 228)  # "Marcar Prod. Agotados"

# Two products out of stock: the menu window, ticked with the keyboard.
pulsar '^Tarvimenta$' "${principal_agotados[@]}"
teclas '^Productos - Selección Agotados$' Down space Down Down Down space
foto '^Productos - Selección Agotados$' productos.png
cerrar '^Productos - Selección Agotados$'

# Closed for 45 minutes: the closing window, then the main window as it stays.
pulsar '^Tarvimenta$' "${principal_cerrar[@]}"
foto '^Cerrar Establecimiento$' cerrar_establecimiento.png
pulsar '^Cerrar Establecimiento$' 96 76 # "Cerrar 45 minutos"
sleep 2
foto '^Tarvimenta$' principal_cerrado.png

# The history: the list, one past order opened from it, the sales summaries.
pulsar '^Tarvimenta$' "${principal_historico[@]}"
foto '^Pedidos Anteriores$' historial.png
pulsar '^Pedidos Anteriores$' 150 277 doble # the third order
foto '^Pedido$' pedido_anterior.png
cerrar '^Pedido$'
cerrar '^Pedidos Anteriores$'
pulsar '^Tarvimenta$' "${principal_informes[@]}"
foto '^Informes$' informes.png
cerrar '^Informes$'

# A customer's message answered, then shown again by "Último Mensaje".
curl -s -H 'Content-Type: application/json' -X POST "$control/mensajes" --data \
    '{"asunto":"Timbre","mensaje":"Hola, el timbre del portal no funciona. Llamad al 600 111 222, por favor.","quienenvia":"US","tipo":1}' \
    >/dev/null
id="$(ventana '^MENSAJE NUEVO$')"
xdotool windowactivate --sync "$id" type --delay 20 'Gracias, llamaremos al llegar.'
foto '^MENSAJE NUEVO$' mensaje_nuevo.png
pulsar '^MENSAJE NUEVO$' 108 571 # "Responder"
pulsar '^Tarvimenta$' "${principal_mensaje[@]}"
foto '^Último Mensaje$' ultimo_mensaje.png
cerrar '^Último Mensaje$'

# More windows go here, before the update (which ends this desk): one block each, opened
# from the main window or the menu, pictured with `foto`, closed again.

# The update: a copy of the desk in a folder of its own (it replaces itself there), offered a
# forced newer version whose download the service stalls at 45%.
kill -TERM "$escritorio"
wait "$escritorio" || true
mkdir -p "$trabajo/programa"
cp "$bin/TarvimentaPedidos" "$bin"/*.mp3 "$bin"/*.wav "$trabajo/programa/"
curl -s -X PUT -H 'Content-Type: application/json' "$control/actualizacion" --data \
    "{\"version\":\"9.9.9\",\"descriptor\":\"#0*http://127.0.0.1:$puerto/api/descargas/*TarvimentaPedidos.exe*true*false*false#\",
      \"ficheros\":{\"TarvimentaPedidos.exe\":\"$bin/TarvimentaPedidos\"},
      \"cortar\":{\"fraccion\":0.45,\"veces\":1,\"segundos\":120}}" >/dev/null
"$trabajo/programa/TarvimentaPedidos" --servidor="127.0.0.1:$puerto/api/" --carpeta="$trabajo/datos" noactualizar &
pids+=("$!")
ventana '^Tarvimenta$' >/dev/null
sleep 4 # its first reading of the configuration
menu 5
sleep 3
foto '^Actualización TarvimentaPedidos$' actualizacion.png
parar_procesos
parar_copias

# The pictures of the long order and of the two kinds of message, on the same screen.
bash "$raiz/scripts/capturas-pedido.sh"
bash "$raiz/scripts/capturas-mensaje.sh"

[ "$fallos" -eq 0 ] || { echo "capturas: $fallos fallos" >&2; exit 1; }
echo "capturas: hechas en $salida"
