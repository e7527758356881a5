#!/usr/bin/env bash
# Sets everything up and runs the desk against the stand-in service with a demo
# establishment. On a machine without a display the desk runs under Xvfb. Ctrl-C stops
# both cleanly.
set -euo pipefail
raiz="$(cd "$(dirname "$0")/.." && pwd)"
cd "$raiz"

bash scripts/instalar-dependencias.sh
bash scripts/compilar.sh normal

# --modo=1 (print only) or --modo=2 (print and messages), or TARVIMENTA_DEMO_MODO: the demo
# establishment's orders then arrive already accepted and print with no window. Every other
# argument goes to the desk.
modo="${TARVIMENTA_DEMO_MODO:-0}"
argumentos=()
for a in "$@"; do
    case "$a" in
    --modo=*) modo="${a#--modo=}" ;;
    *) argumentos+=("$a") ;;
    esac
done
case "$modo" in
0 | 1 | 2) ;;
*) echo "demo: modo desconocido: $modo (0, 1 o 2)" >&2; exit 2 ;;
esac

bin="$raiz/build/normal/bin"
trabajo="${TARVIMENTA_DEMO_DIR:-$raiz/build/demo}"
mkdir -p "$trabajo/datos" "$trabajo/impresoras"

source "$raiz/scripts/procesos.sh"
pids=()
parar() {
    trap - INT TERM EXIT
    echo
    echo "demo: parando"
    parar_procesos
}
trap parar INT TERM EXIT

# The stand-in service, with the demo establishment and its printers writing to files.
coproc SIM { exec "$bin/simulador" --puerto=0 --impresoras-ep="$trabajo/impresoras" --pedidos-cada=30 --mensajes-cada=75 --modo="$modo"; }
pids+=("$SIM_PID")
puerto=""
for _ in $(seq 100); do
    if read -r -t 0.2 linea <&"${SIM[0]}"; then
        case "$linea" in PUERTO\ *) puerto="${linea#PUERTO }"; break ;; esac
    fi
done
if [ -z "$puerto" ]; then
    echo "demo: el simulador no arrancó" >&2
    exit 1
fi
echo "demo: servicio de prueba en http://127.0.0.1:$puerto/api/"

if [ -z "${DISPLAY:-}" ] && [ "${QT_QPA_PLATFORM:-}" != "offscreen" ]; then
    Xvfb :77 -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
    pids+=("$!")
    export DISPLAY=:77
    for _ in $(seq 50); do
        [ -e /tmp/.X11-unix/X77 ] && break
        sleep 0.1
    done
    echo "demo: sin pantalla; el escritorio corre en Xvfb $DISPLAY"
fi

# The desk starts bound to the demo establishment (id 7, password "clave", configuration
# 1), so it reads its configuration and polls by itself. An existing config.txt stays.
# Each run is a fresh service numbering its orders from 1001 again: a list of printed orders
# from an earlier run would keep the new ones from printing.
if [ "$modo" != 0 ]; then
    : >"$trabajo/datos/ultpedim.txt"
fi
if [ ! -s "$trabajo/datos/config.txt" ]; then
    "$bin/preparar_config" --carpeta="$trabajo/datos" --id=7 --password=clave --numconfig=1
fi

# Every ticket a raw printer gets is shown here as text and kept as a picture beside it
# (each ticket rewrites its printer's file, so the newest one is what shows; each one is also
# kept as PRINTER-N.ep with its picture PRINTER-N.png). The driver printer of the demo
# ("Impresora caja") writes each ticket as a PDF in the same folder; its first page is kept
# as a picture too.
vigilar_tickets() {
    declare -A visto
    declare -A cuenta
    while sleep 1; do
        for f in "$trabajo"/impresoras/*.bin "$trabajo"/impresoras/*.pdf; do
            [ -s "$f" ] || continue
            marca=$(stat -c '%Y.%s' "$f")
            [ "${visto[$f]:-}" = "$marca" ] && continue
            visto[$f]=$marca
            case "$f" in
            *.bin)
                cuenta[$f]=$(( ${cuenta[$f]:-0} + 1 ))
                copia="${f%.bin}-${cuenta[$f]}"
                cp "$f" "$copia.ep"
                echo "demo: ticket en $(basename "$f" .bin) (imagen: $copia.png)"
                QT_QPA_PLATFORM=offscreen "$bin/visor_tickets" "$copia.ep" --png "$copia.png" --texto || true
                cp "$copia.png" "${f%.bin}.png" 2>/dev/null || true
                ;;
            *.pdf)
                echo "demo: ticket de la impresora de controlador en $(basename "$f") (imagen: ${f%.pdf}.png)"
                pdftoppm -png -r 110 -singlefile "$f" "${f%.pdf}" 2>/dev/null || true
                ;;
            esac
        done
    done
}
vigilar_tickets &
pids+=("$!")

# Beside the desk, a window shows every ticket as it prints, newest first: the raw ones drawn
# as paper, the driver printer's through their pictures.
"$bin/visor_tickets" --carpeta "$trabajo/impresoras" &
pids+=("$!")

# The demo's slot 1 is a driver printer, "Impresora caja", which no fresh machine has: the desk
# gets one of that name that prints into PDF files beside the raw tickets.
"$bin/TarvimentaPedidos" --servidor="127.0.0.1:$puerto/api/" --carpeta="$trabajo/datos" \
    --impresora-pdf="Impresora caja" --carpeta-pdf="$trabajo/impresoras" ${argumentos[@]+"${argumentos[@]}"} &
pids+=("$!")
echo "demo: escritorio en marcha (datos en $trabajo/datos, tickets en $trabajo/impresoras); Ctrl-C para parar"
wait "${pids[-1]}" || true
